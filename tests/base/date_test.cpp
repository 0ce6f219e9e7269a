#include "qvn/base/date.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "tests/support/error_of.h"

namespace qvn {
namespace {

std::string described(Date date) {
  const CivilDate day = date.civil();
  const TimeOfDay time = date.time();
  char text[64];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d", day.year, day.month, day.day, time.hour, time.minute,
                time.second);
  return text;
}

// Counts the days one by one through the Gregorian rule; 1 January 100 was a Friday.
TEST(Date, EveryDayOfTheRangeGoesThereAndBack) {
  std::int32_t serial = Date::kFirstDay;
  int weekday = 6;
  for (int year = 100; year <= 9999; ++year) {
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    const int lengths[] = {31, isLeap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int dayOfYear = 0;
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= lengths[month - 1]; ++day, ++serial) {
        const Date date(serial);
        const CivilDate civil = date.civil();
        ASSERT_TRUE(civil.year == year && civil.month == month && civil.day == day &&
                    Date::fromCivil(year, month, day) == date && date.weekday() == weekday &&
                    date.dayOfYear() == ++dayOfYear)
            << year << '-' << month << '-' << day;
        weekday = weekday % 7 + 1;
      }
    }
  }
  EXPECT_EQ(serial, Date::kLastDay + 1);
}

TEST(Date, RoundsToTheNearestSecond) {
  constexpr double kSecond = 1 / 86400.0;
  // clang-format off
  struct Row { double serial; const char* expected; std::int32_t day; };
  const Row rows[] = {
      {40975, "2012-3-7 0:0:0", 40975}, {40975 + 0.4 * kSecond, "2012-3-7 0:0:0", 40975},
      {36526, "2000-1-1 0:0:0", 36526}, {40975 + 86399.4 * kSecond, "2012-3-7 23:59:59", 40975},
      // Into the next day, and into the next year.
      {40975 + 86399.9999 * kSecond, "2012-3-8 0:0:0", 40976}, {40909 - 0.1 * kSecond, "2012-1-1 0:0:0", 40909},
      // Before day zero the fraction counts forward and rounds forward; day zero has two signs.
      {-1.25, "1899-12-29 6:0:0", -1}, {-1 - 86399.9999 * kSecond, "1899-12-30 0:0:0", 0},
      {-0.75, "1899-12-30 18:0:0", 0}, {-657434.5, "100-1-1 12:0:0", -657434},
      {2958465 + 86399 * kSecond, "9999-12-31 23:59:59", 2958465}};
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.serial);
    EXPECT_EQ(described(Date(row.serial)), row.expected);
    EXPECT_EQ(Date(row.serial).dayNumber(), row.day);
    EXPECT_EQ(Date(row.serial).hasTime(), !std::string_view(row.expected).ends_with(" 0:0:0"));
  }
}

TEST(Date, EverySecondOfADayGoesThereAndBack) {
  for (const int year : {100, 1899, 2012, 9999}) {
    for (int second = 0; second < 86400; ++second) {
      const Date date = Date::fromCivil(year, 12, 29, {second / 3600, second / 60 % 60, second % 60});
      const TimeOfDay time = date.time();
      ASSERT_EQ(time.hour * 3600 + time.minute * 60 + time.second, second) << year;
      ASSERT_EQ(date.civil().day, 29) << year;
    }
  }
}

TEST(Date, FailsOutsideItsRange) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const double serial : {-657435.0, 2958466.0, 2958465.9999999, 1e300, -kInfinity, kNan}) {
    EXPECT_EQ(test::errorNumber([serial] { return Date(serial).civil(); }), 5) << serial;
    EXPECT_EQ(test::errorNumber([serial] { return Date(serial).time(); }), 5) << serial;
    EXPECT_EQ(test::errorNumber([serial] { return Date(serial).weekday(); }), 5) << serial;
  }
  const CivilDate kNoDays[] = {{99, 12, 31},  {10000, 1, 1}, {2012, 0, 1},  {2012, 13, 1},  {2012, 1, 0},
                               {2012, 4, 31}, {2011, 2, 29}, {1900, 2, 29}, {2012, 260, 1}, {2012, 1, 257}};
  for (const CivilDate& day : kNoDays) {
    EXPECT_FALSE(Date::isCivil(day.year, day.month, day.day));
    EXPECT_EQ(test::errorNumber([&day] { Date::fromCivil(day.year, day.month, day.day); }), 5);
  }
}

TEST(DateFromSerialParts, RollsOver) {
  // clang-format off
  const std::pair<CivilDate, CivilDate> rows[] = {
      {{2023, 2, 29}, {2023, 3, 1}}, {{2024, 2, 29}, {2024, 2, 29}}, {{2012, 13, 1}, {2013, 1, 1}},
      {{2012, 0, 1}, {2011, 12, 1}}, {{2012, -11, 1}, {2011, 1, 1}}, {{2012, -12, 1}, {2010, 12, 1}},
      {{2012, 3, 0}, {2012, 2, 29}}, {{2012, 1, -365}, {2010, 12, 31}}, {{2012, 1, 400}, {2013, 2, 3}},
      {{0, 1, 1}, {2000, 1, 1}}, {{29, 1, 1}, {2029, 1, 1}}, {{30, 1, 1}, {1930, 1, 1}}, {{99, 12, 32}, {2000, 1, 1}},
      {{100, 1, 1}, {100, 1, 1}}, {{9999, 12, 31}, {9999, 12, 31}}, {{10000, 0, 1}, {9999, 12, 1}},
      {{-1, 7, 36710}, {100, 1, 1}}};
  const CivilDate kOutside[] = {
      {9999, 12, 32}, {100, 1, 0}, {100, 0, 31}, {-1, 1, 1}, {2012, 1, INT_MAX}, {2012, INT_MIN, 1},
      {INT_MAX, INT_MAX, INT_MAX}, {INT_MIN, INT_MIN, INT_MIN}};
  // clang-format on
  for (const auto& [given, day] : rows) {
    EXPECT_EQ(Date::fromSerialParts(given.year, given.month, given.day), Date::fromCivil(day.year, day.month, day.day));
  }
  for (const CivilDate& day : kOutside) {
    EXPECT_EQ(test::errorNumber([&day] { Date::fromSerialParts(day.year, day.month, day.day); }), 5);
  }
}

}  // namespace
}  // namespace qvn
