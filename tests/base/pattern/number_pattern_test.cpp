#include <string>

#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(NumberPattern, ShowsPlacesAndZeros) {
  expectFormatted("C", {
                           {"required decimals are filled", 12.5, "0.00", "12.50"},
                           {"optional decimals are not", 12.5, "0.##", "12.5"},
                           {"the point stays without decimals behind it", 12, "0.##", "12."},
                           {"a required decimal behind an optional one", 1.5, "0.#0", "1.50"},
                           {"an optional decimal behind a required one", 1.5, "0.0#", "1.5"},
                           {"no leading zero for #", 0.5, "#.##", ".5"},
                           {"zero has no digit for #", 0, "#", ""},
                           {"but keeps the point", 0, "#.##", "."},
                           {"leading zeros", 7, "0000", "0007"},
                           {"# behind 0 is required too", 7, "0##", "007"},
                           {"# before 0 is not", 7, "##0", "7"},
                           {"more digits than places", 1234567, "00", "1234567"},
                           {"no place before the point at all", 12.5, ".00", "12.50"},
                           {"and none for a value below one", 0.5, ".00", ".50"},
                       });
}

TEST(NumberPattern, SpreadsDigitsFromTheRightBetweenLiterals) {
  expectFormatted("C", {
                           {"telephone mask", 5551234, "000-0000", "555-1234"},
                           {"area code in parentheses", 5551234567.0, "(###) ###-####", "(555) 123-4567"},
                           {"too few digits", 1234567, "(###) ###-####", "() 123-4567"},
                           {"digits left over go to the first place", 5551234567.0, "(#) ###-####", "(555) 123-4567"},
                           {"literal between the decimals", 1.25, "0.0 0", "1.2 5"},
                           {"grouping counts digits, not literals", 1234567, "#,##0 x 00", "1,234,5 x 67"},
                       });
}

TEST(NumberPattern, GroupsAndScalesByCommas) {
  expectFormatted("C", {
                           {"comma between places", 1234567.891, "#,##0.00", "1,234,567.89"},
                           {"one group exactly", 999, "#,##0", "999"},
                           {"the first separator", 1000, "#,##0", "1,000"},
                           {"wherever it stands", 1234567, "###,###,###", "1,234,567"},
                           {"zero under optional places alone", 0, "###,###,###", ""},
                           {"leading zeros are grouped", 5, "000,000", "000,005"},
                           {"two commas between places group only", 1234567, "0,,0", "1,234,567"},
                           {"comma before the point divides", 1234567, "0,.00", "1234.57"},
                           {"two at the end divide twice", 100000000, "##0,,", "100"},
                           {"below a million", 123456, "##0,,", "0"},
                           {"behind the decimals too", 1234567, "0.0,,", "1.2"},
                           {"grouping and dividing", 1234567890, "#,##0,", "1,234,568"},
                           {"comma before the first place means nothing", 1234, ",0", "1234"},
                           {"comma between decimals means nothing", 0.25, "0.0,0", "0.25"},
                       });
}

TEST(NumberPattern, MultipliesForEachPercent) {
  expectFormatted("C", {
                           {"behind", 0.125, "0.0%", "12.5%"},
                           {"before", 0.125, "% 0", "% 13"},
                           {"two of them", 0.125, "0%%", "1250%%"},
                           {"escaped, it is text", 0.5, "0.0\\%", "0.5%"},
                           {"and a scaling comma", 5, "0.0,%", "0.5%"},
                       });
}

TEST(NumberPattern, RoundsTheDecimalsThatTheUserSees) {
  expectFormatted("C", {
                           {"half away from zero", 0.125, "0.00", "0.13"},
                           {"also below zero", -0.125, "0.00", "-0.13"},
                           {"the Double lies below 1.005", 1.005, "0.00", "1.01"},
                           {"below a half", 1.00499, "0.00", "1.00"},
                           {"carry through all digits", 9.995, "0.00", "10.00"},
                           {"carry out of nothing", 0.5, "0", "1"},
                           {"carry into a new group", 999.995, "#,##0.00", "1,000.00"},
                           {"noise in the 17th digit", 0.1 + 0.2, "0.################", "0.3"},
                           {"a tiny number", 1e-300, "0.00", "0.00"},
                           {"rounds after scaling", 1499.5, "0,", "1"},
                       });
}

