// Dates as engines write them: ISO 8601 with a blank or "T" before the time.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvn/base/date.h"
#include "qvn/data/field_type.h"

namespace qvn::data {

/// Reads "yyyy-mm-dd", "hh:mm:ss" (on day zero), or both, with an optional fraction of a second. Nothing for any other
/// text, and for a date or time that does not exist, such as "0000-00-00" or "25:00:00".
std::optional<Date> parseIsoDate(std::string_view text);

/// "yyyy-mm-dd".
std::string isoDate(Date date);
/// "yyyy-mm-dd hh:mm:ss".
std::string isoDateTime(Date date);
/// "hh:mm:ss".
std::string isoTime(Date date);

/// What a column of this type stores of the date: "yyyy-mm-dd" for Date, the time for DbTime, both for any other type.
/// The time has a fraction of at most `fractionDigits` (up to 6) digits behind its seconds unless that is zero: what
/// lies nearer to a whole second than the rounding of date arithmetic counts as that second, so that an engine that
/// cuts fractions off does not store the second before. Throws RuntimeError 5 for a date outside the years 100 to 9999.
std::string isoText(Date date, FieldType type, int fractionDigits);

}  // namespace qvn::data
