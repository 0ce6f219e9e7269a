#include "qvn/base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "qvn/base/decimal_digits.h"
#include "qvn/base/scientific.h"
#include "qvn/base/utf8.h"

namespace qvn {
namespace {

constexpr int kSignificantDigits = 15;
constexpr int kMostDecimals = 15;

std::string writeExponent(const Scientific& number) {
  const std::string_view digits = number.digits();
  std::string text(number.isNegative() ? "-" : "");
  text.push_back(digits.front());
  if (digits.size() > 1) text.append(".").append(digits.substr(1));
  text.append(number.exponent() < 0 ? "E-" : "E+").append(std::to_string(std::abs(number.exponent())));
  return text;
}

std::string writePlain(const Scientific& number) {
  const DecimalDigits parts = placePoint(number.digits(), number.exponent() + 1);
  std::string text(number.isNegative() ? "-" : "");
  text.append(parts.whole.empty() ? "0" : parts.whole);
  if (!parts.decimals.empty()) text.append(".").append(parts.decimals);
  return text;
}

// A value below 1 whose digits reach past the last decimal that is shown.
std::string writeBelowOne(double value) {
  std::array<char, 40> buffer;  // "-0." with 15 decimals and to spare
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, kMostDecimals);
  std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.back() == '.') return "0";
  return std::string(text);
}

std::optional<std::string> writeSpecial(double value) {
  if (value == 0) return "0";
  if (std::isnan(value)) return "NAN";
  if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
  return std::nullopt;
}

template <typename Number>
std::string writeShortest(Number value) {
  if (auto special = writeSpecial(static_cast<double>(value))) return *special;
  const Scientific number = shortestScientific(value);
  const bool isPlain = number.exponent() < kSignificantDigits && number.exponent() >= -kMostDecimals;
  return isPlain ? writePlain(number) : writeExponent(number);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (prefix.empty() || !text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// Appends the run of digits at the front of `text`, over thousands separators when one is given.
std::size_t takeDigits(std::string_view& text, std::string& digits, std::string_view thousands) {
  const std::size_t before = digits.size();
  while (!text.empty()) {
    if (isDigit(text.front())) {
      digits.push_back(text.front());
      text.remove_prefix(1);
    } else if (digits.size() == before || !takePrefix(text, thousands)) {
      break;
    }
  }
  return digits.size() - before;
}

// Appends the exponent at the front of `text`; false when a marker is not followed by digits.
bool takeExponent(std::string_view& text, std::string& number) {
  if (text.empty() || std::string_view("eEdD").find(text.front()) == std::string_view::npos) return true;
  text.remove_prefix(1);
  number.push_back('e');
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    if (text.front() == '-') number.push_back('-');
    text.remove_prefix(1);
  }
  return takeDigits(text, number, {}) > 0;
}

// Whether a number in the form of plainNumber() that no Double holds is too small for one, not too large: its power of
// ten tells, together with how far its first digit other than 0 stands from the point.
bool isTooSmall(std::string_view number) {
  constexpr std::int64_t kFarther = std::int64_t{1} << 62;  // than any text is long
  const std::size_t mark = std::min(number.find('e'), number.size());
  const std::size_t point = std::min(number.find('.'), mark);
  std::int64_t exponent = 0;
  if (mark < number.size()) {
    const auto read = std::from_chars(number.data() + mark + 1, number.data() + number.size(), exponent);
    if (read.ec != std::errc{}) exponent = number[mark + 1] == '-' ? -kFarther : kFarther;
  }
  return exponent + static_cast<std::int64_t>(point) < static_cast<std::int64_t>(number.find_first_not_of("-0."));
}

std::optional<double> readPlain(const std::string& number) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  // from_chars reports a value too small for a Double like one too large.
  if (error == std::errc::result_out_of_range && isTooSmall(number)) return 0.0;
  if (error != std::errc{} || end != number.data() + number.size()) return std::nullopt;
  return value;
}

// Most numbers of a shop have at most four decimals. Where the value is the Double nearest to such a number of at most
// 15 digits, its digits are those that rounding to 15 would give. False, with nothing written, for any other value.
bool appendFewDecimals(std::string& text, double value) {
  constexpr double kScale = 1e4;
  constexpr double kLimit = 1e15;
  const double scaled = std::nearbyint(value * kScale);
  if (!(std::abs(scaled) < kLimit) || scaled == 0 || scaled / kScale != value) return false;
  std::array<char, 24> buffer;  // from the right: four decimals, the point, the integer part, the sign
  char* const last = buffer.data() + buffer.size();
  char* first = last;
  auto digits = static_cast<std::uint64_t>(std::abs(scaled));
  for (int place = 0; digits > 0 || place <= 4; ++place, digits /= 10) {
    if (place == 4) *--first = '.';
    *--first = static_cast<char>('0' + digits % 10);
  }
  if (value < 0) *--first = '-';
  char* end = last;
  while (end[-1] == '0') --end;
  if (end[-1] == '.') --end;
  text.append(first, end);
  return true;
}

std::string writeGeneral(double value) {
  if (auto special = writeSpecial(value)) return *special;
  Scientific number = shortestScientific(value);
  if (number.digits().size() > kSignificantDigits) number = roundedScientific(value, kSignificantDigits);
  if (number.exponent() >= kSignificantDigits) return writeExponent(number);
  const int decimals = static_cast<int>(number.digits().size()) - 1 - number.exponent();
  if (decimals > kMostDecimals) return writeBelowOne(value);
  return writePlain(number);
}

}  // namespace

std::string generalNumber(double value) {
  std::string text;
  appendGeneralNumber(text, value);
  return text;
}

void appendGeneralNumber(std::string& text, double value) {
  if (!appendFewDecimals(text, value)) text.append(writeGeneral(value));
}

std::string regionalNumber(double value) {
  std::string text = generalNumber(value);
  if (const std::size_t point = text.find('.'); point != std::string::npos) text.replace(point, 1, decimalSeparator());
  return text;
}

std::string shortestNumber(double value) { return writeShortest(value); }
std::string shortestNumber(float value) { return writeShortest(value); }

std::optional<std::string> plainNumber(std::string_view text, const NumberSeparators& separators) {
  text = utf8::trimBlanks(text);
  std::string number;
  number.reserve(text.size());
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    if (text.front() == '-') number.push_back('-');
    text.remove_prefix(1);
  }
  std::size_t digits = takeDigits(text, number, separators.thousandsSeparator);
  if (takePrefix(text, separators.decimalSeparator)) {
    number.push_back('.');
    digits += takeDigits(text, number, {});
  }
  if (digits == 0 || !takeExponent(text, number) || !text.empty()) return std::nullopt;
  return number;
}

std::optional<double> parseNumber(std::string_view text, const NumberSeparators& separators) {
  const auto number = plainNumber(text, separators);
  return number ? readPlain(*number) : std::nullopt;
}

std::optional<double> parseNumber(std::string_view text) { return parseNumber(text, numberSeparators()); }

}  // namespace qvn
