#include "qvn/base/currency.h"

#include <cmath>

#include "qvn/base/runtime_error.h"

namespace qvn {

Currency Currency::fromDouble(double value) {
  const double scaled = std::nearbyint(value * static_cast<double>(kScale));
  // 2^63 is exact as a Double; NaN fails the test too.
  constexpr double kLimit = 9223372036854775808.0;
  if (!(scaled >= -kLimit && scaled < kLimit)) throw RuntimeError(error_number::kOverflow);
  return Currency(static_cast<std::int64_t>(scaled));
}

double Currency::toDouble() const {
  // A division of two exact Doubles is rounded once. A longer count would be rounded before the division too, so its
  // whole units, which a Double holds, go apart.
  constexpr std::int64_t kLargestExact = std::int64_t{1} << 53;
  if (scaled_ >= -kLargestExact && scaled_ <= kLargestExact) return static_cast<double>(scaled_) / kScale;
  const std::int64_t units = scaled_ / kScale;
  return static_cast<double>(units) + static_cast<double>(scaled_ - units * kScale) / kScale;
}

std::string Currency::toText() const {
  const bool isNegative = scaled_ < 0;
  const std::uint64_t magnitude =
      isNegative ? 0 - static_cast<std::uint64_t>(scaled_) : static_cast<std::uint64_t>(scaled_);
  std::string digits = std::to_string(magnitude);
  if (digits.size() <= kDecimals) digits.insert(0, kDecimals + 1 - digits.size(), '0');
  digits.insert(digits.size() - kDecimals, ".");
  digits.resize(digits.find_last_not_of('0') + 1);
  if (digits.back() == '.') digits.pop_back();
  return isNegative ? "-" + digits : digits;
}

Currency operator+(Currency left, Currency right) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(left.scaled_, right.scaled_, &sum)) throw RuntimeError(error_number::kOverflow);
  return Currency(sum);
}

}  // namespace qvn
