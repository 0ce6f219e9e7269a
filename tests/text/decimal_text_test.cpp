#include "qvn/text/decimal_text.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

constexpr const char* kLocales[] = {"C", "es_MX.UTF-8", "en_US.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8"};

TEST(SeparadorDecimal, FollowsTheLocaleAtEachCall) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"C", "."}, {"es_ES.UTF-8", ","}, {"es_MX.UTF-8", "."}, {"de_DE.UTF-8", ","}, {"en_US.UTF-8", "."}};
  for (const auto& row : kRows) {
    const test::LocaleGuard locale(row.first);
    EXPECT_EQ(SeparadorDecimal(), row.second) << row.first;
  }
}

TEST(FormatoDecimal, WritesAPointThatFnReadsBackEverywhere) {
  for (const char* name : kLocales) {
    SCOPED_TRACE(name);
    const test::LocaleGuard locale(name);
    EXPECT_EQ(FormatoDecimal(1234.5), "1234.5");
    EXPECT_EQ(FormatoDecimal(-1234567890123.25), "-1234567890123.25");
    EXPECT_EQ(FormatoDecimal(0.3 - 0.2 - 0.1), "0");
    EXPECT_EQ(FormatoDecimal(1.5e20), "1.5E+20");
    EXPECT_EQ(Fn("1234.5"), 1234.5);
    EXPECT_EQ(Fn(" -0.5 "), -0.5);
    for (const char* text : {"abc", "", "1.2.3"}) EXPECT_EQ(Fn(text), 0) << text;
    for (const double value : {0.0, 1.0 / 3, -99999999.99, 1e-7, 123456789012345.0, 1e300, -2.5e-15}) {
      const std::string text = FormatoDecimal(value);
      EXPECT_EQ(FormatoDecimal(Fn(text)), text);
    }
  }
}

TEST(Val2, ReadsTextByRegionalConventions) {
  struct Row {
    std::string_view text;
    double atPoint, atComma;
  };
  static constexpr Row kRows[] = {{"1.5", 1.5, 15},       {"1,5", 15, 1.5},   {"1,234.5", 1234.5, 0},
                                  {"1.234,5", 0, 1234.5}, {"1.5,5", 0, 15.5}, {"1.5.5", 0, 155}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.text);
    const test::LocaleGuard comma("de_DE.UTF-8");
    EXPECT_EQ(Val2(row.text), row.atComma);
    const test::LocaleGuard point("en_US.UTF-8");
    EXPECT_EQ(Val2(row.text), row.atPoint);
  }
}

TEST(Val2, ReadsNumbersAndAbsorbsEveryFailure) {
  // clang-format off
  static const std::pair<Variant, double> kRows[] = {
      {true, -1}, {Date(1.25), 1.25}, {*Decimal::fromText("12.50"), 12.5}, {Currency::fromScaled(-5000), -0.5},
      {std::int64_t{1} << 40, 1099511627776.0}, {"25d-1", 2.5},
      {Null{}, 0}, {Empty{}, 0}, {Array{}, 0}, {std::make_shared<Object>(), 0}, {ObjectPtr(), 0},
      {"", 0}, {"   ", 0}, {"12x", 0}, {"1E309", 0}, {"True", 0}, {"1\xB1", 0},
  };
  // clang-format on
  for (const char* name : kLocales) {
    const test::LocaleGuard locale(name);
    for (const auto& row : kRows) EXPECT_EQ(Val2(row.first), row.second) << name << ", row " << &row - kRows;
  }
}

}  // namespace
}  // namespace qvn::text
