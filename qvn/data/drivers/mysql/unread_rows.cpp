#include "qvn/data/drivers/mysql/unread_rows.h"

#include <algorithm>
#include <cstdint>

namespace qvn::data::mysql {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr std::size_t kMostLengthBytes = 10;

// A length is stored as length + 1 in groups of seven bits, the lowest first, the top bit set on all but the last; NULL
// is 0.
void appendLength(std::string& block, std::string_view value) {
  std::uint64_t code = value.data() == nullptr ? 0 : std::uint64_t{value.size()} + 1;
  for (; code >= 0x80; code >>= 7) block.push_back(static_cast<char>(code | 0x80));
  block.push_back(static_cast<char>(code));
}

std::uint64_t takeLength(const std::string& block, std::size_t& offset) {
  std::uint64_t code = 0;
  for (unsigned shift = 0;; shift += 7) {
    const auto byte = static_cast<std::uint8_t>(block[offset++]);
    code |= std::uint64_t{byte & 0x7FU} << shift;
    if (byte < 0x80) return code;
  }
}

}  // namespace

void UnreadRows::append(const RowTexts& row) {
  std::size_t mostBytes = 0;
  for (const std::string_view value : row) mostBytes += kMostLengthBytes + value.size();
  // A block never grows past its capacity: rows that were handed out point into it.
  if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < mostBytes) {
    blocks_.emplace_back().reserve(std::max(kBlockBytes, mostBytes));
  }
  std::string& block = blocks_.back();
  for (const std::string_view value : row) {
    appendLength(block, value);
    block.append(value);
  }
}

bool UnreadRows::next(RowTexts& row) {
  if (!blocks_.empty() && offset_ == blocks_.front().size()) {
    blocks_.pop_front();
    offset_ = 0;
  }
  if (blocks_.empty()) return false;
  const std::string& block = blocks_.front();
  for (std::string_view& value : row) {
    const std::uint64_t code = takeLength(block, offset_);
    value = code == 0 ? std::string_view() : std::string_view(block).substr(offset_, code - 1);
    offset_ += value.size();
  }
  return true;
}

}  // namespace qvn::data::mysql
