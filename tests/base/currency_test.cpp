#include "qvn/base/currency.h"

#include <gtest/gtest.h>

#include <charconv>
#include <limits>
#include <random>

#include "tests/support/error_of.h"

namespace qvn {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(Currency, RoundsTheFifthDecimalHalfToEven) {
  // The halves are sums of powers of two, so that the Doubles are what is written.
  // clang-format off
  const std::pair<double, std::int64_t> rows[] = {
      {0.03125, 312}, {0.09375, 938}, {-0.03125, -312}, {-0.09375, -938}, {0.00004, 0}, {0.00006, 1},
      {1234.56, 12345600}, {-0.0, 0}, {0.1 + 0.2, 3000}, {900000000000000.0, 9000000000000000000}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Currency::fromDouble(row.first).scaled(), row.second) << row.first;
}

TEST(Currency, OverflowsBeyondSixtyFourBits) {
  for (const double value : {922337203685477.7, -922337203685478.0, 1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(test::errorNumber([value] { Currency::fromDouble(value); }), 6) << value;
  }
  EXPECT_EQ(test::errorNumber([] { Currency::fromScaled(kMost) + Currency::fromScaled(1); }), 6);
  EXPECT_EQ(test::errorNumber([] { Currency::fromScaled(kLeast) + Currency::fromScaled(-1); }), 6);
  EXPECT_EQ((Currency::fromScaled(kMost) + Currency::fromScaled(kLeast)).scaled(), -1);
}

TEST(Currency, WritesNoTrailingZeros) {
  // clang-format off
  const std::pair<std::int64_t, std::string_view> rows[] = {
      {0, "0"}, {1, "0.0001"}, {-1, "-0.0001"}, {9999, "0.9999"}, {10000, "1"}, {105000, "10.5"}, {-1000000, "-100"},
      {kMost, "922337203685477.5807"}, {kLeast, "-922337203685477.5808"}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Currency::fromScaled(row.first).toText(), row.second);
}

TEST(Currency, IsTheDoubleNearestToItsText) {
  std::mt19937_64 random(20120307);
  for (int i = 0; i < 20000; ++i) {
    const auto amount = Currency::fromScaled(static_cast<std::int64_t>(random() >> (i % 64)));
    const std::string text = amount.toText();
    double nearest = 0;
    std::from_chars(text.data(), text.data() + text.size(), nearest);
    ASSERT_EQ(amount.toDouble(), nearest) << text;
  }
}

}  // namespace
}  // namespace qvn
