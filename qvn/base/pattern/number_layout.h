// Lays the digits of a number out over the placeholders of a section.
#pragma once

#include <cstdint>
#include <string>

#include "qvn/base/decimal_digits.h"
#include "qvn/base/pattern/number_section.h"
#include "qvn/base/pattern/significant_digits.h"

namespace qvn::pattern {

/// Digits fitted to a section: as many decimals as it has placeholders, no leading zeros.
struct FittedNumber {
  DecimalDigits digits;
  std::int64_t exponent = 0;  ///< power of ten taken out of the digits; 0 for a section without exponent part

  [[nodiscard]] bool isZero() const noexcept;
};

/// Scales and rounds (half away from zero) for a section without exponent part.
FittedNumber fitPlain(const SignificantDigits& number, const NumberSection& section);

/// Appends the section's text with the number in it, without a sign. Integer digits spread from the right; those that
/// find no placeholder come out at the first one, or at the point when there is none before it.
void writeNumber(const NumberSection& section, FittedNumber number, std::string& text);

}  // namespace qvn::pattern
