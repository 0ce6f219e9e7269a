#include <gtest/gtest.h>

#include "qvn/base/variant.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

struct Row {
  const char* why;
  Variant value;
  std::string_view expected;
};

void expectTexts(const char* locale, std::initializer_list<Row> rows) {
  const test::LocaleGuard guard(locale);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(row.value.toText(), row.expected) << locale;
  }
}

TEST(VariantToText, WritesTheShortestTextThatReadsBack) {
  expectTexts("C", {{"seventeen digits", 0.1 + 0.2, "0.30000000000000004"},
                    {"the last plain power of ten", 1e14, "100000000000000"},
                    {"the first with an exponent", 1e15, "1E+15"},
                    {"a whole number of sixteen digits", 9007199254740993.0, "9.007199254740992E+15"},
                    {"1e22", 1e22, "1E+22"},
                    {"the smallest plain power of ten", 1e-15, "0.000000000000001"},
                    {"below it", 1.25e-16, "1.25E-16"},
                    {"the smallest Double", 5e-324, "5E-324"},
                    {"the largest Double", 1.7976931348623157e308, "1.7976931348623157E+308"},
                    {"minus zero", -0.0, "0"},
                    {"a Single's own digits", 0.1F, "0.1"},
                    {"a Single with an exponent", -3.4028235e38F, "-3.4028235E+38"}});
}

TEST(VariantToText, WritesEveryType) {
  expectTexts("es_ES.UTF-8", {{"Empty", Empty{}, ""},
                              {"True", true, "True"},
                              {"False", false, "False"},
                              {"Byte", std::uint8_t{255}, "255"},
                              {"no thousands separators", -2147483647, "-2147483647"},
                              {"Double", 1234.5, "1234,5"},
                              {"Double with an exponent", 1.5e20, "1,5E+20"},
                              {"Currency", Currency::fromScaled(-105000), "-10,5"},
                              {"Decimal without trailing zeros", *Decimal::fromText("12.300"), "12,3"},
                              {"day", Date::fromCivil(2012, 3, 7), "07/03/2012"},
                              {"time", Date(0.25), "06:00:00"},
                              {"text as it stands", " 1.50 ", " 1.50 "}});
  expectTexts("en_US.UTF-8", {{"both", Date::fromCivil(2012, 3, 7, {22, 42, 7}), "03/07/2012 10:42:07 PM"}});
  EXPECT_EQ(test::errorNumber([] { return Variant(Null{}).toText(); }), 94);
  EXPECT_EQ(test::errorNumber([] { return Variant(Array{}).toText(); }), 13);
  EXPECT_EQ(test::errorNumber([] { return Variant(ObjectPtr{}).toText(); }), 13);
}

TEST(VariantConcatenate, TakesNullForNoText) {
  EXPECT_EQ(concatenate("a", Null{}), "a");
  EXPECT_EQ(concatenate(Null{}, 5), "5");
  EXPECT_EQ(concatenate(1, 2), "12");
  EXPECT_EQ(concatenate(Empty{}, true), "True");
  EXPECT_EQ(test::errorNumber([] { concatenate("a", Array{}); }), 13);
}

}  // namespace
}  // namespace qvn
