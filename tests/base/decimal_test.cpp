#include "qvn/base/decimal.h"

#include <gtest/gtest.h>

#include <limits>

#include "qvn/base/decimal_digits.h"
#include "tests/support/error_of.h"

namespace qvn {
namespace {

const std::string kNines65(65, '9');
const std::string kZeros63(63, '0');

Decimal decimal(std::string_view text) { return Decimal::fromText(text).value(); }

TEST(Decimal, ReadsAndKeepsDecimalsAsWritten) {
  // clang-format off
  struct Row { std::string text, expected, trimmed; };
  const Row rows[] = {
      {"12.30", "12.30", "12.3"}, {"-0012.0", "-12.0", "-12"}, {".5", "0.5", "0.5"}, {"+5.", "5", "5"},
      {"-0.00", "0.00", "0"}, {"100", "100", "100"}, {kNines65, kNines65, kNines65},
      {"000" + kNines65, kNines65, kNines65},
      // 66 digits in all are rounded half away from zero, with the carry into a longer integer part.
      {"-1." + kZeros63 + "15", "-1." + kZeros63 + "2", "-1." + kZeros63 + "2"},
      {".0" + kZeros63 + "49", "0.0" + kZeros63 + "5", "0.0" + kZeros63 + "5"},
      {std::string(64, '9') + ".95", "10" + kZeros63, "10" + kZeros63}};
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(decimal(row.text).toText(), row.expected);
    EXPECT_EQ(decimal(row.text).toTrimmedText(), row.trimmed);
  }
}

TEST(Decimal, RejectsOtherText) {
  for (const std::string& text : std::initializer_list<std::string>{"", "-", ".", "-.", "+-1", "--1", "1.2.3", "1,5",
                                                                    " 1", "1E5", "1" + kNines65, kNines65 + ".5"}) {
    EXPECT_EQ(Decimal::fromText(text), std::nullopt) << text;
  }
}

TEST(Decimal, AddsExactly) {
  // clang-format off
  struct Row { std::string left, right, sum; };
  const Row rows[] = {
      {"5", "0.10", "5.10"}, {"-1.5", "-2.75", "-4.25"}, {"-1.50", "1.5", "0.00"},
      // A carry through all columns, and borrows through zeros.
      {"999.99", "0.01", "1000.00"}, {"1000", "-0.01", "999.99"}, {"0.01", "-1000", "-999.99"},
      {"9007199254740993", "0.0000000000000000001", "9007199254740993.0000000000000000001"},
      {std::string(64, '9'), "1", "10" + kZeros63}};
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ((decimal(row.left) + decimal(row.right)).toText(), row.sum);
    EXPECT_EQ((decimal(row.right) + decimal(row.left)).toText(), row.sum);
  }
  EXPECT_EQ(test::errorNumber([] { decimal(kNines65) + decimal("1"); }), 6);
}

TEST(Decimal, ComparesByValue) {
  // In ascending order; those of one rank are equal.
  // clang-format off
  const std::pair<int, std::string> rows[] = {
      {0, "-10"}, {0, "-10.0"}, {1, "-9.99"}, {2, "-0.1"}, {2, "-0.10"}, {3, "0"}, {3, "-0"}, {3, "0.00"}, {4, "0.09"},
      {5, "0.1"}, {6, "1.5"}, {6, "1.50"}, {6, "01.5"}, {7, "1.50000000000000000000000000000001"}, {8, "10"},
      {9, kNines65}};
  // clang-format on
  for (const auto& left : rows) {
    for (const auto& right : rows) {
      EXPECT_EQ(decimal(left.second) <=> decimal(right.second), left.first <=> right.first)
          << left.second << " and " << right.second;
    }
  }
}

TEST(Decimal, FromDoubleTakesFifteenSignificantDigits) {
  // clang-format off
  const std::pair<double, std::string> rows[] = {
      {0.1, "0.1"}, {-0.0, "0"}, {0.1 + 0.2, "0.3"}, {-1234.5, "-1234.5"}, {123456789012345678.0, "123456789012346000"},
      {999999999999999.9, "1000000000000000"}, {1.23456789012345678e-20, "0.0000000000000000000123456789012346"},
      {1e64, "10" + kZeros63}, {1e-65, "0.0" + kZeros63 + "1"}, {1e-300, "0.00" + kZeros63}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Decimal::fromDouble(row.first).toText(), row.second);
  for (const double value :
       {1e65, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(test::errorNumber([value] { Decimal::fromDouble(value); }), 6) << value;
  }
  EXPECT_EQ(decimal("0.30000000000000004").toDouble(), 0.1 + 0.2);
  EXPECT_EQ(decimal("-" + kNines65).toDouble(), -1e65);
  EXPECT_EQ(Decimal::fromInteger(std::numeric_limits<std::int64_t>::min()).toText(), "-9223372036854775808");
}

TEST(Decimal, ScalesHalfToEven) {
  // clang-format off
  struct Row { const char* text; std::size_t decimals; std::optional<std::int64_t> expected; };
  const Row rows[] = {
      {"2.5", 0, 2}, {"3.5", 0, 4}, {"-2.5", 0, -2}, {"-3.50", 0, -4}, {"99.5", 0, 100}, {"0.00015", 4, 2},
      {"2.50000000000000000000000000000000000001", 0, 3}, {"2.49999999999999999999999999999999999999", 0, 2},
      {"0.99995", 4, 10000}, {"12.3", 4, 123000}, {"922337203685477.58075", 4, std::nullopt},
      {"-922337203685477.5808", 4, std::numeric_limits<std::int64_t>::min()},
      {"9223372036854775807.4", 0, std::numeric_limits<std::int64_t>::max()}};
  // clang-format on
  for (const Row& row : rows) EXPECT_EQ(decimal(row.text).toScaled(row.decimals), row.expected) << row.text;
}

TEST(DecimalDigits, RoundHalfAwayFromZero) {
  // clang-format off
  struct Row { DecimalDigits number; std::size_t count; std::string_view whole, decimals; };
  const Row rows[] = {
      {{"12", "345"}, 2, "12", "35"}, {{"12", "344"}, 2, "12", "34"}, {{"9", "996"}, 2, "10", "00"},
      {{"", "5"}, 0, "1", ""}, {{"", "49"}, 0, "", ""}, {{"7", ""}, 2, "7", "00"}, {{"", "999"}, 2, "1", "00"},
      {{"99", "5"}, 0, "100", ""}};
  // clang-format on
  for (Row row : rows) {
    roundDecimals(row.number, row.count);
    EXPECT_EQ(row.number.whole, row.whole);
    EXPECT_EQ(row.number.decimals, row.decimals);
  }
}

}  // namespace
}  // namespace qvn
