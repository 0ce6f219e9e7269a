// Pattern formatting: numbers, dates and texts laid out by a pattern, by regional conventions.
//
//   formatValue(1234.5, "#,##0.00") == "1,234.50";  formatValue(Date::fromCivil(2012, 3, 7), "dd/mm/yyyy") ==
//   "07/03/2012" formatValue("abc", ">") == "ABC";               formatValue(0.25, "Percent") == "25.00%"
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"

namespace qvn {

/// `value` laid out by `pattern`: a named format, a number pattern, a date pattern or a text pattern. The first
/// placeholder or code that is neither quoted ("de") nor escaped (`\d`) decides which; in a pattern of one kind the
/// signs of the others are literals, as is everything without a meaning. An empty pattern gives the value's general
/// text.
///
/// - Number: `0 # . , %`, `E+ E- e+ e-` before a placeholder; sections "positive;negative;zero;Null", an empty one
/// giving
///   way to the first. A comma between integer placeholders groups thousands, one behind them divides by 1000. Decimals
///   are rounded half away from zero, as the number's general text shows them. Infinities and NaN have their general
///   text.
/// - Date: `d` to `dddddd`, `w ww`, `m` to `mmmm` (minutes right behind an hour), `q`, `y yy yyyy`, `h hh`, `n nn`, `s
/// ss`,
///   `ttttt`, `c`, `/ :`, `AM/PM am/pm A/P a/p AMPM`. Numbers are day counts. The week begins on Sunday, and the first
///   week of a year is the one that holds 1 January.
/// - Text: `@ & < > !`; sections "text;Null or empty".
/// - Names, in any case: General Number, Currency, Fixed, Standard, Percent, Scientific, Yes/No, True/False, On/Off,
///   General Date, Long Date, Medium Date, Short Date, Long Time, Medium Time, Short Time.
///
/// Null gives "" (or the pattern's section for it); Empty is 0 for number and date patterns. Text that reads as a
/// number or a date is taken as one by number and date patterns, and is returned unchanged by them otherwise.
/// Separators, names and words are those of the regional settings at the time of the call. Any bytes make a valid
/// pattern.
///
/// Throws RuntimeError 13 for arrays and objects, and 5 for a day count outside the range of dates under a date
/// pattern.
std::string formatValue(const Variant& value, std::string_view pattern);

}  // namespace qvn
