#include "qvn/barcode/code39.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "qvn/barcode/integer16.h"

namespace qvn::barcode {
namespace {

constexpr std::string_view kAlphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*";
constexpr std::size_t kStartStop = 43;
constexpr std::size_t kModules = 12;

// Elements bar, space, bar ... of each value, 1 = wide (two modules). Source: ISO/IEC 16388, table of characters.
// clang-format off
constexpr auto kElements = std::to_array<std::string_view>({
    "000110100", "100100001", "001100001", "101100000", "000110001",  // 0
    "100110000", "001110000", "000100101", "100100100", "001100100",  // 5
    "100001001", "001001001", "101001000", "000011001", "100011000",  // A
    "001011000", "000001101", "100001100", "001001100", "000011100",  // F
    "100000011", "001000011", "101000010", "000010011", "100010010",  // K
    "001010010", "000000111", "100000110", "001000110", "000010110",  // P
    "110000001", "011000001", "111000000", "010010001", "110010000",  // U
    "011010000", "010000101", "110000100", "011000100", "010101000",  // Z - . blank $
    "010100010", "010001010", "000101010", "010010100",               // / + % *
});
// clang-format on
static_assert(kElements.size() == kAlphabet.size());
static_assert(std::ranges::all_of(kElements, [](std::string_view elements) {
  return elements.size() == 9 && std::ranges::count(elements, '1') == 3;
}));

using Pattern = std::array<char, kModules>;

constexpr auto kPatterns = [] {
  std::array<Pattern, kElements.size()> patterns{};
  for (std::size_t value = 0; value < kElements.size(); ++value) {
    std::size_t module = 0;
    for (std::size_t element = 0; element < 9; ++element) {
      const char shade = element % 2 == 0 ? '1' : '0';
      patterns[value][module++] = shade;
      if (kElements[value][element] == '1') {
        patterns[value][module++] = shade;
      }
    }
  }
  return patterns;
}();
constexpr auto kSortedPatterns = [] {
  auto patterns = kPatterns;
  std::ranges::sort(patterns);
  return patterns;
}();
static_assert(std::ranges::adjacent_find(kSortedPatterns) == kSortedPatterns.end());

void appendValue(std::size_t value, ModuleSink& sink) {
  const Pattern& pattern = kPatterns[value];
  sink.append({pattern.data(), pattern.size()}, BarLength::Data);
  sink.append("0", BarLength::Data);
}

}  // namespace

std::optional<CaptionFault> code39Fault(std::string_view caption) noexcept {
  if (caption.find_first_not_of(kAlphabet) == std::string_view::npos) {
    return std::nullopt;
  }
  return CaptionFault{"An Invalid Character Found in Bar Text", "Bar 39"};
}

void encodeCode39(std::string_view caption, WithCheckCharacter check, ModuleSink& sink) {
  toInteger16(static_cast<std::int64_t>(caption.size()));
  std::size_t sum = 0;
  appendValue(kStartStop, sink);
  for (const char character : caption) {
    const std::size_t value = kAlphabet.find(character);
    if (value == std::string_view::npos) {
      throw RuntimeError(error_number::kSubscriptOutOfRange);
    }
    appendValue(value, sink);
    sum += value;
  }
  if (check == WithCheckCharacter::Yes) {
    appendValue(sum % 43, sink);
  }
  appendValue(kStartStop, sink);
}

}  // namespace qvn::barcode
