#include "qvn/base/utf8.h"

#include <array>
#include <cstring>

namespace qvn::utf8 {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;

std::uint8_t byteAt(std::string_view text, std::size_t offset) noexcept {
  return static_cast<std::uint8_t>(text[offset]);
}

// Length of the leading run of 7-bit bytes.
std::size_t asciiPrefix(std::string_view text) noexcept {
  std::size_t i = 0;
  for (; i + sizeof(std::uint64_t) <= text.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t block = 0;
    std::memcpy(&block, text.data() + i, sizeof block);
    if ((block & kHighBits) != 0) break;
  }
  while (i < text.size() && byteAt(text, i) < 0x80) ++i;
  return i;
}

constexpr Decoded kMalformed{kReplacement, 1, false};

// The smallest code point that may take a sequence of this many bytes; anything below is an overlong form.
constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

Decoded decode(std::string_view text, std::size_t offset) noexcept {
  const std::uint8_t lead = byteAt(text, offset);
  if (lead < 0x80) return {lead, 1, true};
  const std::size_t size = lead >= 0xF0 && lead < 0xF8   ? 4
                           : lead >= 0xE0 && lead < 0xF0 ? 3
                           : lead >= 0xC2 && lead < 0xE0 ? 2
                                                         : 0;
  if (size == 0 || offset + size > text.size()) return kMalformed;
  char32_t codePoint = lead & (0xFFU >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) {
    const std::uint8_t next = byteAt(text, offset + i);
    if ((next & 0xC0U) != 0x80U) return kMalformed;
    codePoint = (codePoint << 6U) | (next & 0x3FU);
  }
  const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < kSmallest[size] || codePoint > 0x10FFFF || isSurrogate) return kMalformed;
  return {codePoint, size, true};
}

void append(std::string& text, char32_t codePoint) {
  if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) codePoint = kReplacement;
  const auto push = [&text](char32_t bits) { text.push_back(static_cast<char>(static_cast<std::uint8_t>(bits))); };
  if (codePoint < 0x80) {
    push(codePoint);
  } else if (codePoint < 0x800) {
    push(0xC0U | (codePoint >> 6U));
    push(0x80U | (codePoint & 0x3FU));
  } else if (codePoint < 0x10000) {
    push(0xE0U | (codePoint >> 12U));
    push(0x80U | ((codePoint >> 6U) & 0x3FU));
    push(0x80U | (codePoint & 0x3FU));
  } else {
    push(0xF0U | (codePoint >> 18U));
    push(0x80U | ((codePoint >> 12U) & 0x3FU));
    push(0x80U | ((codePoint >> 6U) & 0x3FU));
    push(0x80U | (codePoint & 0x3FU));
  }
}

bool isAscii(std::string_view text) noexcept { return asciiPrefix(text) == text.size(); }

bool isValid(std::string_view text) noexcept {
  for (std::size_t i = asciiPrefix(text); i < text.size();) {
    const Decoded character = decode(text, i);
    if (!character.valid) return false;
    i += character.length;
  }
  return true;
}

std::string sanitize(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Decoded character = decode(text, i);
    append(clean, character.codePoint);
    i += character.length;
  }
  return clean;
}

std::size_t length(std::string_view text) noexcept {
  std::size_t i = asciiPrefix(text);
  std::size_t count = i;
  while (i < text.size()) {
    i += decode(text, i).length;
    ++count;
  }
  return count;
}

std::size_t offsetOf(std::string_view text, std::size_t index) noexcept {
  const std::size_t ascii = asciiPrefix(text.substr(0, index));
  if (ascii == index) return index;
  std::size_t i = ascii;
  for (std::size_t at = ascii; i < text.size() && at < index; ++at) i += decode(text, i).length;
  return i;
}

std::string_view left(std::string_view text, std::size_t count) noexcept {
  return text.substr(0, offsetOf(text, count));
}

std::string_view from(std::string_view text, std::size_t start) noexcept { return text.substr(offsetOf(text, start)); }

std::string_view middle(std::string_view text, std::size_t start, std::size_t count) noexcept {
  return left(from(text, start), count);
}

std::string_view trimBlanks(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace qvn::utf8
