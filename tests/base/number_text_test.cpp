#include "qvn/base/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

TEST(GeneralNumber, KeepsFifteenDigitsAndFifteenDecimals) {
  // clang-format off
  const std::pair<double, std::string_view> rows[] = {
      {1234, "1234"}, {-1234.5, "-1234.5"}, {120000, "120000"}, {-0.0, "0"},
      // The sixteenth digit goes.
      {0.1 + 0.2, "0.3"}, {0.9999999999999999, "1"}, {1.0 / 3, "0.333333333333333"}, {1000.0 / 3, "333.333333333333"},
      // The sixteenth decimal goes, also before the digits end.
      {0.000012345678901234, "0.000012345678901"}, {0.0123456789012347, "0.012345678901235"},
      {1e-15, "0.000000000000001"}, {5.1e-16, "0.000000000000001"}, {4.9e-16, "0"}, {-4e-16, "0"}, {5e-324, "0"},
      // 1E+15 is the first with an exponent, after rounding.
      {999999999999999, "999999999999999"}, {999999999999999.9, "1E+15"}, {1e15, "1E+15"}, {-1.5e20, "-1.5E+20"},
      {1234567890123456789.0, "1.23456789012346E+18"}, {1.7976931348623157e308, "1.79769313486232E+308"},
      {-std::numeric_limits<double>::infinity(), "-INF"}, {-std::numeric_limits<double>::quiet_NaN(), "NAN"}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(generalNumber(row.first), row.second);
}

TEST(GeneralNumber, PutsTheRegionalSeparatorInAfterwards) {
  const std::pair<const char*, std::string_view> rows[] = {
      {"C", "-1234.5"}, {"es_MX.UTF-8", "-1234.5"}, {"es_ES.UTF-8", "-1234,5"}, {"de_DE.UTF-8", "-1234,5"}};
  for (const auto& row : rows) {
    const test::LocaleGuard guard(row.first);
    EXPECT_EQ(regionalNumber(-1234.5), row.second);
    EXPECT_EQ(generalNumber(-1234.5), "-1234.5");
    EXPECT_EQ(regionalNumber(1e15), "1E+15");
  }
}

template <typename Number, typename Bits>
void expectReadsBack() {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100000;) {
    const auto value = std::bit_cast<Number>(static_cast<Bits>(random()));
    if (!std::isfinite(value)) continue;
    ++i;
    const std::string text = shortestNumber(value);
    Number back = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), back);
    ASSERT_TRUE(read.ec == std::errc{} && read.ptr == text.data() + text.size()) << text;
    ASSERT_EQ(back, value) << text;
  }
}

TEST(ShortestNumber, ReadsBackToTheSameValue) {
  expectReadsBack<double, std::uint64_t>();
  expectReadsBack<float, std::uint32_t>();
}

}  // namespace
}  // namespace qvn
