// Dates as engines write them: ISO 8601 with a blank or "T" before the time.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvn/base/date.h"

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

}  // namespace qvn::data
