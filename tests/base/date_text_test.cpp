#include "qvn/base/date_text.h"

#include <gtest/gtest.h>

#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

const Date kDay = Date::fromCivil(2012, 3, 7);

TEST(DateText, FollowsTheLocale) {
  // clang-format off
  struct Row { const char* locale; std::string_view shortText, longText, time; };
  const Row rows[] = {
      {"es_MX.UTF-8", "07/03/2012", "miércoles, 7 de marzo de 2012", "22:04:07"},
      {"de_DE.UTF-8", "07.03.2012", "Mittwoch, März 7, 2012", "22:04:07"},
      {"en_US.UTF-8", "03/07/2012", "Wednesday, March 7, 2012", "10:04:07 PM"},
      {"C", "03/07/2012", "Wednesday, March 7, 2012", "22:04:07"}};
  // clang-format on
  const Date moment = Date::fromCivil(2012, 3, 7, {22, 4, 7});
  for (const Row& row : rows) {
    SCOPED_TRACE(row.locale);
    const test::LocaleGuard guard(row.locale);
    const RegionalSettings regional = regionalSettings();
    EXPECT_EQ(shortDateText(moment, regional), row.shortText);
    EXPECT_EQ(longDateText(moment, regional), row.longText);
    EXPECT_EQ(timeText(moment, regional), row.time);
    EXPECT_EQ(dateText(moment), std::string(row.shortText).append(" ").append(row.time));
  }
}

TEST(DateText, LeavesOutMidnightAndDayZeroAndBeginsTwelveHoursWithTwelve) {
  constexpr const char *kMexico = "es_MX.UTF-8", *kUnitedStates = "en_US.UTF-8";
  // clang-format off
  struct Row { const char* locale; Date date; std::string_view expected; };
  const Row rows[] = {
      {kMexico, kDay, "07/03/2012"}, {kMexico, Date(kDay.serial() - 0.0000001), "07/03/2012"},
      {kMexico, Date(0.5), "12:00:00"}, {kMexico, Date(0), "00:00:00"}, {kMexico, Date(-1), "29/12/1899"},
      {kMexico, Date::fromCivil(100, 1, 2), "02/01/0100"}, {kUnitedStates, Date(0), "12:00:00 AM"},
      {kUnitedStates, Date(1 / 24.0), "01:00:00 AM"}, {kUnitedStates, Date(11 / 24.0), "11:00:00 AM"},
      {kUnitedStates, Date(0.5), "12:00:00 PM"}, {kUnitedStates, Date(13 / 24.0), "01:00:00 PM"}};
  // clang-format on
  for (const Row& row : rows) {
    const test::LocaleGuard guard(row.locale);
    EXPECT_EQ(dateText(row.date), row.expected);
  }
}

TEST(ParseDate, Accepts) {
  constexpr const char* kMexico = "es_MX.UTF-8";
  const Date moment = Date::fromCivil(2012, 3, 7, {22, 42, 7});
  // clang-format off
  struct Row { const char* locale; const char* text; Date expected; };
  const Row rows[] = {
      {kMexico, "07/03/2012", kDay}, {kMexico, " 7-3-12 ", kDay}, {kMexico, "7.3.2012", kDay},
      {kMexico, "7 3 2012", kDay}, {"C", "3/7/2012", kDay}, {"en_US.UTF-8", "03-07-12", kDay},
      {"de_DE.UTF-8", "07.03.2012", kDay}, {kMexico, "2012-03-07", kDay}, {"en_US.UTF-8", "2012/3/7", kDay},
      {kMexico, "29/02/2012", Date(40968)}, {kMexico, "31/12/29", Date::fromCivil(2029, 12, 31)},
      {kMexico, "31/12/30", Date::fromCivil(1930, 12, 31)}, {kMexico, "01/01/0100", Date::fromCivil(100, 1, 1)},
      // A day beyond 12 takes the other order.
      {kMexico, "03/25/2012", Date::fromCivil(2012, 3, 25)}, {"C", "25/3/2012", Date::fromCivil(2012, 3, 25)},
      // Names of the locale and English ones, in both cases.
      {kMexico, "7 de marzo de 2012", kDay}, {kMexico, "7-mar-12", kDay}, {kMexico, "7 MAR. 2012", kDay},
      {kMexico, "March 7, 2012", kDay}, {"de_DE.UTF-8", "7. märz 2012", kDay}, {"de_DE.UTF-8", "7 MÄR 2012", kDay},
      // Times alone and after a day.
      {kMexico, "10:42", Date(38520 / 86400.0)}, {kMexico, "00:00:00", Date(0)}, {kMexico, "12 pm", Date(0.5)},
      {kMexico, "12:42 AM", Date(2520 / 86400.0)}, {kMexico, "07/03/2012 10:42:07PM", moment},
      {"en_US.UTF-8", "3/7/2012, 10:42:07 pm", moment}, {"C", "2012-03-07T22:42:07", moment},
      {kMexico, "7 de marzo de 2012 10:42", Date::fromCivil(2012, 3, 7, {10, 42, 0})},
      {kMexico, "29/12/1899 06:00", Date(-1.25)}};
  // clang-format on
  for (const Row& row : rows) {
    const test::LocaleGuard guard(row.locale);
    EXPECT_EQ(parseDate(row.text), row.expected) << row.locale << ": " << row.text;
  }
}

TEST(ParseDate, Rejects) {
  const test::LocaleGuard guard("es_MX.UTF-8");
  // clang-format off
  const char* const kTexts[] = {
      "", "  ", "7", "7/3", "marzo", "marzo 2012", "31/02/2012", "29/02/2011", "13/13/2012", "0/3/2012", "7/0/2012",
      "32/1/2012", "7/3/10000", "7/3/99999999999", "7/3/2012/1", "7 de marz de 2012", "7 marzo abril", "7 8 marzo 2012",
      "-7/3/2012", "7/3/2012-", "7//3/2012", "7/-3/2012", "7:3:2012", "24:00", "10:60", "10:42:60", "10:42:07:00",
      "10:", ":42", "10:-0", "+10:42", "10:042", "13:00 PM", "0:30 AM", "AM", "PM 10:42", "10:42 XM", "7/3/2012 25:00",
      "x 10:42", "7/3/2012T", "1e5", "7/3/2012\t", "７/3/2012", "7/3/20\xFF", "mañana",
  };
  // clang-format on
  for (const char* text : kTexts) EXPECT_EQ(parseDate(text), std::nullopt) << text;
  EXPECT_EQ(parseDate(std::string("7/3/2012\0", 9)), std::nullopt);
}

TEST(ParseDate, ReadsEveryMonthAndEveryShortDateBack) {
  for (const char* locale : {"es_MX.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8", "en_US.UTF-8", "C"}) {
    const test::LocaleGuard guard(locale);
    for (int month = 1; month <= 12; ++month) {
      const Date moment = Date::fromCivil(1987, month, 28, {23, 59, month});
      EXPECT_EQ(parseDate(dateText(moment)), moment) << dateText(moment);
      for (const bool isShort : {true, false}) {
        const std::string text = "28-" + monthName(month, isShort) + "-1987";
        EXPECT_EQ(parseDate(text), Date::fromCivil(1987, month, 28)) << text;
      }
    }
  }
}

}  // namespace
}  // namespace qvn
