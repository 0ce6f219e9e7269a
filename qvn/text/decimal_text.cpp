#include "qvn/text/decimal_text.h"

#include <array>
#include <cstdint>
#include <optional>

#include "qvn/base/number_text.h"
#include "qvn/base/regional.h"

namespace qvn::text {
namespace {

// A sign, digits and at most one "." between digits read alike under all regional settings. Up to 15 digits and their
// power of ten are exact as Doubles, and so one division rounds correctly. Nothing for any other text.
std::optional<double> readFewDigits(std::string_view text) {
  static constexpr auto kPowers =
      std::to_array({1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14});
  constexpr std::size_t kLongest = 16;  // 15 digits and the point
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  if (text.empty() || text.size() > kLongest || text.front() == '.' || text.back() == '.') return std::nullopt;
  std::int64_t digits = 0;
  std::size_t decimals = 0;
  bool isPastPoint = false;
  for (const char c : text) {
    if (c == '.' && !isPastPoint) {
      isPastPoint = true;
    } else if (c >= '0' && c <= '9') {
      digits = digits * 10 + (c - '0');
      if (isPastPoint) ++decimals;
    } else {
      return std::nullopt;
    }
  }
  if (!isPastPoint && text.size() == kLongest) return std::nullopt;
  const double value = static_cast<double>(digits) / kPowers[decimals];
  return isNegative ? -value : value;
}

}  // namespace

std::string SeparadorDecimal() { return regionalNumber(0.5).find('.') != std::string::npos ? "." : ","; }

std::string FormatoDecimal(double uValue) { return generalNumber(uValue); }

double Fn(std::string_view strValue) {
  if (const auto value = readFewDigits(strValue)) return *value;
  // Not SeparadorDecimal(): where the separator is neither "." nor ",", the text would not read back.
  const std::string separator = decimalSeparator();
  if (separator == ".") return parseNumber(strValue).value_or(0);
  std::string regional;
  regional.reserve(strValue.size() + separator.size());
  for (const char c : strValue) {
    if (c == '.') {
      regional.append(separator);
    } else {
      regional.push_back(c);
    }
  }
  return parseNumber(regional).value_or(0);
}

double Val2(const Variant& uDato) {
  if (const auto* text = uDato.getIf<std::string>()) return parseNumber(*text).value_or(0);
  return uDato.isNumeric() ? uDato.toDouble() : 0;
}

}  // namespace qvn::text
