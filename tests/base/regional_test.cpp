#include "qvn/base/regional.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

TEST(Regional, ReadsTheLocaleInForce) {
  // clang-format off
  struct Row {
    const char *locale, *decimal, *thousands, *date; DateOrder order; bool usesTwelveHours, isSpanish;
    const char *march, *mar, *wednesday, *wed;
  };
  // clang-format on
  using enum DateOrder;
  static constexpr Row kRows[] = {
      {"es_MX.UTF-8", ".", ",", "/", DayMonthYear, false, true, "marzo", "mar", "miércoles", "mié"},
      {"es_ES.UTF-8", ",", ".", "/", DayMonthYear, false, true, "marzo", "mar", "miércoles", "mié"},
      {"de_DE.UTF-8", ",", ".", ".", DayMonthYear, false, false, "März", "Mär", "Mittwoch", "Mi"},
      {"en_US.UTF-8", ".", ",", "/", MonthDayYear, true, false, "March", "Mar", "Wednesday", "Wed"},
      {"C", ".", ",", "/", MonthDayYear, false, false, "March", "Mar", "Wednesday", "Wed"}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.locale);
    const test::LocaleGuard guard(row.locale);
    const RegionalSettings settings = regionalSettings();
    EXPECT_EQ(decimalSeparator(), row.decimal);
    EXPECT_EQ(settings.decimalSeparator, row.decimal);
    EXPECT_EQ(settings.thousandsSeparator, row.thousands);
    EXPECT_EQ(settings.dateSeparator, row.date);
    EXPECT_EQ(settings.dateOrder, row.order);
    EXPECT_EQ(settings.usesTwelveHours, row.usesTwelveHours);
    EXPECT_EQ(settings.isSpanish, row.isSpanish);
    EXPECT_EQ(monthName(3, false), row.march);
    EXPECT_EQ(monthName(3, true), row.mar);
    EXPECT_EQ(weekdayName(4, false), row.wednesday);
    EXPECT_EQ(weekdayName(4, true), row.wed);
  }
}

TEST(Regional, NamesGoFromJanuaryAndSunday) {
  const test::LocaleGuard guard("es_MX.UTF-8");
  EXPECT_EQ(monthName(1, false), "enero");
  EXPECT_EQ(monthName(12, true), "dic");
  EXPECT_EQ(weekdayName(1, false), "domingo");
  EXPECT_EQ(weekdayName(7, false), "sábado");
}

TEST(Regional, KnowsTheCurrency) {
  // clang-format off
  const std::pair<const char*, std::tuple<std::string, bool, bool, int>> rows[] = {
      {"es_MX.UTF-8", {"$", true, true, 2}}, {"es_ES.UTF-8", {"€", false, true, 2}},
      {"en_US.UTF-8", {"$", true, false, 2}}, {"C", {"", true, false, 2}}};
  // clang-format on
  for (const auto& row : rows) {
    const test::LocaleGuard guard(row.first);
    const CurrencyStyle style = currencyStyle();
    EXPECT_EQ(std::tie(style.symbol, style.symbolPrecedes, style.spaceBetween, style.decimals), row.second)
        << row.first;
  }
}

}  // namespace
}  // namespace qvn
