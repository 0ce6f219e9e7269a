#include "qvn/base/letter_case.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "qvn/base/eight_bytes.h"
#include "qvn/base/utf8.h"

namespace qvn {
namespace {

// How a range of lower-case letters reaches its capitals.
struct CaseRange {
  char32_t first;
  char32_t last;
  std::int32_t shift;  // added to the letter
  char32_t step;       // 1: every letter of the range; 2: every second one, beginning with the first
};

// Source: the simple upper-case mappings of the Unicode Character Database, for the blocks Latin-1 Supplement, Latin
// Extended-A, Greek (modern letters), Cyrillic with its supplement, and Latin Extended Additional.
constexpr auto kCaseRanges = std::to_array<CaseRange>({
    {0x00E0, 0x00F6, -32, 1}, {0x00F8, 0x00FE, -32, 1}, {0x00FF, 0x00FF, 121, 1}, {0x0101, 0x012F, -1, 2},
    {0x0133, 0x0137, -1, 2},  {0x013A, 0x0148, -1, 2},  {0x014B, 0x0177, -1, 2},  {0x017A, 0x017E, -1, 2},
    {0x03AC, 0x03AC, -38, 1}, {0x03AD, 0x03AF, -37, 1}, {0x03B1, 0x03C1, -32, 1}, {0x03C3, 0x03CB, -32, 1},
    {0x03CC, 0x03CC, -64, 1}, {0x03CD, 0x03CE, -63, 1}, {0x0430, 0x044F, -32, 1}, {0x0450, 0x045F, -80, 1},
    {0x0461, 0x0481, -1, 2},  {0x048B, 0x04BF, -1, 2},  {0x04C2, 0x04CE, -1, 2},  {0x04CF, 0x04CF, -15, 1},
    {0x04D1, 0x052F, -1, 2},  {0x1E01, 0x1E95, -1, 2},  {0x1EA1, 0x1EFF, -1, 2},
});
static_assert(std::ranges::is_sorted(kCaseRanges, std::less{}, &CaseRange::first));

constexpr char32_t shifted(char32_t character, std::int32_t shift) noexcept {
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + shift);
}

// The way back: the ranges of the capitals.
constexpr auto kCapitalRanges = [] {
  auto ranges = kCaseRanges;
  for (CaseRange& range : ranges) {
    range = {shifted(range.first, range.shift), shifted(range.last, range.shift), -range.shift, range.step};
  }
  std::ranges::sort(ranges, std::less{}, &CaseRange::first);
  return ranges;
}();
static_assert(std::ranges::adjacent_find(kCapitalRanges, [](const CaseRange& left, const CaseRange& right) {
                return left.last >= right.first;
              }) == kCapitalRanges.end());

constexpr char upperAscii(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
constexpr char lowerAscii(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// `character` moved as the range that holds it says.
template <std::size_t kCount>
char32_t moveCase(char32_t character, const std::array<CaseRange, kCount>& ranges) noexcept {
  const auto* range = std::ranges::lower_bound(ranges, character, std::less{}, &CaseRange::last);
  if (range == ranges.end() || character < range->first || (character - range->first) % range->step != 0) {
    return character;
  }
  return shifted(character, range->shift);
}

constexpr bool isAscii(char c) noexcept { return static_cast<signed char>(c) >= 0; }

// The bit in which capitals and small letters differ, in each of eight ASCII bytes that is a letter from `first` on.
constexpr std::uint64_t caseBits(std::uint64_t word, char first) noexcept {
  using eight_bytes::kEach;
  constexpr int kLetters = 26;
  // The highest bit of each byte is free, and set by an addition that reaches 128.
  const std::uint64_t isFirstOrAbove = word + kEach * static_cast<std::uint64_t>(0x80 - first);
  const std::uint64_t isAboveLast = word + kEach * static_cast<std::uint64_t>(0x80 - first - kLetters);
  return ((isFirstOrAbove ^ isAboveLast) & eight_bytes::kHighBits) >> 2;
}

// Copies ASCII characters from the beginning of `text`, the letters from `first` on in the other case; gives how many.
std::size_t mapAscii(std::string_view text, char first, char* result) noexcept {
  std::size_t i = 0;
  while (i < text.size()) {
    std::uint64_t word = eight_bytes::load(text, i);
    if ((word & eight_bytes::kHighBits) != 0) break;
    word ^= caseBits(word, first);
    const std::size_t count = std::min(eight_bytes::kSize, text.size() - i);
    eight_bytes::store(word, result + i, count);
    i += count;
  }
  return i;
}

// Puts `text` into `result` with every well-formed character replaced by `mapped` of it, ASCII ones as mapAscii does;
// most texts are ASCII alone.
template <typename Mapping>
void mapCharacters(std::string_view text, char first, Mapping mapped, std::string& result) {
  result.resize(text.size());
  std::size_t i = mapAscii(text, first, result.data());
  if (i == text.size()) return;
  result.resize(i);
  while (i < text.size()) {
    const utf8::Decoded character = utf8::decode(text, i);
    if (character.valid) {
      utf8::append(result, mapped(character.codePoint));
    } else {
      result.push_back(text[i]);
    }
    i += character.length;
  }
}

}  // namespace

char32_t upperCase(char32_t character) noexcept {
  if (character < 0x80) return static_cast<char32_t>(upperAscii(static_cast<char>(character)));
  return moveCase(character, kCaseRanges);
}

char32_t lowerCase(char32_t character) noexcept {
  if (character < 0x80) return static_cast<char32_t>(lowerAscii(static_cast<char>(character)));
  return moveCase(character, kCapitalRanges);
}

void upperCaseInto(std::string_view text, std::string& upper) {
  mapCharacters(
      text, 'a', [](char32_t character) { return upperCase(character); }, upper);
}

std::string upperCase(std::string_view text) {
  std::string upper;
  upperCaseInto(text, upper);
  return upper;
}

std::string lowerCase(std::string_view text) {
  std::string lower;
  mapCharacters(
      text, 'A', [](char32_t character) { return lowerCase(character); }, lower);
  return lower;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept {
  if (left == right) return true;
  if (left.empty() || right.empty()) return false;
  // Names of columns often differ in their last character alone: precio1, precio2.
  if (isAscii(left.back()) && isAscii(right.back()) && upperAscii(left.back()) != upperAscii(right.back()))
    return false;
  const std::size_t common = std::min(left.size(), right.size());
  std::size_t l = 0;
  for (; l < common && isAscii(left[l]) && isAscii(right[l]); ++l) {
    if (upperAscii(left[l]) != upperAscii(right[l])) return false;
  }
  std::size_t r = l;
  while (l < left.size() && r < right.size()) {
    const utf8::Decoded a = utf8::decode(left, l);
    const utf8::Decoded b = utf8::decode(right, r);
    if (a.valid != b.valid) return false;
    if (a.valid ? upperCase(a.codePoint) != upperCase(b.codePoint) : left[l] != right[r]) return false;
    l += a.length;
    r += b.length;
  }
  return l == left.size() && r == right.size();
}

std::size_t hashIgnoringCase(std::string_view text) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;  // 2 to the 64 by the golden ratio
  std::uint64_t hash = text.size();
  for (std::size_t at = 0; at < text.size(); at += eight_bytes::kSize) {
    const std::uint64_t word = eight_bytes::load(text, at);
    if ((word & eight_bytes::kHighBits) != 0) return std::hash<std::string>{}(upperCase(text));
    hash = (hash ^ word ^ caseBits(word, 'a')) * kOdd;
    hash ^= hash >> 32;
  }
  return hash;
}

}  // namespace qvn
