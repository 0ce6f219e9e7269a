// What is told of statements by their texts alone.
#include "qvn/data/drivers/odbc/statement_text.h"

#include <gtest/gtest.h>

#include <utility>

#include "qvn/data/drivers/odbc/odbc_origin.h"

namespace qvn::data::odbc {
namespace {

TEST(StatementText, FirstWord) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"SELECT 1", "SELECT"},
      {" \r\n\tinsert into t", "insert"},
      {"-- DELETE\nSELECT 1", "SELECT"},
      {"/* DELETE */ /**/ UPDATE t", "UPDATE"},
      {"SELECT*FROM t", "SELECT"},
      {"/* sin fin SELECT", ""},
      {"-- sin fin SELECT", ""},
      {"(SELECT 1)", ""},
      {"", ""},
  };
  for (const auto& [sql, expected] : kRows) EXPECT_EQ(firstWord(sql), expected) << sql;
}

TEST(StatementText, SecondStatement) {
  struct Row {
    const char* sql;
    bool hasSecond;
    const char* first = nullptr;  // null: the whole text
  };
  static constexpr Row kRows[] = {
      {"SELECT 1; SELECT 2", true, "SELECT 1"},
      {"SELECT 1;;SELECT 2", true, "SELECT 1"},
      {"SELECT 1;/* y */DELETE FROM t", true, "SELECT 1"},
      {"SELECT ''';'; SELECT 2", true, "SELECT ''';'"},
      {"SELECT 1 -- ;\n; SELECT 2", true, "SELECT 1 -- ;\n"},
      {"SELECT 1;", false, "SELECT 1"},
      {"SELECT 1 ; \n -- fin;\n ;", false, "SELECT 1 "},
      {"SELECT 1; /* SELECT 2", false, "SELECT 1"},
      {"SELECT 'a;b'", false},
      {"SELECT 'a'';b'", false},
      {"SELECT \"a;b\", `c;d`", false},
      {"SELECT 'sin fin; SELECT 2", false},
      {"SELECT 1 /* ; */ + 2 -- ; SELECT 2", false},
      {"", false},
  };
  for (const Row& row : kRows) {
    const SplitStatement split = splitStatement(row.sql);
    EXPECT_EQ(split.hasSecond, row.hasSecond) << row.sql;
    EXPECT_EQ(split.first, row.first == nullptr ? row.sql : row.first);
  }
}

TEST(StatementText, SingleTable) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"SELECT * FROM prods", "prods"},
      {"select a, b\nfrom prods\twhere a = 1", "prods"},
      {"SELECT * FROM \"mis prods\" ORDER BY a", "mis prods"},
      {"SELECT * FROM [prods] LIMIT 3", "prods"},
      {"SELECT 'FROM otra' FROM `niños`", "niños"},
      {"SELECT * FROM niños WHERE a IN (SELECT a FROM otra)", "niños"},
      {"SELECT * FROM prods p", ""},
      {"SELECT * FROM prods, otra", ""},
      {"SELECT * FROM tienda.prods", ""},
      {"SELECT * FROM prods JOIN otra ON 1 = 1", ""},
      {"SELECT * FROM prods WHERE a = 1 UNION SELECT * FROM otra", ""},
      {"SELECT a FROM prods WHERE a > 0 GROUP BY a", ""},
      {"SELECT DISTINCT a FROM prods", ""},
      {"SELECT COUNT(*) FROM prods", ""},
      {"SELECT * FROM (SELECT 1)", ""},
      {"SELECT 1", ""},
      {"UPDATE prods SET a = 1", ""},
      {"", ""},
  };
  for (const auto& [sql, expected] : kRows) EXPECT_EQ(singleTable(sql), expected) << sql;
}

}  // namespace
}  // namespace qvn::data::odbc
