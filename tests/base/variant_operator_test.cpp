#include <gtest/gtest.h>

#include <limits>

#include "qvn/base/variant.h"
#include "tests/support/error_of.h"

namespace qvn {
namespace {

const Variant kArray = Array{};
const Currency kMostMoney = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
Decimal decimal(std::string_view text) { return Decimal::fromText(text).value(); }
constexpr std::int16_t integer(int value) { return static_cast<std::int16_t>(value); }
constexpr std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

TEST(VariantAdd, GrowsIntoTheWiderType) {
  struct Row {
    const char* why;
    Variant left, right;
    VariantType type;
    std::string_view sum;
  };
  const Row rows[] = {
      {"bytes", byte(100), byte(155), VariantType::Byte, "255"},
      {"bytes past 255", byte(255), byte(1), VariantType::Integer, "256"},
      {"Integers", integer(32766), integer(1), VariantType::Integer, "32767"},
      {"Integers past 32767", integer(32767), integer(1), VariantType::Long, "32768"},
      {"a small sum keeps the wider type", 5, integer(1), VariantType::Long, "6"},
      {"Longs past 2^31", 2147483647, integer(1), VariantType::Double, "2147483648"},
      {"Longs below -2^31", -2147483647 - 1, -1, VariantType::Double, "-2147483649"},
      {"64 bits", std::int64_t{1} << 40, 1, VariantType::LongLong, "1099511627777"},
      {"past 64 bits", std::numeric_limits<std::int64_t>::max(), 1, VariantType::Double, "9.223372036854776E+18"},
      {"Booleans", true, true, VariantType::Integer, "-2"},
      {"Boolean and Byte", true, byte(1), VariantType::Integer, "0"},
      {"Single and Integer", 0.5F, integer(1), VariantType::Single, "1.5"},
      {"Single and Long", 0.5F, 1, VariantType::Double, "1.5"},
      {"Singles past the largest", 0x1p127F, 0x1p127F, VariantType::Double, "3.402823669209385E+38"},
      {"Currency and Long", Currency::fromScaled(5000), 1, VariantType::Currency, "1.5"},
      {"Currency and Double", Currency::fromScaled(5000), 0.25, VariantType::Double, "0.75"},
      {"Decimal and Double", decimal("0.1"), 0.2, VariantType::Decimal, "0.3"},
      {"Decimal and Currency", decimal("0.00001"), kMostMoney, VariantType::Decimal, "922337203685477.58071"},
      {"Decimal and 64 bits", decimal("0.5"), std::int64_t{9007199254740993}, VariantType::Decimal,
       "9007199254740993.5"},
      {"Date and number", Date::fromCivil(2012, 2, 28), 2, VariantType::Date, "03/01/2012"},
      {"text and number", "1.5", 2, VariantType::Double, "3.5"},
      {"text and Date", "1", Date(40974), VariantType::Date, "03/07/2012"},
      {"Empty leaves the other", Empty{}, "abc", VariantType::String, "abc"},
      {"Empty leaves the other's type", byte(7), Empty{}, VariantType::Byte, "7"},
      {"Empty twice", Empty{}, Empty{}, VariantType::Integer, "0"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    for (const Variant& sum : {row.left + row.right, row.right + row.left}) {
      EXPECT_EQ(sum.type(), row.type);
      EXPECT_EQ(sum.toText(), row.sum);
    }
  }
  EXPECT_EQ((Variant("1") + Variant("2")).toText(), "12");
}

TEST(VariantAdd, NullSpreadsAndFailuresAreNumbered) {
  struct Row {
    const char* why;
    Variant left, right;
    std::int32_t error;
  };
  const Row rows[] = {{"a text that is no number", "abc", 1, 13},
                      {"an empty text", "", 1, 13},
                      {"Array", kArray, 1, 13},
                      {"Array beside Null", Null{}, kArray, 13},
                      {"Object", 1, ObjectPtr{}, 13},
                      {"Double", 1.7e308, 1.7e308, 6},
                      {"Currency", kMostMoney, Currency::fromScaled(1), 6},
                      {"64 bits as Currency", std::int64_t{922337203685478}, Currency(), 6},
                      {"Decimal", decimal(std::string(65, '9')), 1, 6},
                      {"after the last day", Date(2958465), 1, 6},
                      {"before the first day", Date(-657434), -1, 6}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::errorNumber([&] { row.left + row.right; }), row.error);
  }
  for (const Variant& other : {Variant(1), Variant("abc"), Variant(Empty{}), Variant(Null{}), Variant(Date(1))}) {
    EXPECT_TRUE((Null{} + other).isNull());
    EXPECT_TRUE((other + Null{}).isNull());
  }
}

TEST(VariantCompare, OrdersNumbersByValueAndBeforeTexts) {
  struct Row {
    const char* why;
    Variant left, right;
    std::weak_ordering expected;
  };
  constexpr auto kLess = std::weak_ordering::less;
  constexpr auto kSame = std::weak_ordering::equivalent;
  const Row rows[] = {
      {"a number before a text of the same digits", 10, "10", kLess},
      {"a large number before a blank text", 1e300, "", kLess},
      {"texts by characters", "10", "9", kLess},
      {"capitals first", "Z", "a", kLess},
      {"accented letters after all of ASCII", "z", "á", kLess},
      {"a text that goes on", "a", "a ", kLess},
      {"a NUL within texts", std::string("a\0b", 3), std::string("a\0c", 3), kLess},
      {"Empty is 0", Empty{}, 0.0, kSame},
      {"Empty is an empty text", Empty{}, "", kSame},
      {"Empty before a text", Empty{}, "a", kLess},
      {"Empty twice", Empty{}, Empty{}, kSame},
      {"True is -1", true, -1, kSame},
      {"True before False", true, false, kLess},
      {"a day", Date(2), 2.0, kSame},
      {"a half across types", 0.5F, decimal("0.50"), kSame},
      {"Currency and Decimal", Currency::fromScaled(15000), decimal("1.5"), kSame},
      {"Currencies that no Double tells apart", Currency::fromScaled(kMostMoney.scaled() - 1), kMostMoney, kLess},
      {"64-bit numbers that no Double tells apart", std::int64_t{9007199254740992}, std::int64_t{9007199254740993},
       kLess},
      {"64 bits and Decimal", std::int64_t{9007199254740992}, decimal("9007199254740992.1"), kLess},
      {"Currency and 64 bits", kMostMoney, std::int64_t{922337203685478}, kLess},
      {"Long and Decimal", 1, decimal("1.00000000000000000001"), kLess},
      {"Decimal as a Double beside a Double", decimal("0.1"), 0.1, kSame}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(compare(row.left, row.right), row.expected);
    EXPECT_EQ(compare(row.right, row.left), 0 <=> row.expected);
    EXPECT_EQ(equals(row.left, row.right), row.expected == kSame);
  }
}

TEST(VariantCompare, NullEqualsNothing) {
  for (const Variant& other : {Variant(0), Variant(""), Variant(Empty{}), Variant(Null{})}) {
    EXPECT_EQ(compare(Null{}, other), std::nullopt);
    EXPECT_FALSE(equals(other, Null{}));
  }
  EXPECT_EQ(test::errorNumber([] { equals(kArray, Null{}); }), 13);
  EXPECT_EQ(test::errorNumber([] { equals(1, ObjectPtr{}); }), 13);
}

}  // namespace
}  // namespace qvn
