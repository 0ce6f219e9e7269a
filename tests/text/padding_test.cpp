#include "qvn/text/padding.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST(Padding, FillsToAWidthInCharacters) {
  struct Row {
    Variant str, width;
    std::string_view right, left;
  };
  // clang-format off
  static const Row kRows[] = {
      {"7", 3, "7  ", "  7"}, {7, 3, "7  ", "  7"}, {Empty{}, 1, " ", " "},
      // what is longer is not cut
      {"ABC", 2, "ABC", "ABC"}, {"ABC", -5, "ABC", "ABC"}, {"7", Empty{}, "7", "7"},
      // characters, not bytes; a width as text, half way to the next
      {"ñandú", 6, "ñandú ", " ñandú"}, {"\xF1", 2, "\xF1 ", " \xF1"}, {"7", "2.5", "7 ", " 7"},
  };
  // clang-format on
  for (const Row& row : kRows) {
    EXPECT_EQ(PadR(row.str, row.width), row.right) << row.left;
    Variant str = row.str;
    EXPECT_EQ(PadL(str, row.width), row.left);
  }
}

TEST(PadL, TurnsTheCallersVariableIntoText) {
  const test::LocaleGuard spain("es_ES.UTF-8");
  Variant number = 1.5;
  EXPECT_EQ(PadL(number, 5), "  1,5");
  Variant null = Null{};
  EXPECT_EQ(PadL(null, 2), "  ");
  Variant beforeAnError = 12;
  EXPECT_EQ(test::errorNumber([&] { PadL(beforeAnError, Null{}); }), 94);
  for (const Variant& value : {number, null, beforeAnError}) EXPECT_TRUE(value.isText());
  EXPECT_EQ(number.toText() + "|" + null.toText() + "|" + beforeAnError.toText(), "1,5||12");
}

TEST(Padding, RefusesWhatHasNoTextOrNoSpace) {
  EXPECT_EQ(test::errorNumber([] { PadR(Null{}, 3); }), 94);
  EXPECT_EQ(test::errorNumber([] { PadR("A", "x"); }), 13);
  EXPECT_EQ(test::errorNumber([] { PadR("A", kLargest); }), 14);
  EXPECT_EQ(test::errorNumber([] { Replicate("ABCDEFGH", 1 << 28); }), 14);
  Variant object = std::make_shared<Object>();
  EXPECT_EQ(test::errorNumber([&] { PadL(object, 3); }), 13);
}

TEST(Replicate, RepeatsTextsOfAnyLength) {
  EXPECT_EQ(Replicate("-", 4), "----");
  EXPECT_EQ(Replicate("ñ=", 3), "ñ=ñ=ñ=");
  EXPECT_EQ(Replicate("ab", 0) + Replicate("ab", -1), "");
  EXPECT_EQ(Replicate("", kLargest), "");  // at once
}

TEST(StrCero, PadsWithZerosAndRefusesALongerNumber) {
  EXPECT_EQ(strCero(5, 2), "05");
  EXPECT_EQ(strCero(12, 2), "12");
  EXPECT_EQ(strCero(-5, 3), "0-5") << "the sign is a character";
  EXPECT_EQ(strCero(std::numeric_limits<std::int32_t>::min(), 12), "0-2147483648");
  EXPECT_EQ(strCero(1, 32767).size(), 32767u);
  EXPECT_EQ(test::errorNumber([] { strCero(123, 2); }), 5);
  EXPECT_EQ(test::errorNumber([] { strCero(-5, 1); }), 5);
  EXPECT_EQ(test::errorNumber([] { strCero(0, -32768); }), 5);
}

TEST(Emptiness, IsOfBlanksAloneAndOfNull) {
  EXPECT_TRUE(clEmpty("") && clEmpty("   "));
  EXPECT_FALSE(clEmpty(" x ") || clEmpty("\t") || clEmpty("\u00A0") || clEmpty(std::string(1, '\0')));
  const test::LocaleGuard germany("de_DE.UTF-8");
  EXPECT_EQ(cNull(Null{}) + cNull(" a ") + cNull(0.5), " a 0,5");
  EXPECT_EQ(test::errorNumber([] { cNull(Array{}); }), 13);
}

}  // namespace
}  // namespace qvn::text
