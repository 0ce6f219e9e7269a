// Values in each engine's SQL.
#include "qvn/data/drivers/odbc/odbc_literal.h"

#include <gtest/gtest.h>

#include "tests/support/locale_guard.h"

namespace qvn::data::odbc {
namespace {

struct Row {
  const char* why;
  EngineKind engine;
  Variant value;
  FieldType type;
  std::string expected;
};

void check(const Row& row) {
  SCOPED_TRACE(row.why);
  EXPECT_EQ(literal(row.engine, row.value, row.type), row.expected);
}

TEST(OdbcLiteral, Texts) {
  constexpr auto kText = FieldType::VarWChar;
  const std::string nul("a\0b", 3);
  const Row rows[] = {
      {"Unicode", EngineKind::SqlServer, "O'Higgins ñ\\", kText, "N'O''Higgins ñ\\'"},
      {"escapes", EngineKind::MySql, "O'Higgins\\'", kText, R"('O''Higgins\\''')"},
      {"a NUL is escaped", EngineKind::MySql, nul, kText, R"('a\0b')"},
      {"no escapes", EngineKind::Sqlite, "O'Higgins\\", kText, "'O''Higgins\\'"},
      {"a NUL goes as bytes", EngineKind::Sqlite, nul, kText, "CAST(X'610062' AS TEXT)"},
      {"Access", EngineKind::Access, "O'Higgins", kText, "'O''Higgins'"},
      {"another engine", EngineKind::Other, "", kText, "''"},
  };
  for (const Row& row : rows) check(row);
}

TEST(OdbcLiteral, BytesNumbersAndNull) {
  const std::string bytes("\0'\xFF", 3);
  const Row rows[] = {
      {"bytes", EngineKind::SqlServer, bytes, FieldType::VarBinary, "0x0027FF"},
      {"bytes", EngineKind::MySql, bytes, FieldType::LongVarBinary, "X'0027FF'"},
      {"no bytes", EngineKind::SqlServer, "", FieldType::Binary, "0x"},
      {"no bytes", EngineKind::Sqlite, "", FieldType::Binary, "X''"},
      {"a point in any locale", EngineKind::SqlServer, -12.5, FieldType::Double, "-12.5"},
      {"true", EngineKind::MySql, true, FieldType::Boolean, "1"},
      {"Null", EngineKind::SqlServer, Null{}, FieldType::VarWChar, "NULL"},
      {"Empty", EngineKind::Sqlite, Variant(), FieldType::DbTimeStamp, "NULL"},
  };
  const test::LocaleGuard locale("de_DE.UTF-8");
  for (const Row& row : rows) check(row);
}

TEST(OdbcLiteral, Dates) {
  const Date day = Date::fromCivil(2012, 3, 7);
  const Date moment = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  constexpr auto kSqlServer = EngineKind::SqlServer;
  const Row rows[] = {
      {"a day that every session language reads alike", kSqlServer, day, FieldType::Date, "'20120307'"},
      {"a moment likewise", kSqlServer, moment, FieldType::DbTimeStamp, "'2012-03-07T10:42:07'"},
      {"midnight is written", kSqlServer, day, FieldType::DbTimeStamp, "'2012-03-07T00:00:00'"},
      {"a time alone", kSqlServer, moment, FieldType::DbTime, "'10:42:07'"},
      {"thousandths, as the column keeps", kSqlServer, Date(0.5 + 0.1254 / 86400), FieldType::DbTimeStamp,
       "'1899-12-30T12:00:00.125'"},
      {"millionths", EngineKind::MySql, Date(0.5 + 0.1254 / 86400), FieldType::DbTimeStamp,
       "'1899-12-30 12:00:00.1254'"},
      {"a day", EngineKind::MySql, moment, FieldType::Date, "'2012-03-07'"},
      {"a time in a column of days stays", EngineKind::Sqlite, moment, FieldType::Date, "'2012-03-07 10:42:07'"},
      {"a day in a column of days", EngineKind::Sqlite, day, FieldType::Date, "'2012-03-07'"},
  };
  for (const Row& row : rows) check(row);
}

}  // namespace
}  // namespace qvn::data::odbc
