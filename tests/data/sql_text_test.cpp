#include "qvn/data/sql_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::data {
namespace {

TEST(SqlText, PlainLiteralsIgnoreTheRegion) {
  const test::LocaleGuard locale("es_ES.UTF-8");
  const std::pair<Variant, const char*> rows[] = {
      {Empty{}, "NULL"},
      {Null{}, "NULL"},
      {true, "1"},
      {false, "0"},
      {-5, "-5"},
      {0.1 + 0.2, "0.30000000000000004"},
      {0.1F, "0.1"},
      {Currency::fromScaled(105000), "10.5"},
      {*Decimal::fromText("12.30"), "12.30"},
  };
  for (const auto& [value, expected] : rows) EXPECT_EQ(plainLiteral(value), expected);
  EXPECT_EQ(test::errorNumber([] { (void)plainLiteral(std::nan("")); }), error_number::kOverflow);
  EXPECT_EQ(test::errorNumber([] { (void)plainLiteral("texto"); }), error_number::kTypeMismatch);
}

TEST(SqlText, QuotesAndHex) {
  EXPECT_EQ(doubledQuotes("O'Hi''ggins", '\''), "'O''Hi''''ggins'");
  EXPECT_EQ(hexLiteral(std::string("\0\xff\x10", 3)), "X'00FF10'");
}

}  // namespace
}  // namespace qvn::data
