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

using Pairs = std::initializer_list<std::pair<Variant, Variant>>;

TEST(VariantAdd, GrowsIntoTheWiderType) {
  using Type = VariantType;
  constexpr auto kMostLongLong = std::numeric_limits<std::int64_t>::max();
  // clang-format off
  struct Row { Variant left, right; Type type; std::string_view sum; };
  const Row rows[] = {
      {byte(100), byte(155), Type::Byte, "255"}, {byte(255), byte(1), Type::Integer, "256"},
      {integer(32766), integer(1), Type::Integer, "32767"}, {integer(32767), integer(1), Type::Long, "32768"},
      {5, integer(1), Type::Long, "6"}, {2147483647, integer(1), Type::Double, "2147483648"},
      {-2147483647 - 1, -1, Type::Double, "-2147483649"}, {std::int64_t{1} << 40, 1, Type::LongLong, "1099511627777"},
      {kMostLongLong, 1, Type::Double, "9.223372036854776E+18"}, {true, true, Type::Integer, "-2"},
      {true, byte(1), Type::Integer, "0"}, {0.5F, integer(1), Type::Single, "1.5"}, {0.5F, 1, Type::Double, "1.5"},
      {0x1p127F, 0x1p127F, Type::Double, "3.402823669209385E+38"},
      {Currency::fromScaled(5000), 1, Type::Currency, "1.5"}, {Currency::fromScaled(5000), 0.25, Type::Double, "0.75"},
      {decimal("0.1"), 0.2, Type::Decimal, "0.3"},
      {decimal("0.00001"), kMostMoney, Type::Decimal, "922337203685477.58071"},
      {decimal("0.5"), std::int64_t{9007199254740993}, Type::Decimal, "9007199254740993.5"},
      {Date::fromCivil(2012, 2, 28), 2, Type::Date, "03/01/2012"}, {"1", Date(40974), Type::Date, "03/07/2012"},
      {"1.5", 2, Type::Double, "3.5"},
      // Empty leaves the other as it is.
      {Empty{}, "abc", Type::String, "abc"}, {byte(7), Empty{}, Type::Byte, "7"}, {Empty{}, Empty{}, Type::Integer, "0"}};
  // clang-format on
  for (const Row& row : rows) {
    for (const Variant& sum : {row.left + row.right, row.right + row.left}) {
      EXPECT_EQ(sum.type(), row.type) << row.sum;
      EXPECT_EQ(sum.toText(), row.sum);
    }
  }
  EXPECT_EQ((Variant("1") + Variant("2")).toText(), "12");
}

void expectAddFails(std::int32_t error, Pairs rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(test::errorNumber([&] { row.first + row.second; }), error) << "row " << &row - rows.begin();
  }
}

TEST(VariantAdd, NullSpreadsAndFailuresAreNumbered) {
  // clang-format off
  expectAddFails(13, {{"abc", 1}, {"", 1}, {kArray, 1}, {Null{}, kArray}, {1, ObjectPtr{}}});
  expectAddFails(6, {
      {1.7e308, 1.7e308}, {kMostMoney, Currency::fromScaled(1)}, {std::int64_t{922337203685478}, Currency()},
      {decimal(std::string(65, '9')), 1}, {Date(2958465), 1}, {Date(-657434), -1},
  });
  // clang-format on
  for (const Variant& other : {Variant(1), Variant("abc"), Variant(Empty{}), Variant(Null{}), Variant(Date(1))}) {
    EXPECT_TRUE((Null{} + other).isNull());
    EXPECT_TRUE((other + Null{}).isNull());
  }
}

void expectOrder(std::weak_ordering expected, Pairs rows) {
  for (const auto& row : rows) {
    SCOPED_TRACE(row.first.toText() + " and " + row.second.toText());
    EXPECT_EQ(compare(row.first, row.second), expected);
    EXPECT_EQ(compare(row.second, row.first), 0 <=> expected);
    EXPECT_EQ(equals(row.first, row.second), expected == std::weak_ordering::equivalent);
  }
}

TEST(VariantCompare, OrdersNumbersByValueAndBeforeTexts) {
  const std::int64_t even = 9007199254740992;  // the next number is no Double
  // clang-format off
  expectOrder(std::weak_ordering::less, {
      {10, "10"}, {1e300, ""}, {Empty{}, "a"}, {true, false},
      // Texts by characters.
      {"10", "9"}, {"Z", "a"}, {"z", "á"}, {"a", "a "}, {std::string("a\0b", 3), std::string("a\0c", 3)},
      // What no Double tells apart.
      {Currency::fromScaled(kMostMoney.scaled() - 1), kMostMoney}, {even, even + 1}, {even, decimal("9007199254740992.1")},
      {kMostMoney, std::int64_t{922337203685478}}, {1, decimal("1.00000000000000000001")},
  });
  expectOrder(std::weak_ordering::equivalent, {
      {Empty{}, 0.0}, {Empty{}, ""}, {Empty{}, Empty{}}, {true, -1}, {Date(2), 2.0}, {0.5F, decimal("0.50")},
      {Currency::fromScaled(15000), decimal("1.5")}, {decimal("0.1"), 0.1},
  });
  // clang-format on
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
