// Dates as text by regional conventions, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvn/base/date.h"
#include "qvn/base/regional.h"

namespace qvn {

/// Day, month and year in the regional order, two, two and four digits: "07/03/2012".
std::string shortDateText(Date date, const RegionalSettings& regional);

/// The day in words: "miércoles, 7 de marzo de 2012" where dates are Spanish, else "Wednesday, March 7, 2012".
std::string longDateText(Date date, const RegionalSettings& regional);

/// "10:42:07", or "10:42:07 AM" where the locale counts twelve hours.
std::string timeText(Date date, const RegionalSettings& regional);

/// The short date, the time, or both: the time alone on day zero, the date alone at midnight.
std::string dateText(Date date);

/// Reads a date, a time of day or both: the regional order of day, month and year with any of "/", "-" and "." between
/// them, ISO order when the year has four digits and comes first, month names, and "HH:MM[:SS] [AM|PM]".
/// Two-digit years are expanded. Nothing when the text is not a date.
std::optional<Date> parseDate(std::string_view text, const RegionalSettings& regional);
std::optional<Date> parseDate(std::string_view text);

}  // namespace qvn
