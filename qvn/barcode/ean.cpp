#include "qvn/barcode/ean.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "qvn/base/utf8.h"

namespace qvn::barcode {
namespace {

using Pattern = std::array<char, 7>;
using NumberSet = std::array<Pattern, 10>;

constexpr std::string_view kNormalGuard = "101";
constexpr std::string_view kCentreGuard = "01010";
constexpr std::string_view kInvalidCharacter = "An Invalid Character Found in Bar Text";

// Number set A and parities by leading digit. Source: ISO/IEC 15420, tables of number sets and of parity.
constexpr auto kOddModules = std::to_array<std::string_view>(
    {"0001101", "0011001", "0010011", "0111101", "0100011", "0110001", "0101111", "0111011", "0110111", "0001011"});
constexpr auto kParities = std::to_array<std::string_view>(
    {"OOOOOO", "OOEOEE", "OOEEOE", "OOEEEO", "OEOOEE", "OEEOOE", "OEEEOO", "OEOEOE", "OEOEEO", "OEEOEO"});
static_assert(std::ranges::all_of(kOddModules, [](std::string_view modules) {
  return modules.size() == 7 && modules.front() == '0' && modules.back() == '1' &&
         std::ranges::count(modules, '1') % 2 == 1;
}));
static_assert(std::ranges::all_of(kParities, [](std::string_view parity) {
  return parity.size() == 6 && parity.front() == 'O' && std::ranges::count(parity, 'E') % 3 == 0;
}));

constexpr NumberSet kSetA = [] {
  NumberSet set{};
  for (std::size_t digit = 0; digit < set.size(); ++digit) {
    std::ranges::copy(kOddModules[digit], set[digit].begin());
  }
  return set;
}();
// Set C is set A with dark and light exchanged; set B is set C from right to left.
constexpr NumberSet kSetC = [] {
  NumberSet set = kSetA;
  for (Pattern& pattern : set) {
    for (char& module : pattern) {
      module = module == '0' ? '1' : '0';
    }
  }
  return set;
}();
constexpr NumberSet kSetB = [] {
  NumberSet set = kSetC;
  for (Pattern& pattern : set) {
    std::ranges::reverse(pattern);
  }
  return set;
}();

constexpr bool isDigit(char character) noexcept { return character >= '0' && character <= '9'; }

void appendDigit(const NumberSet& set, char digit, ModuleSink& sink) {
  const Pattern& pattern = set[static_cast<std::size_t>(digit - '0')];
  sink.append({pattern.data(), pattern.size()}, BarLength::Data);
}

void appendRightHalf(std::string_view caption, std::size_t from, ModuleSink& sink) {
  sink.append(kCentreGuard, BarLength::Guard);
  for (const char digit : caption.substr(from)) {
    appendDigit(kSetC, digit, sink);
  }
  appendDigit(kSetC, checkDigit(caption), sink);
  sink.append(kNormalGuard, BarLength::Guard);
}

std::optional<CaptionFault> faultOf(std::string_view caption, std::size_t digits, CaptionFault wrongLength) noexcept {
  if (utf8::length(caption) != digits) {
    return wrongLength;
  }
  if (!std::ranges::all_of(caption, isDigit)) {
    return CaptionFault{kInvalidCharacter, wrongLength.title};
  }
  return std::nullopt;
}

}  // namespace

std::optional<CaptionFault> ean13Fault(std::string_view caption) noexcept {
  return faultOf(caption, 12, {"Should be 12 Digit Numbers", "EAN-13"});
}

std::optional<CaptionFault> ean8Fault(std::string_view caption) noexcept {
  return faultOf(caption, 7, {"Should be 7 Digit Numbers", "EAN-8"});
}

char checkDigit(std::string_view digits) noexcept {
  int sum = 0;
  int weight = digits.size() % 2 == 0 ? 1 : 3;  // the last digit weighs 3
  for (const char digit : digits) {
    sum += (digit - '0') * weight;
    weight = 4 - weight;
  }
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::int16_t getEAN13ChekDigit(std::string_view text) noexcept {
  if (utf8::length(text) < 12) {
    return -1;
  }
  int sum = 0;
  int weight = 1;
  for (std::size_t at = 0, position = 0; position < 12; ++position) {
    sum += isDigit(text[at]) ? (text[at] - '0') * weight : 0;
    weight = 4 - weight;
    at += utf8::decode(text, at).length;
  }
  return static_cast<std::int16_t>(10 - sum % 10);
}

void encodeEan13(std::string_view caption, ModuleSink& sink) {
  sink.append(kNormalGuard, BarLength::Guard);
  const std::string_view parity = kParities[static_cast<std::size_t>(caption[0] - '0')];
  for (std::size_t at = 1; at < 7; ++at) {
    appendDigit(parity[at - 1] == 'E' ? kSetB : kSetA, caption[at], sink);
  }
  appendRightHalf(caption, 7, sink);
}

void encodeEan8(std::string_view caption, ModuleSink& sink) {
  sink.append(kNormalGuard, BarLength::Guard);
  for (const char digit : caption.substr(0, 4)) {
    appendDigit(kSetA, digit, sink);
  }
  appendRightHalf(caption, 4, sink);
}

}  // namespace qvn::barcode