TEST(NumberPattern, PrintsEveryDigitOfLargeAndSmallNumbers) {
  const test::LocaleGuard guard("C");
  EXPECT_EQ(formatValue(1e300, "0"), "1" + std::string(300, '0'));
  EXPECT_EQ(formatValue(1e-300, "0." + std::string(300, '0')), "0." + std::string(299, '0') + "1");
  EXPECT_EQ(formatValue(1.7976931348623157e308, "0").substr(0, 18), "179769313486232000");
}

TEST(NumberPattern, ChoosesTheSectionBySign) {
  expectFormatted("C", {
                           {"minus before everything", -5, "$0.00", "-$5.00"},
                           {"positive", 5, "0;(0)", "5"},
                           {"negative, without a sign", -5, "0;(0)", "(5)"},
                           {"zero takes the first of two", 0, "0;(0)", "0"},
                           {"or its own", 0, "0;(0);\\z", "z"},
                           {"empty second section", -4, "$0;;\\z", "-$4"},
                           {"empty third section", 0, "0.0;(0);", "0.0"},
                           {"empty first section", 4, ";(0)", ""},
                           {"words by sign", -1, ";\\S\\í;\\N\\o", "Sí"},
                           {"fourth section", Null{}, "0;0;0;\"nulo\"", "nulo"},
                           {"no fourth section", Null{}, "0;0;0", ""},
                           {"a fifth section is not used", Null{}, "0;;;\\z;\\x", "z"},
                           {"semicolon in quotes", 1, "0\";\"", "1;"},
                           {"semicolon escaped", 1, "0\\;", "1;"},
                       });
}

TEST(NumberPattern, ShowsWhatRoundsToZeroAsZero) {
  expectFormatted("C", {
                           {"no sign", -0.001, "0.00", "0.00"},
                           {"not in parentheses", -0.001, "0.00;(0.00)", "0.00"},
                           {"the zero section", -0.001, "0.00;(0.00);\\-", "-"},
                           {"from above as well", 0.001, "0.00;(0.00);\\-", "-"},
                           {"scaled away", -400, "0,", "0"},
                           {"minus zero", -0.0, "0.0", "0.0"},
                           {"a section without places shows the sign all the same", -0.001, "\\x", "-x"},
                       });
}

TEST(NumberPattern, PassesLiteralsThrough) {
  expectFormatted("C", {
                           {"signs and currency", 5, "-+$():0 ", "-+$():5 "},
                           {"quoted places", 5, "\"0#\"0", "0#5"},
                           {"empty quotes", 5, "\"\"0", "5"},
                           {"letters behind a place", 5, "0 dias", "5 dias"},
                           {"text placeholders behind a place", 5, "0 @&<>!", "5 @&<>!"},
                           {"slash and colon are not those of dates", 5, "0/:", "5/:"},
                           {"several bytes escaped", 5, "\\€0 ñ", "€5 ñ"},
                           {"no place at all", 5, "kg", "kg"},
                           {"comma and point without places", 5, "\\a, b.", "a, b."},
                       });
}

TEST(NumberPattern, PrintsRegionalSeparators) {
  expectFormatted("es_ES.UTF-8", {{"comma for decimals", -1234567.5, "#,##0.00", "-1.234.567,50"},
                                  {"a second point is a literal", 1.25, "0.0.0", "1,2.5"}});
  expectFormatted("de_DE.UTF-8", {{"literal points stay", 1234.5, "0.0\\.\".\"", "1234,5.."}});
  expectFormatted("es_MX.UTF-8",
                  {{"a comma where the locale names a narrow blank", 1234567.5, "#,##0.0", "1,234,567.5"}});
  expectFormatted("en_US.UTF-8", {{"points for decimals", 1234.5, "#,##0.00", "1,234.50"}});
}

}  // namespace
}  // namespace qvn
