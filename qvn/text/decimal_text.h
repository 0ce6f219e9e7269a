// Numbers between programs and stations: "." is the decimal separator of texts that travel, the regional separator that
// of texts people type and read. The regional settings are read at each call.
//
//   FormatoDecimal(1234.5) == "1234.5" everywhere;  Fn("1234.5") == 1234.5 everywhere
//   Val2("1.234,5") == 1234.5 where "," is the decimal separator, 0 elsewhere
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn::text {

/// The regional decimal separator: "." when the general number text of 0.5 has one, otherwise ",".
std::string SeparadorDecimal();

/// `uValue` as a general number with "." as the decimal separator and without thousands separators: at most 15
/// significant digits, so a difference of 5.55E-17 is "0". Infinities and NaN are "INF", "-INF" and "NAN".
std::string FormatoDecimal(double uValue);

/// Reads what FormatoDecimal wrote: every "." counts as the regional separator, then as Val2. 0 when it is no number.
/// (The topmost Doubles round up to a text out of range, which reads as 0.)
double Fn(std::string_view strValue);

/// The value as a Double by regional conventions, and 0 for anything that has none: text that is not a number, numbers
/// out of range, Null, Empty, arrays and objects. Never fails.
///
/// Text may have blanks around it, one sign, regional thousands separators in the integer part and an exponent with E
/// or D; anything more makes it 0. True is -1; a date is its day count.
double Val2(const Variant& uDato);

}  // namespace qvn::text
