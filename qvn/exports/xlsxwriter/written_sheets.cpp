#include "qvn/exports/xlsxwriter/written_sheets.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <memory>
#include <string_view>

namespace qvn::exports::xlsxwriter {
namespace {

// Offsets in the records of a ZIP file (APPNOTE 6.3.3, 4.3.7, 4.3.12 and 4.3.16).
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kEndDirectorySize = 12;
constexpr std::size_t kEndDirectoryOffset = 16;
constexpr std::size_t kEntrySize = 46;
constexpr std::size_t kEntryNameSize = 28;
constexpr std::size_t kEntryExtraSize = 30;
constexpr std::size_t kEntryCommentSize = 32;
constexpr std::size_t kEntryOffset = 42;
constexpr std::size_t kLocalSize = 30;
constexpr std::size_t kLocalNameSize = 26;
constexpr std::size_t kLocalExtraSize = 28;

constexpr std::string_view kSheetPrefix = "xl/worksheets/sheet";
constexpr std::string_view kRowBegin = "<row r=\"";
constexpr std::string_view kSheetEnd = "</worksheet>";
constexpr std::size_t kPartBytes = 1U << 16U;

std::uint32_t number(std::string_view record, std::size_t offset, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) value = value << 8U | static_cast<unsigned char>(record[offset + i]);
  return value;
}
std::uint32_t number16(std::string_view record, std::size_t offset) { return number(record, offset, 2); }
std::uint32_t number32(std::string_view record, std::size_t offset) { return number(record, offset, 4); }

// Up to `size` bytes from `offset` on.
std::string readAt(std::ifstream& file, std::uint64_t offset, std::size_t size) {
  std::string bytes(size, '\0');
  file.clear();
  file.seekg(static_cast<std::streamoff>(offset));
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  return bytes;
}

// Where the local header of each sheet stands, by the sheet's number. Empty for what is no ZIP file.
std::map<int, std::uint64_t> findSheets(std::ifstream& file) {
  file.seekg(0, std::ios::end);
  const std::streamoff size = file.tellg();
  if (size < static_cast<std::streamoff>(kEndSize)) return {};
  const std::string end = readAt(file, static_cast<std::uint64_t>(size) - kEndSize, kEndSize);
  const std::string directory = readAt(file, number32(end, kEndDirectoryOffset), number32(end, kEndDirectorySize));
  std::map<int, std::uint64_t> sheets;
  for (std::string_view left = directory; left.size() >= kEntrySize;) {
    const std::size_t nameSize = number16(left, kEntryNameSize);
    const std::string name(left.substr(kEntrySize, nameSize));
    if (name.starts_with(kSheetPrefix)) {
      sheets[std::stoi(name.substr(kSheetPrefix.size()))] = number32(left, kEntryOffset);
    }
    const std::size_t entry =
        kEntrySize + nameSize + number16(left, kEntryExtraSize) + number16(left, kEntryCommentSize);
    left.remove_prefix(std::min(entry, left.size()));
  }
  return sheets;
}

// Counts the rows in a sheet's text, which comes in parts.
class RowCount {
 public:
  void add(std::string_view part) {
    kept_.append(part);
    std::size_t from = 0;
    for (std::size_t at = kept_.find(kRowBegin); at != std::string::npos; at = kept_.find(kRowBegin, from)) {
      ++rows_;
      from = at + kRowBegin.size();
    }
    // What may be the beginning of a row or the end of the sheet.
    const std::size_t longest = std::max(kRowBegin.size(), kSheetEnd.size());
    kept_.erase(0, std::max(from, kept_.size() - std::min(kept_.size(), longest)));
  }
  [[nodiscard]] std::int64_t rows() const { return rows_; }
  [[nodiscard]] bool isWhole() const { return kept_.ends_with(kSheetEnd); }

 private:
  std::string kept_;
  std::int64_t rows_ = 0;
};

struct EndInflation {
  void operator()(z_stream* stream) const noexcept { inflateEnd(stream); }
};

// Nothing but the end of the deflated text ends the loop well.
bool inflateInto(RowCount& count, std::ifstream& file) {
  constexpr int kRawDeflate = -MAX_WBITS;
  z_stream stream{};
  if (inflateInit2(&stream, kRawDeflate) != Z_OK) return false;
  const std::unique_ptr<z_stream, EndInflation> owner(&stream);
  std::array<char, kPartBytes> in{};
  std::array<char, kPartBytes> out{};
  int state = Z_OK;
  while (state == Z_OK) {
    if (stream.avail_in == 0) {
      file.read(in.data(), in.size());
      stream.next_in = reinterpret_cast<Bytef*>(in.data());  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
      stream.avail_in = static_cast<uInt>(file.gcount());
    }
    stream.next_out = reinterpret_cast<Bytef*>(out.data());  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    stream.avail_out = static_cast<uInt>(out.size());
    state = inflate(&stream, Z_NO_FLUSH);
    count.add({out.data(), out.size() - stream.avail_out});
  }
  return state == Z_STREAM_END;
}

bool holdsSheet(std::ifstream& file, std::uint64_t header, std::int64_t rows) {
  const std::string local = readAt(file, header, kLocalSize);
  if (local.size() < kLocalSize) return false;
  file.seekg(static_cast<std::streamoff>(header + kLocalSize + number16(local, kLocalNameSize) +
                                         number16(local, kLocalExtraSize)));
  RowCount count;
  return inflateInto(count, file) && count.isWhole() && count.rows() == rows;
}

}  // namespace

bool holdsSheets(const std::string& path, const std::vector<std::int64_t>& rowsOfSheets) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  const std::map<int, std::uint64_t> headers = findSheets(file);
  if (headers.size() != rowsOfSheets.size()) return false;
  auto rows = rowsOfSheets.begin();
  return std::ranges::all_of(headers, [&](const auto& sheet) { return holdsSheet(file, sheet.second, *rows++); });
}

}  // namespace qvn::exports::xlsxwriter
