#include "qvn/text/padding.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

TEST(Padding, FillsToAWidthInCharacters) {
  struct Row {
    const char* why;
    Variant str;
    Variant width;
    std::string_view right;
    std::string_view left;
  };
  static const Row kRows[] = {
      {"shorter", "7", 3, "7  ", "  7"},
      {"as long", "ABC", 3, "ABC", "ABC"},
      {"longer is not cut", "ABC", 2, "ABC", "ABC"},
      {"a negative width", "ABC", -5, "ABC", "ABC"},
      {"an empty text", "", 2, "  ", "  "},
      {"letters of two bytes", "ñandú", 6, "ñandú ", " ñandú"},
      {"a stray byte is one character", "\xF1", 2, "\xF1 ", " \xF1"},
      {"a number", 7, 3, "7  ", "  7"},
      {"a Double", 0.1 + 0.2, 1, "0.30000000000000004", "0.30000000000000004"},
      {"Empty", Empty{}, 1, " ", " "},
      {"a width as text", "7", "2", "7 ", " 7"},
      {"a width half way rounds to even", "7", 2.5, "7 ", " 7"},
      {"no width", "7", Empty{}, "7", "7"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(PadR(row.str, row.width), row.right);
    Variant str = row.str;
    EXPECT_EQ(PadL(str, row.width), row.left);
  }
}

TEST(PadL, TurnsTheCallersVariableIntoText) {
  const test::LocaleGuard spain("es_ES.UTF-8");
  Variant number = 1.5;
  EXPECT_EQ(PadL(number, 5), "  1,5");
  ASSERT_TRUE(number.isText());
  EXPECT_EQ(number.toText(), "1,5");

  Variant null = Null{};
  EXPECT_EQ(PadL(null, 2), "  ");
  ASSERT_TRUE(null.isText());
  EXPECT_EQ(null.toText(), "");

  Variant other = 12;
  EXPECT_EQ(test::errorNumber([&] { PadL(other, Null{}); }), 94);
  EXPECT_TRUE(other.isText());
}

TEST(Padding, RefusesWhatHasNoTextOrNoSpace) {
  constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(test::errorNumber([] { PadR(Null{}, 3); }), 94);
  EXPECT_EQ(test::errorNumber([] { PadR("A", Null{}); }), 94);
  EXPECT_EQ(test::errorNumber([] { PadR("A", "x"); }), 13);
  EXPECT_EQ(test::errorNumber([] { PadR("A", 3e9); }), 6);
  EXPECT_EQ(test::errorNumber([] { PadR("A", kLargest); }), 14);
  EXPECT_EQ(test::errorNumber([] { Replicate("A", kLargest); }), 14);
  EXPECT_EQ(test::errorNumber([] { Replicate("ABCDEFGH", 1 << 28); }), 14);
  Variant object = std::make_shared<Object>();
  EXPECT_EQ(test::errorNumber([&] { PadL(object, 3); }), 13);
}

TEST(Replicate, RepeatsTextsOfAnyLength) {
  EXPECT_EQ(Replicate("-", 4), "----");
  EXPECT_EQ(Replicate("ñ=", 3), "ñ=ñ=ñ=");
  EXPECT_EQ(Replicate("ab", 0), "");
  EXPECT_EQ(Replicate("ab", -1), "");
  EXPECT_EQ(Replicate("", std::numeric_limits<std::int32_t>::max()), "");
}

TEST(StrCero, PadsWithZerosAndKeepsTheSignAsACharacter) {
  struct Row {
    const char* why;
    std::int32_t number;
    std::int16_t width;
    std::string_view expected;
  };
  static const Row kRows[] = {
      {"shorter", 5, 2, "05"},
      {"as long", 12, 2, "12"},
      {"zero", 0, 3, "000"},
      {"negative", -5, 3, "0-5"},
      {"the smallest number", std::numeric_limits<std::int32_t>::min(), 12, "0-2147483648"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(strCero(row.number, row.width), row.expected);
  }
  EXPECT_EQ(strCero(1, 32767).size(), 32767u);
}

TEST(StrCero, RefusesANumberLongerThanTheWidth) {
  EXPECT_EQ(test::errorNumber([] { strCero(123, 2); }), 5);
  EXPECT_EQ(test::errorNumber([] { strCero(-5, 1); }), 5);
  EXPECT_EQ(test::errorNumber([] { strCero(0, 0); }), 5);
  EXPECT_EQ(test::errorNumber([] { strCero(0, -32768); }), 5);
}

TEST(ClEmpty, KnowsBlanksAlone) {
  EXPECT_TRUE(clEmpty(""));
  EXPECT_TRUE(clEmpty("   "));
  EXPECT_FALSE(clEmpty(" x "));
  EXPECT_FALSE(clEmpty("\t"));
  EXPECT_FALSE(clEmpty("\u00A0"));
  EXPECT_FALSE(clEmpty(std::string_view("\0", 1)));
}

TEST(CNull, ReadsNullAsEmptyText) {
  EXPECT_EQ(cNull(Null{}), "");
  EXPECT_EQ(cNull(Empty{}), "");
  EXPECT_EQ(cNull(" a "), " a ");
  EXPECT_EQ(cNull(true), "True");
  const test::LocaleGuard germany("de_DE.UTF-8");
  EXPECT_EQ(cNull(5.5e-17), "5,5E-17");
  EXPECT_EQ(test::errorNumber([] { cNull(Array{}); }), 13);
}

}  // namespace
}  // namespace qvn::text
