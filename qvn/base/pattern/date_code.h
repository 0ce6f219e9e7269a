// The codes of date patterns: d, mmm, yyyy, hh, AM/PM, ...
#pragma once

#include <cstddef>
#include <string_view>
#include <variant>

namespace qvn::pattern {

/// Codes that print a number.
enum class NumberField {
  Day,
  Weekday,  // 1 = Sunday
  Week,
  Month,
  Quarter,
  DayOfYear,
  YearOfCentury,
  Year,
  Hour,
  Minute,
  Second,
};

/// Codes that print a name or a whole text.
enum class WordField {
  WeekdayShort,
  WeekdayLong,
  MonthShort,
  MonthLong,
  General,
  ShortDate,
  LongDate,
  Time,
  Half,        // AM or PM in the marker's case
  HalfLetter,  // A or P in the marker's case
  HalfSystem,  // AM or PM as the system writes them
};

struct DateCode {
  std::string_view text;  ///< as it stands in patterns, in lower case
  std::variant<NumberField, WordField> field;
  std::size_t width = 1;  ///< least number of digits of a number

  /// True for the markers that make the hours run from 1 to 12.
  [[nodiscard]] bool isHalfMarker() const noexcept;
};

/// The longest code at the front of `text`, in any case; null when there is none.
const DateCode* matchDateCode(std::string_view text) noexcept;

}  // namespace qvn::pattern
