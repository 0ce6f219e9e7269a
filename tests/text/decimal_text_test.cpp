#include "qvn/text/decimal_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

constexpr const char* kPointLocales[] = {"C", "es_MX.UTF-8", "en_US.UTF-8"};
constexpr const char* kCommaLocales[] = {"es_ES.UTF-8", "de_DE.UTF-8"};
constexpr const char* kLocales[] = {"C", "es_MX.UTF-8", "en_US.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8"};

TEST(SeparadorDecimal, FollowsTheLocaleAtEachCall) {
  for (const char* name : kCommaLocales) {
    const test::LocaleGuard comma(name);
    EXPECT_EQ(SeparadorDecimal(), ",") << name;
    for (const char* inner : kPointLocales) {
      const test::LocaleGuard point(inner);
      EXPECT_EQ(SeparadorDecimal(), ".") << inner;
    }
    EXPECT_EQ(SeparadorDecimal(), ",") << name;
  }
}

TEST(FormatoDecimal, WritesAPointEverywhere) {
  struct Row {
    const char* why;
    double value;
    std::string_view expected;
  };
  static const Row kRows[] = {
      {"a decimal", 1234.5, "1234.5"},
      {"no thousands separators", 1234567890123.0, "1234567890123"},
      {"below one", 0.25, "0.25"},
      {"negative", -0.01, "-0.01"},
      {"minus zero", -0.0, "0"},
      {"what is left of 0.3 - 0.2 - 0.1", 0.3 - 0.2 - 0.1, "0"},
      {"fifteen digits", 0.1 + 0.2, "0.3"},
      {"an exponent with decimals", 1.5e20, "1.5E+20"},
      {"infinity", -std::numeric_limits<double>::infinity(), "-INF"},
  };
  for (const char* name : kLocales) {
    const test::LocaleGuard locale(name);
    for (const Row& row : kRows) {
      SCOPED_TRACE(testing::Message() << name << ": " << row.why);
      EXPECT_EQ(FormatoDecimal(row.value), row.expected);
    }
  }
}

TEST(Fn, ReadsBackWhatFormatoDecimalWrote) {
  for (const char* name : kLocales) {
    SCOPED_TRACE(name);
    const test::LocaleGuard locale(name);
    EXPECT_EQ(Fn("1234.5"), 1234.5);
    EXPECT_EQ(Fn(" -0.5 "), -0.5);
    EXPECT_EQ(Fn("1.5E+20"), 1.5e20);
    EXPECT_EQ(Fn("abc"), 0);
    EXPECT_EQ(Fn(""), 0);
    EXPECT_EQ(Fn("1.2.3"), 0);
    for (const double value : {0.0, 1.0 / 3, -99999999.99, 1e-7, 123456789012345.0, 1e300, -2.5e-15}) {
      const std::string text = FormatoDecimal(value);
      EXPECT_EQ(FormatoDecimal(Fn(text)), text);
    }
  }
}

struct Reading {
  const char* why;
  Variant value;
  double expected;
};

TEST(Val2, ReadsTextByRegionalConventions) {
  struct Row {
    const char* why;
    std::string_view text;
    double atPoint;
    double atComma;
  };
  static const Row kRows[] = {
      {"a point", "1.5", 1.5, 15},
      {"a comma", "1,5", 15, 1.5},
      {"thousands and decimals", "1,234.5", 1234.5, 0},
      {"the other way round", "1.234,5", 0, 1234.5},
      {"a comma after a point", "1.5,5", 0, 15.5},
      {"two decimal points", "1.5.5", 0, 155},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    {
      const test::LocaleGuard locale("en_US.UTF-8");
      EXPECT_EQ(Val2(row.text), row.atPoint);
    }
    const test::LocaleGuard locale("de_DE.UTF-8");
    EXPECT_EQ(Val2(row.text), row.atComma);
  }
}

TEST(Val2, ReadsTheSameEverywhere) {
  static const Reading kRows[] = {
      {"blanks around", "  12 ", 12},
      {"a sign", "-12", -12},
      {"a plus sign", "+12", 12},
      {"exponents", "1E3", 1000},
      {"the other exponent letter", "25d-1", 2.5},
      {"True", true, -1},
      {"a Date", Date(1.25), 1.25},
      {"a Decimal", *Decimal::fromText("12.50"), 12.5},
      {"a Currency", Currency::fromScaled(-5000), -0.5},
      {"a 64-bit number", std::int64_t{1} << 40, 1099511627776.0},
      {"underflow", "1E-400", 0},
  };
  for (const char* name : kLocales) {
    const test::LocaleGuard locale(name);
    for (const Reading& row : kRows) {
      SCOPED_TRACE(testing::Message() << name << ": " << row.why);
      EXPECT_EQ(Val2(row.value), row.expected);
    }
  }
}

TEST(Val2, IsZeroForWhatIsNoNumber) {
  static const Reading kRows[] = {
      {"Null", Null{}, 0},
      {"Empty", Empty{}, 0},
      {"an array", Array{}, 0},
      {"an object", std::make_shared<Object>(), 0},
      {"no object", ObjectPtr(), 0},
      {"an empty text", "", 0},
      {"blanks", "   ", 0},
      {"words", "abc", 0},
      {"something left over", "12x", 0},
      {"digits after a blank", "1 2", 0},
      {"two signs", "--1", 0},
      {"a sign alone", "-", 0},
      {"a sign behind", "1-", 0},
      {"a tab is no blank", "\t1", 0},
      {"a no-break space is no blank",
       "\u00A0"
       "1",
       0},
      {"an exponent without digits", "1E", 0},
      {"an exponent alone", "E5", 0},
      {"too large", "1E309", 0},
      {"far too large", "-1E99999999999999999999", 0},
      {"infinity by name", "inf", 0},
      {"not a number by name", "NaN", 0},
      {"hexadecimal", "0x10", 0},
      {"a truth value as text", "True", 0},
      {"full-width digits", "１２", 0},
      {"a stray byte", "1\xB1", 0},
      {"a NUL behind", std::string("1\0", 2), 0},
  };
  for (const char* name : kLocales) {
    const test::LocaleGuard locale(name);
    for (const Reading& row : kRows) {
      SCOPED_TRACE(testing::Message() << name << ": " << row.why);
      EXPECT_EQ(Val2(row.value), row.expected);
    }
  }
}

}  // namespace
}  // namespace qvn::text
