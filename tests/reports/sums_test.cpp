// Sums of a report to the last digit.
#include <gtest/gtest.h>

#include <limits>

#include "qvn/reports/exact_sum.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::reports {
namespace {

Decimal decimal(std::string_view text) { return *Decimal::fromText(text); }

std::string sumOf(const std::vector<Variant>& values) {
  ExactSum sum;
  for (const Variant& value : values) sum.add(value);
  return sum.total().toText();
}

TEST(ExactSum, LosesNothing) {
  struct Row {
    const char* why;
    std::vector<Variant> values;
    std::string total;
  };
  const std::int64_t most = std::numeric_limits<std::int64_t>::max();
  const Row rows[] = {
      {"nothing", {}, "0"},
      {"only Null and Empty", {Null{}, Variant()}, "0"},
      {"tenths as doubles", std::vector<Variant>(10, 0.1), "1"},
      {"a cent beside millions", {1e12, 0.01, -1e12}, "0.01"},
      {"whole numbers past 32 bits", std::vector<Variant>(3, std::int32_t{2'147'483'647}), "6442450941"},
      {"whole numbers past 64 bits", {most, most, std::int16_t{1}}, "18446744073709551615"},
      {"decimals past 15 digits", {decimal("12345678901234567890.12"), decimal("0.01")}, "12345678901234567890.13"},
      {"currencies", {Currency::fromScaled(1), Currency::fromScaled(9999)}, "1"},
      {"a currency beside a double", {Currency::fromScaled(1), 0.1}, "0.1001"},
      {"texts of a database", {"12.50", " -2.25", "1"}, "11.25"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(Decimal::fromText(sumOf(row.values)), Decimal::fromText(row.total)) << sumOf(row.values);
  }
}

TEST(ExactSum, RefusesWhatIsNoAmount) {
  const Date day = Date::fromCivil(2026, 2, 9);
  ExactSum sum;
  sum.add(7);
  EXPECT_EQ(test::errorNumber([&] { sum.add(day); }), error_number::kTypeMismatch);
  EXPECT_EQ(test::errorNumber([&] { sum.add("siete"); }), error_number::kTypeMismatch);
  EXPECT_EQ(test::errorNumber([&] { sum.add(std::numeric_limits<double>::infinity()); }), error_number::kOverflow);
  EXPECT_EQ(sum.total().toText(), "7");
}

TEST(ExactSum, ReadsTextsOfThePersonsRegion) {
  const test::LocaleGuard spain("es_ES.UTF-8");
  EXPECT_EQ(sumOf({"12,50", "0.25"}), "12,75");
}

}  // namespace
}  // namespace qvn::reports
