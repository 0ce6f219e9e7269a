#include <gtest/gtest.h>

#include "qvn/base/variant.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

void expectTexts(const char* locale, std::initializer_list<std::pair<Variant, std::string_view>> rows) {
  const test::LocaleGuard guard(locale);
  for (const auto& row : rows) EXPECT_EQ(row.first.toText(), row.second) << locale;
}

TEST(VariantToText, WritesTheShortestTextThatReadsBack) {
  // clang-format off
  expectTexts("C", {
      {0.1 + 0.2, "0.30000000000000004"}, {-0.0, "0"}, {5e-324, "5E-324"},
      {1.7976931348623157e308, "1.7976931348623157E+308"}, {0.1F, "0.1"}, {-3.4028235e38F, "-3.4028235E+38"},
      // The largest and the smallest plain powers of ten, and what is beyond them.
      {1e14, "100000000000000"}, {1e15, "1E+15"}, {9007199254740993.0, "9.007199254740992E+15"}, {1e22, "1E+22"},
      {1e-15, "0.000000000000001"}, {1.25e-16, "1.25E-16"},
  });
  // clang-format on
}

TEST(VariantToText, WritesEveryType) {
  // clang-format off
  expectTexts("es_ES.UTF-8", {
      {Empty{}, ""}, {true, "True"}, {false, "False"}, {std::uint8_t{255}, "255"}, {-2147483647, "-2147483647"},
      {1234.5, "1234,5"}, {1.5e20, "1,5E+20"}, {Currency::fromScaled(-105000), "-10,5"},
      {*Decimal::fromText("12.300"), "12,3"}, {Date(40975), "07/03/2012"}, {Date(0.25), "06:00:00"}, {" 1.50 ", " 1.50 "},
  });
  // clang-format on
  expectTexts("en_US.UTF-8", {{Date::fromCivil(2012, 3, 7, {22, 42, 7}), "03/07/2012 10:42:07 PM"}, {Empty{}, ""}});
  EXPECT_EQ(test::errorNumber([] { return Variant(Null{}).toText(); }), 94);
  EXPECT_EQ(test::errorNumber([] { return Variant(Array{}).toText(); }), 13);
  EXPECT_EQ(test::errorNumber([] { return Variant(ObjectPtr{}).toText(); }), 13);
}

TEST(VariantConcatenate, TakesNullForNoText) {
  EXPECT_EQ(concatenate("a", Null{}), "a");
  EXPECT_EQ(concatenate(Null{}, 5), "5");
  EXPECT_EQ(concatenate(1, 2), "12");
  EXPECT_EQ(test::errorNumber([] { concatenate("a", Array{}); }), 13);
}

}  // namespace
}  // namespace qvn
