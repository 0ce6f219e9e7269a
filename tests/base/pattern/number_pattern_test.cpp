#include <string>

#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

// The point stays without decimals behind it; "#" is as good as "0" between zeros, and shows no zero elsewhere.
TEST(NumberPattern, ShowsPlacesAndZeros) {
  const test::PatternRows rows = {
      {12.5, "0.00", "12.50"}, {12.5, "0.##", "12.5"}, {12, "0.##", "12."}, {1.5, "0.#0", "1.50"},
      {1.5, "0.0#", "1.5"},    {0.5, "#.##", ".5"},    {0, "#", ""},        {0, "#.##", "."},
      {7, "0000", "0007"},     {7, "0##", "007"},      {7, "##0", "7"},     {1234567, "00", "1234567"},
      {12.5, ".00", "12.50"},  {0.5, ".00", ".50"}};
  expectFormatted("C", rows);
}

// Digits left over go to the first place; grouping counts digits, not literals.
TEST(NumberPattern, SpreadsDigitsFromTheRightBetweenLiterals) {
  const test::PatternRows rows = {{5551234, "000-0000", "555-1234"},
                                  {1.25, "0.0 0", "1.2 5"},
                                  {1234567, "(###) ###-####", "() 123-4567"},
                                  {5551234567.0, "(#) ###-####", "(555) 123-4567"},
                                  {5551234567.0, "(###) ###-####", "(555) 123-4567"},
                                  {1234567, "#,##0 x 00", "1,234,5 x 67"}};
  expectFormatted("C", rows);
}

// A comma between places groups, behind the last place it divides, elsewhere it means nothing.
TEST(NumberPattern, GroupsAndScales) {
  // clang-format off
  const test::PatternRows rows = {
      {1234567.891, "#,##0.00", "1,234,567.89"}, {1234567, "###,###,###", "1,234,567"},
      {1234567890, "#,##0,", "1,234,568"}, {999, "#,##0", "999"}, {0, "###,###,###", ""}, {5, "000,000", "000,005"},
      {1234567, "0,,0", "1,234,567"}, {1234567, "0,.00", "1234.57"}, {100000000, "##0,,", "100"},
      {123456, "##0,,", "0"}, {1234567, "0.0,,", "1.2"}, {1234, ",0", "1234"}, {0.25, "0.0,0", "0.25"},
      {0.125, "0.0%", "12.5%"}, {0.125, "% 0", "% 13"}, {0.125, "0%%", "1250%%"}, {0.5, "0.0\\%", "0.5%"},
      {5, "0.0,%", "0.5%"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

// Half away from zero, by the fifteen digits that the user sees: the Double of 1.005 lies below it.
TEST(NumberPattern, RoundsTheDecimalsThatTheUserSees) {
  const test::PatternRows rows = {{0.125, "0.00", "0.13"},           {-0.125, "0.00", "-0.13"},
                                  {1.005, "0.00", "1.01"},           {1.00499, "0.00", "1.00"},
                                  {9.995, "0.00", "10.00"},          {0.5, "0", "1"},
                                  {999.995, "#,##0.00", "1,000.00"}, {0.1 + 0.2, "0.################", "0.3"},
                                  {1e-300, "0.00", "0.00"},          {1499.5, "0,", "1"}};
  expectFormatted("C", rows);
}

TEST(NumberPattern, PrintsEveryDigitOfLargeAndSmallNumbers) {
  const test::LocaleGuard guard("C");
  EXPECT_EQ(formatValue(1e300, "0"), "1" + std::string(300, '0'));
  EXPECT_EQ(formatValue(1e-300, "0." + std::string(300, '0')), "0." + std::string(299, '0') + "1");
  EXPECT_EQ(formatValue(1.7976931348623157e308, "0").substr(0, 18), "179769313486232000");
}

// What rounds to zero has no sign and takes the section of zero; a section without places shows the sign all the same.
TEST(NumberPattern, ChoosesTheSectionBySign) {
  // clang-format off
  const test::PatternRows rows = {
      {-5, "$0.00", "-$5.00"}, {5, "0;(0)", "5"}, {-5, "0;(0)", "(5)"}, {0, "0;(0)", "0"}, {0, "0;(0);\\z", "z"},
      {-4, "$0;;\\z", "-$4"}, {0, "0.0;(0);", "0.0"}, {4, ";(0)", ""}, {-1, ";\\S\\í;\\N\\o", "Sí"},
      {Null{}, "0;0;0;\"nulo\"", "nulo"}, {Null{}, "0;0;0", ""}, {Null{}, "0;;;\\z;\\x", "z"}, {1, "0\";\"", "1;"},
      {1, "0\\;", "1;"}, {-0.001, "0.00", "0.00"}, {-0.001, "0.00;(0.00)", "0.00"}, {-0.001, "0.00;(0.00);\\-", "-"},
      {0.001, "0.00;(0.00);\\-", "-"}, {-400, "0,", "0"}, {-0.0, "0.0", "0.0"}, {-0.001, "\\x", "-x"},
  };
  // clang-format on
  expectFormatted("C", rows);
}

TEST(NumberPattern, PassesLiteralsThrough) {
  const test::PatternPairs pairs = {{"-+$():0 ", "-+$():5 "}, {"\"0#\"0", "0#5"},     {"\"\"0", "5"},
                                    {"0 dias", "5 dias"},     {"0 @&<>!", "5 @&<>!"}, {"0/:", "5/:"},
                                    {"\\€0 ñ", "€5 ñ"},       {"kg", "kg"},           {"\\a, b.", "a, b."}};
  expectFormatted("C", 5, pairs);
}

// A second point is a literal; the thousands of es_MX are a narrow blank, for which a comma stands.
TEST(NumberPattern, PrintsRegionalSeparators) {
  expectFormatted("es_ES.UTF-8", {{-1234567.5, "#,##0.00", "-1.234.567,50"}, {1.25, "0.0.0", "1,2.5"}});
  expectFormatted("de_DE.UTF-8", {{1234.5, "0.0\\.\".\"", "1234,5.."}});
  expectFormatted("es_MX.UTF-8", {{1234567.5, "#,##0.0", "1,234,567.5"}});
}

}  // namespace
}  // namespace qvn
