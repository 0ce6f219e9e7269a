#include "qvn/data/drivers/firebird/long_literals.h"

#include <gtest/gtest.h>

namespace qvn::data::firebird {
namespace {

const std::string kLong(kLongestLiteral + 1, 'a');
const std::string kLongest(kLongestLiteral, 'a');

std::string quotes(std::size_t count) {
  std::string text;
  while (text.size() < count) text += "''";
  return text;
}

TEST(LongLiterals, BecomeParameters) {
  struct Row {
    const char* why;
    std::string sql;
    std::string expected;
    std::vector<std::string> literals;
  };
  const Row rows[] = {
      {"one", "INSERT INTO n VALUES (1, '" + kLong + "')", "INSERT INTO n VALUES (1, ?)", {kLong}},
      {"two and a short one", "f('" + kLong + "','b','" + kLong + "c')", "f(?,'b',?)", {kLong, kLong + "c"}},
      {"quotes inside", "f('" + quotes(kLong.size()) + "x')", "f(?)", {std::string(kLong.size() / 2, '\'') + "x"}},
      {"bytes", "f(x'00fF" + kLong + "')", "f(?)", {std::string("\0\xFF", 2) + std::string(kLong.size() / 2, '\xAA')}},
      {"at the end", "v = '" + kLong + "'", "v = ?", {kLong}},
      {"behind comments and names", "/* ' */ -- '\n\"'\" = '" + kLong + "'", "/* ' */ -- '\n\"'\" = ?", {kLong}},
      {"behind another kind of literal", "f(q'{it's}', '" + kLong + "')", "f(q'{it's}', ?)", {kLong}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const StatementText text = takeLongLiterals(row.sql);
    EXPECT_EQ(text.sql(), row.expected);
    ASSERT_EQ(text.literals.size(), row.literals.size());
    for (std::size_t i = 0; i < row.literals.size(); ++i) EXPECT_TRUE(text.literals[i].bytes == row.literals[i]);
  }
  EXPECT_TRUE(takeLongLiterals(rows[0].sql).literals[0].isText);
  EXPECT_FALSE(takeLongLiterals(rows[3].sql).literals[0].isText);
}

TEST(LongLiterals, OtherTextsStayAsTheyAre) {
  const std::string texts[] = {
      "",
      "f('" + kLongest + "')",
      "/* '" + kLong + "' */ f(1)",
      "-- '" + kLong + "'\nf(1)",
      "SELECT 1 AS \"'" + kLong + "'\"",
      "v = '" + kLong,
      "v = '" + kLong + "''",
      "v = x'0" + kLong + "00'",
      "v = x'0g" + kLong + "'",
      "f(_WIN1252'" + kLong + "')",
      "f(q'[" + kLong + "'" + kLong + "]')",
  };
  for (const std::string& text : texts) {
    SCOPED_TRACE(text.substr(0, 20));
    EXPECT_TRUE(takeLongLiterals(text).sql() == text);
  }
}

TEST(LongLiterals, TextsCutOffAnywhereAreRead) {
  const std::string sql = "f(q'{a}', x'00" + kLong + "', '" + kLong + "', \"b\", /* c */ 'd''e') -- g";
  for (std::size_t size = 0; size <= sql.size(); size += size < 2 * kLong.size() ? 97u : 1u) {
    // A literal counts from its closing quote on.
    const std::size_t closed = size > sql.find("', \"b") ? 2u : size > sql.find("', '") ? 1u : 0u;
    EXPECT_EQ(takeLongLiterals(sql.substr(0, size)).literals.size(), closed) << size;
  }
}

}  // namespace
}  // namespace qvn::data::firebird
