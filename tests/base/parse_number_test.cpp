#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "qvn/base/number_text.h"
#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

void expectReadings(const char* locale, std::initializer_list<std::pair<std::string_view, double>> rows) {
  const test::LocaleGuard guard(locale);
  for (const auto& row : rows) EXPECT_EQ(parseNumber(row.first), row.second) << locale << ": " << row.first;
}

void expectRejected(const char* locale, std::initializer_list<std::string_view> texts) {
  const test::LocaleGuard guard(locale);
  for (const std::string_view text : texts) EXPECT_EQ(parseNumber(text), std::nullopt) << locale << ": " << text;
}

TEST(ParseNumber, AcceptsEveryFormByRegionalConventions) {
  // Where separators stand among the digits is not looked at.
  expectReadings("C", {{"1,234.5", 1234.5}, {"1,,2", 12}, {"12,34,", 1234}, {"1,.5", 1.5}});
  expectReadings("es_ES.UTF-8", {{"1.234,5", 1234.5}, {"1.5", 15}, {",5", 0.5}, {"2,5E2", 250}});
  expectReadings("de_DE.UTF-8", {{"1.234.567,25", 1234567.25}});
  expectReadings("es_MX.UTF-8", {{"1,234.5", 1234.5}, {"0.5", 0.5}});
  // clang-format off
  expectReadings("C", {
      {"0", 0}, {"-12", -12}, {"+12", 12}, {"  7 ", 7}, {"0005", 5}, {".5", 0.5}, {"-.5", -0.5}, {"5.", 5},
      {"1e5", 1e5}, {"1E+05", 1e5}, {"1d5", 1e5}, {"1D-5", 1e-5}, {"0e99999", 0}, {"0.000e99999999999999999999", 0},
      {"9007199254740993", 9007199254740992.0}, {"1.7976931348623157e308", 1.7976931348623157e308},
      {"4.9e-324", 5e-324},
  });
  // clang-format on
}

TEST(ParseNumber, RejectsOtherText) {
  // clang-format off
  const std::initializer_list<std::string_view> kTexts = {
      "", "   ", ".", ",", "-", "+", "-.", "--1", "+-1", "-+1", "- 1", "1-", "1 2", "1e", "1e+", "1e-", "1e1.5",
      "1e1e1", "e5", ".e5", "1f5", "1e400", "-1e309", "1e99999999999999999999", "&H10", "0x10", "0x1p4", "inf", "INF",
      "nan", "1_000", "$1", "1%", "(1)", "\t1", "1\n", "1\xC2\xA0", "١", "½", "1\xFF", std::string_view("1\0", 2),
  };
  // clang-format on
  expectRejected("C", kTexts);
  expectRejected("es_ES.UTF-8", kTexts);
  expectRejected("C", {"1..2", "1.2.3", "1.234,5", ",5", "1.5,0", "-,5"});
  expectRejected("es_ES.UTF-8", {"1,,2", "1,2,3", "1,234.5", ".5", "1,5.0"});
}

// from_chars names both ends of the range alike, and strtod reads the regional separator, not ".".
TEST(ParseNumber, TellsTooSmallFromTooLargeInEveryLocale) {
  const std::string zeros(400, '0');
  for (const char* locale : {"C", "es_MX.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8"}) {
    const test::LocaleGuard guard(locale);
    const std::string point = decimalSeparator();
    // clang-format off
    const std::string kSmall[] = {
        "1e-400", "1" + point + "5e-400", "-12345" + point + "5e-99999999999999999999",
        "0" + point + zeros + "1", "1" + zeros + "e-900", "0" + point + zeros + "1e2"};
    const std::string kLarge[] = {
        "0" + point + "1e400", "0" + point + zeros + "1e900", "1" + zeros + "e-2", "1" + zeros + point + "5"};
    // clang-format on
    for (const std::string& text : kSmall) EXPECT_EQ(parseNumber(text), 0) << locale << ": " << text;
    for (const std::string& text : kLarge) EXPECT_EQ(parseNumber(text), std::nullopt) << locale << ": " << text;
    EXPECT_EQ(parseNumber("0" + point + zeros + "1e401"), 1);
    EXPECT_EQ(parseNumber("1" + zeros + "e-400"), 1);
  }
}

TEST(ParseNumber, TakesTimeLinearInTheText) {
  const std::string digits(1U << 20U, '7');
  const std::clock_t start = std::clock();
  EXPECT_EQ(parseNumber("0." + digits), 7.0 / 9);
  EXPECT_EQ(parseNumber(digits), std::nullopt);
  EXPECT_EQ(parseNumber("1" + std::string(1U << 20U, ',')), 1);
  EXPECT_EQ(parseNumber("1" + std::string(1U << 20U, ' ')), 1);
  // Milliseconds; quadratic work would take minutes.
  EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

TEST(PlainNumber, WritesWhatItReadsWithAPoint) {
  const test::LocaleGuard guard("es_ES.UTF-8");
  EXPECT_EQ(plainNumber(" -1.234,50D-03 ", regionalSettings()), "-1234.50e-03");
  EXPECT_EQ(plainNumber("+5", regionalSettings()), "5");
  EXPECT_EQ(plainNumber("5e", regionalSettings()), std::nullopt);
}

}  // namespace
}  // namespace qvn
