#include "qvn/base/decimal.h"

#include <gtest/gtest.h>

#include <limits>

#include "qvn/base/decimal_digits.h"
#include "tests/support/error_of.h"

namespace qvn {
namespace {

const std::string kNines65(65, '9');

Decimal decimal(std::string_view text) { return Decimal::fromText(text).value(); }

TEST(Decimal, ReadsAndKeepsDecimalsAsWritten) {
  struct Row {
    const char* why;
    std::string text, expected, trimmed;
  };
  const Row rows[] = {{"zeros at the end", "12.30", "12.30", "12.3"},
                      {"zeros before", "-0012.0", "-12.0", "-12"},
                      {"no integer part", ".5", "0.5", "0.5"},
                      {"no decimals", "+5.", "5", "5"},
                      {"minus zero", "-0.00", "0.00", "0"},
                      {"zeros of a whole number stay", "100", "100", "100"},
                      {"65 digits", kNines65, kNines65, kNines65},
                      {"65 digits after zeros", "000" + kNines65, kNines65, kNines65},
                      {"66 digits in all, rounded half away", "-1." + std::string(63, '0') + "15",
                       "-1." + std::string(63, '0') + "2", "-1." + std::string(63, '0') + "2"},
                      {"decimals alone", "." + std::string(64, '0') + "49", "0." + std::string(64, '0') + "5",
                       "0." + std::string(64, '0') + "5"},
                      {"a carry into a longer integer part", std::string(64, '9') + ".95", "1" + std::string(64, '0'),
                       "1" + std::string(64, '0')}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(decimal(row.text).toText(), row.expected);
    EXPECT_EQ(decimal(row.text).toTrimmedText(), row.trimmed);
  }
}

TEST(Decimal, RejectsOtherText) {
  for (const std::string& text : {std::string(), std::string("-"), std::string("."), std::string("-."),
                                  std::string("+-1"), std::string("--1"), std::string("1.2.3"), std::string("1,5"),
                                  std::string(" 1"), std::string("1E5"), "1" + kNines65, kNines65 + ".5"}) {
    EXPECT_EQ(Decimal::fromText(text), std::nullopt) << text;
  }
}

TEST(Decimal, AddsExactly) {
  struct Row {
    const char* why;
    std::string left, right, sum;
  };
  const Row rows[] = {
      {"the longer decimals", "5", "0.10", "5.10"},
      {"a carry through all columns", "999.99", "0.01", "1000.00"},
      {"a borrow through zeros", "1000", "-0.01", "999.99"},
      {"the larger is negative", "0.01", "-1000", "-999.99"},
      {"both negative", "-1.5", "-2.75", "-4.25"},
      {"to zero, without a sign", "-1.50", "1.5", "0.00"},
      {"beyond a Double", "9007199254740993", "0.0000000000000000001", "9007199254740993.0000000000000000001"},
      {"to 65 digits", std::string(64, '9'), "1", "1" + std::string(64, '0')}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ((decimal(row.left) + decimal(row.right)).toText(), row.sum);
    EXPECT_EQ((decimal(row.right) + decimal(row.left)).toText(), row.sum);
  }
  EXPECT_EQ(test::errorNumber([] { decimal(kNines65) + decimal("1"); }), 6);
}

TEST(Decimal, ComparesByValue) {
  // In ascending order; those of one row are equal.
  const std::vector<std::vector<std::string>> rows = {
      {"-10", "-10.0"}, {"-9.99"}, {"-0.1", "-0.10"},       {"0", "-0", "0.00"},
      {"0.09"},         {"0.1"},   {"1.5", "1.50", "01.5"}, {"1.50000000000000000000000000000001"},
      {"10"},           {kNines65}};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows.size(); ++j) {
      for (const std::string& left : rows[i]) {
        for (const std::string& right : rows[j]) EXPECT_EQ(decimal(left) <=> decimal(right), i <=> j) << left << right;
      }
    }
  }
}

TEST(Decimal, FromDoubleTakesFifteenSignificantDigits) {
  const std::pair<double, std::string> rows[] = {{0.1, "0.1"},
                                                 {-0.0, "0"},
                                                 {0.1 + 0.2, "0.3"},
                                                 {-1234.5, "-1234.5"},
                                                 {123456789012345678.0, "123456789012346000"},
                                                 {999999999999999.9, "1000000000000000"},
                                                 {1.23456789012345678e-20, "0.0000000000000000000123456789012346"},
                                                 {1e64, "1" + std::string(64, '0')},
                                                 {1e-65, "0." + std::string(64, '0') + "1"},
                                                 {1e-300, "0." + std::string(65, '0')}};
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
  struct Row {
    const char* text;
    std::size_t decimals;
    std::optional<std::int64_t> expected;
  };
  const Row rows[] = {{"2.5", 0, 2},
                      {"3.5", 0, 4},
                      {"-2.5", 0, -2},
                      {"-3.50", 0, -4},
                      {"2.50000000000000000000000000000000000001", 0, 3},
                      {"2.49999999999999999999999999999999999999", 0, 2},
                      {"99.5", 0, 100},
                      {"0.00015", 4, 2},
                      {"0.99995", 4, 10000},
                      {"12.3", 4, 123000},
                      {"-922337203685477.5808", 4, std::numeric_limits<std::int64_t>::min()},
                      {"922337203685477.58075", 4, std::nullopt},
                      {"9223372036854775807.4", 0, std::numeric_limits<std::int64_t>::max()}};
  for (const Row& row : rows) EXPECT_EQ(decimal(row.text).toScaled(row.decimals), row.expected) << row.text;
}

TEST(DecimalDigits, RoundHalfAwayFromZero) {
  struct Row {
    DecimalDigits number;
    std::size_t count;
    std::string_view whole, decimals;
  };
  const Row rows[] = {{{"12", "345"}, 2, "12", "35"}, {{"12", "344"}, 2, "12", "34"}, {{"9", "996"}, 2, "10", "00"},
                      {{"", "5"}, 0, "1", ""},        {{"", "49"}, 0, "", ""},        {{"7", ""}, 2, "7", "00"},
                      {{"", "999"}, 2, "1", "00"},    {{"99", "5"}, 0, "100", ""}};
  for (Row row : rows) {
    roundDecimals(row.number, row.count);
    EXPECT_EQ(row.number.whole, row.whole);
    EXPECT_EQ(row.number.decimals, row.decimals);
  }
}

}  // namespace
}  // namespace qvn
