#include "qvn/base/pattern/significant_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

namespace qvn::pattern {
namespace {

constexpr int kMostDoubleDigits = 15;

// Room for "-1.7976931348623157e+308".
using Buffer = std::array<char, 32>;

// Reads "-12.50" or "1.25e-07".
SignificantDigits readDigits(std::string_view text) {
  SignificantDigits number;
  number.isNegative = text.starts_with('-');
  if (number.isNegative) text.remove_prefix(1);
  const std::size_t mark = text.find('e');
  if (mark != std::string_view::npos) {
    std::string_view exponent = text.substr(mark + 1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), number.pointAt);
    text = text.substr(0, mark);
  }
  const std::size_t point = std::min(text.find('.'), text.size());
  number.pointAt += static_cast<std::int64_t>(point);
  number.digits = text.substr(0, point);
  if (point < text.size()) number.digits += text.substr(point + 1);
  const std::size_t leading = std::min(number.digits.find_first_not_of('0'), number.digits.size());
  number.digits.erase(0, leading);
  number.pointAt -= static_cast<std::int64_t>(leading);
  number.digits.resize(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) return {};
  return number;
}

template <typename Number, typename... Precision>
SignificantDigits readFloating(Number value, Precision... precision) {
  Buffer buffer;
  char* const last = buffer.data() + buffer.size();
  const auto end = std::to_chars(buffer.data(), last, value, std::chars_format::scientific, precision...);
  return readDigits({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())});
}

std::optional<SignificantDigits> readDouble(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  SignificantDigits number = readFloating(value);
  if (number.digits.size() > kMostDoubleDigits) return readFloating(value, kMostDoubleDigits - 1);
  return number;
}

}  // namespace

std::optional<SignificantDigits> significantDigits(const Variant& number) {
  if (const auto* whole = number.getIf<std::int64_t>()) return readDigits(std::to_string(*whole));
  if (const auto* currency = number.getIf<Currency>()) return readDigits(currency->toText());
  if (const auto* decimal = number.getIf<Decimal>()) return readDigits(decimal->toText());
  if (const auto* single = number.getIf<float>(); single != nullptr && std::isfinite(*single)) {
    return readFloating(*single);
  }
  return readDouble(number.toDouble());
}

DecimalDigits shifted(const SignificantDigits& number, std::int64_t shift) {
  if (number.digits.empty()) return {};
  const std::int64_t pointAt = number.pointAt + shift;
  if (pointAt <= 0) return {{}, std::string(static_cast<std::size_t>(-pointAt), '0') + number.digits};
  const auto whole = static_cast<std::size_t>(pointAt);
  DecimalDigits shifted{number.digits.substr(0, whole), {}};
  if (whole < number.digits.size()) {
    shifted.decimals = number.digits.substr(whole);
  } else {
    shifted.whole.resize(whole, '0');
  }
  return shifted;
}

}  // namespace qvn::pattern
