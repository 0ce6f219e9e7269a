// Numbers taken apart into decimal digits, as a reader sees them.
//
//   significantDigits(-0.0125) is digits "125", pointAt -1, negative: -0.125 x 10^-1
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "qvn/base/decimal_digits.h"
#include "qvn/base/variant.h"

namespace qvn::pattern {

/// The value 0.digits x 10^pointAt.
struct SignificantDigits {
  std::string digits;  ///< without leading and trailing zeros; none for zero
  std::int64_t pointAt = 0;
  bool isNegative = false;
};

/// The digits of a number, a Boolean (-1 or 0), a date's serial or Empty (zero). Exact types keep all their digits, a
/// Double gives its shortest digits, at most 15, as its general number text shows them. Nothing for infinities and NaN.
/// Throws as Variant::toDouble does for anything else.
std::optional<SignificantDigits> significantDigits(const Variant& number);

/// The number multiplied by 10^shift, without its sign.
DecimalDigits shifted(const SignificantDigits& number, std::int64_t shift);

}  // namespace qvn::pattern
