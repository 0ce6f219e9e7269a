// Numbers as text and back.
//
//   generalNumber(1234.5) == "1234.5";  shortestNumber(0.1 + 0.2) == "0.30000000000000004"
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvn/base/regional.h"

namespace qvn {

/// General number with "." as the separator: at most 15 significant digits and at most 15 decimals, no trailing zeros,
/// an exponent only from 1E+15 up ("1.5E+20"), and "0" for minus zero. Infinities and NaN are "INF", "-INF", "NAN".
std::string generalNumber(double value);
/// The same at the end of `text`.
void appendGeneralNumber(std::string& text, double value);

/// generalNumber with the regional separator.
std::string regionalNumber(double value);

/// The shortest text that reads back to the same Double, with "." as the separator.
std::string shortestNumber(double value);
std::string shortestNumber(float value);

/// The number that parseNumber reads in `text`, with "." as the separator and its exponent, if any, after an "e":
/// "-1234.5e-3" for " -1,234.5D-3 ". Nothing for other text.
std::optional<std::string> plainNumber(std::string_view text, const NumberSeparators& separators);

/// Reads a number by regional conventions: blanks around, one sign, thousands separators in the integer part, an
/// exponent with E or D. Nothing when anything else is found or the value is out of range.
std::optional<double> parseNumber(std::string_view text, const NumberSeparators& separators);
std::optional<double> parseNumber(std::string_view text);

}  // namespace qvn
