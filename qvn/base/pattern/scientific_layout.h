// Chooses mantissa and exponent for sections with an exponent part.
#pragma once

#include "qvn/base/pattern/number_layout.h"

namespace qvn::pattern {

/// Fits a number to a section with an exponent part. The mantissa has as many integer digits as the section has integer
/// placeholders; with "#" among several of them the exponent is a multiple of their number instead
/// ("##0.0E+0": 12.3E+3). A mantissa that rounds up to one digit more moves the exponent.
FittedNumber fitScientific(const SignificantDigits& number, const NumberSection& section);

}  // namespace qvn::pattern
