// The platform's date value: a day count from 30 December 1899 with the time of day as its fraction. Before that day
// the fraction still counts forward within the day: -1.25 is 29 December 1899, 06:00.
//
//   Date day = Date::fromCivil(2012, 3, 7);   day.civil().month == 3
#pragma once

#include <compare>
#include <cstdint>

namespace qvn {

/// A calendar date of the proleptic Gregorian calendar.
struct CivilDate {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
};

/// A time of day to the second.
struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class Date {
 public:
  /// First and last day that a date value can hold: 1 January 100 and 31 December 9999.
  static constexpr std::int32_t kFirstDay = -657434;
  static constexpr std::int32_t kLastDay = 2958465;

  constexpr Date() = default;
  constexpr explicit Date(double serial) : serial_(serial) {}

  /// A date from parts that must be a calendar date. Throws RuntimeError 5 otherwise or outside the years 100 to 9999.
  static Date fromCivil(int year, int month, int day, TimeOfDay time = {});

  /// The platform's date packing: months and days outside their ranges roll over into the neighbouring years and
  /// months, and years 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999. Throws RuntimeError 5 outside the range.
  static Date fromSerialParts(int year, int month, int day);

  /// True when the parts are a calendar date within the range of date values.
  static bool isCivil(int year, int month, int day) noexcept;

  [[nodiscard]] constexpr double serial() const { return serial_; }

  /// The calendar date, after rounding to the nearest second. Throws RuntimeError 5 outside the range.
  [[nodiscard]] CivilDate civil() const;
  /// The time of day, rounded to the nearest second.
  [[nodiscard]] TimeOfDay time() const;
  /// 1 = Sunday to 7 = Saturday.
  [[nodiscard]] int weekday() const;
  /// 1 = 1 January.
  [[nodiscard]] int dayOfYear() const;
  /// Whole days since 30 December 1899, after rounding to the nearest second.
  [[nodiscard]] std::int32_t dayNumber() const;
  /// True when there is a time of day other than midnight.
  [[nodiscard]] bool hasTime() const;

  friend constexpr auto operator<=>(const Date&, const Date&) = default;

 private:
  double serial_ = 0;
};

/// Expands a two-digit year: 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999; other years are returned unchanged.
constexpr int expandYear(int year) {
  return year >= 0 && year <= 29 ? year + 2000 : year >= 30 && year <= 99 ? year + 1900 : year;
}

}  // namespace qvn
