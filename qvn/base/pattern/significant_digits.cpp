#include "qvn/base/pattern/significant_digits.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "qvn/base/scientific.h"

namespace qvn::pattern {
namespace {

constexpr int kMostDoubleDigits = 15;

// Reads "-12.50".
SignificantDigits readDigits(std::string_view text) {
  SignificantDigits number;
  number.isNegative = text.starts_with('-');
  if (number.isNegative) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  number.pointAt = static_cast<std::int64_t>(point);
  number.digits = text.substr(0, point);
  if (point < text.size()) number.digits += text.substr(point + 1);
  const std::size_t leading = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  number.digits.erase(0, leading);
  number.pointAt -= static_cast<std::int64_t>(leading);
  number.digits.resize(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) return {};
  return number;
}

SignificantDigits readDigits(const Scientific& number) {
  if (number.digits() == "0") return {};
  return {std::string(number.digits()), number.exponent() + 1, number.isNegative()};
}

std::optional<SignificantDigits> readDouble(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  const Scientific shortest = shortestScientific(value);
  const bool isTooLong = shortest.digits().size() > kMostDoubleDigits;
  return readDigits(isTooLong ? roundedScientific(value, kMostDoubleDigits) : shortest);
}

}  // namespace

std::optional<SignificantDigits> significantDigits(const Variant& number) {
  if (const auto* whole = number.getIf<std::int64_t>()) return readDigits(std::to_string(*whole));
  if (const auto* currency = number.getIf<Currency>()) return readDigits(currency->toText());
  if (const auto* decimal = number.getIf<Decimal>()) return readDigits(decimal->toText());
  if (const auto* single = number.getIf<float>(); single != nullptr && std::isfinite(*single)) {
    return readDigits(shortestScientific(*single));
  }
  return readDouble(number.toDouble());
}

DecimalDigits shifted(const SignificantDigits& number, std::int64_t shift) {
  if (number.digits.empty()) return {};
  return placePoint(number.digits, number.pointAt + shift);
}

}  // namespace qvn::pattern
