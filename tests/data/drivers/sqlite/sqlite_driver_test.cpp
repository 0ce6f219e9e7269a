// What is the embedded engine's own; everything else is in the conformance suite.
#include "qvn/data/drivers/sqlite/sqlite_driver.h"

#include <gtest/gtest.h>

#include "qvn/data/drivers/sqlite/declared_type.h"
#include "qvn/data/provider_error.h"
#include "tests/support/driver_session.h"

namespace qvn::data {
namespace {

class SqliteDriverTest : public testing::Test {
 protected:
  void SetUp() override {
    const ConnectionString memory("Provider=SQLite;Data Source=:memory:");
    session_ = sqliteDriver()->connect({memory, {}, {}, {}});
  }
  Variant first(const std::string& sql) { return test::scalar(*session_, sql); }
  std::unique_ptr<Session> session_;
};

TEST(DeclaredType, FirstWordDecides) {
  struct Row {
    const char* declaration;
    FieldType type;
    int size;
    int precision;
    int scale;
  };
  static constexpr Row kRows[] = {
      {"varchar(20)", FieldType::VarWChar, 20, 0, 0},
      {"DECIMAL( 12 , 2 )", FieldType::Numeric, 0, 12, 2},
      {"Numeric(8)", FieldType::Numeric, 0, 8, 0},
      {"UNSIGNED BIG INT", FieldType::VarWChar, 0, 0, 0},
      {"INT(11) UNSIGNED", FieldType::Integer, 11, 0, 0},
      {"DOUBLE PRECISION", FieldType::Double, 0, 0, 0},
      {"VARCHAR(", FieldType::VarWChar, 0, 0, 0},
      {"VARCHAR(99999999999999)", FieldType::VarWChar, 0, 0, 0},
      {"", FieldType::VarWChar, 0, 0, 0},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.declaration);
    Column column;
    sqlite::applyDeclaredType(row.declaration, column);
    EXPECT_EQ(column.type, row.type);
    EXPECT_EQ(column.definedSize, row.size);
    EXPECT_EQ(column.precision, row.precision);
    EXPECT_EQ(column.scale, row.scale);
  }
}

TEST_F(SqliteDriverTest, ValuesThatDoNotFitTheirDeclarationStayWhole) {
  session_->execute("CREATE TABLE t (i INTEGER, s SMALLINT, b BOOLEAN, m MONEY, d DATE, n NUMERIC)");
  session_->execute("INSERT INTO t VALUES (9223372036854775807, 70000, 2, 10.55555, 'mañana', 1e300)");
  struct Row {
    const char* column;
    VariantType type;
    const char* text;
  };
  static constexpr Row kRows[] = {
      {"i", VariantType::LongLong, "9223372036854775807"},
      {"s", VariantType::Long, "70000"},
      {"b", VariantType::Boolean, "True"},
      {"m", VariantType::Currency, "10.5556"},
      {"d", VariantType::String, "mañana"},
      {"n", VariantType::Double, "1E+300"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.column);
    const Variant value = first("SELECT " + std::string(row.column) + " FROM t");
    EXPECT_EQ(value.type(), row.type);
    EXPECT_EQ(value.toText(), row.text);
  }
}

TEST_F(SqliteDriverTest, LiteralsReadBack) {
  const std::string withNul("a\0'b", 4);
  EXPECT_EQ(*first("SELECT " + session_->literal(withNul, FieldType::VarWChar)).getIf<std::string>(), withNul);
  EXPECT_EQ(first("SELECT " + session_->literal(1e308 * 10, FieldType::Double)).toDouble(), 1e308 * 10);
  EXPECT_EQ(session_->literal(Date(0.75), FieldType::DbTime), "'18:00:00'");
}

TEST_F(SqliteDriverTest, TextsOfADatabaseInUtf16ComeAsUtf8) {
  session_->execute("PRAGMA encoding = 'UTF-16le'");
  session_->execute("CREATE TABLE t (a VARCHAR(20))");
  session_->execute("INSERT INTO t VALUES ('Ñandú €')");
  EXPECT_EQ(first("SELECT a FROM t").toText(), "Ñandú €");
}

TEST_F(SqliteDriverTest, OnlyOneStatementAtATime) {
  EXPECT_NO_THROW(session_->execute("SELECT 1; -- nota\n ;"));
  for (const std::string_view sql :
       {std::string_view("SELECT 1; SELECT 2"), std::string_view("SELECT 1\0 SELECT 2", 18), std::string_view(""),
        std::string_view("-- sólo una nota")}) {
    EXPECT_THROW(session_->execute(sql), ProviderError) << sql;
  }
}

TEST_F(SqliteDriverTest, AStatementRunAgainSeesTheTableOfNow) {
  session_->execute("CREATE TABLE t (a INTEGER)");
  for (int round = 1; round <= 3; ++round) {
    session_->execute("INSERT INTO t (a) VALUES (7)");
    const auto rows = session_->execute("SELECT * FROM t");
    const auto beside = session_->execute("SELECT * FROM t");
    EXPECT_EQ(rows.cursor->columns().size(), static_cast<std::size_t>(round));
    int count = 0;
    while (rows.cursor->next()) ++count;
    EXPECT_EQ(count, round);
    EXPECT_TRUE(beside.cursor->next());
    session_->execute("ALTER TABLE t ADD COLUMN c" + std::to_string(round) + " VARCHAR(5) DEFAULT 'x'");
  }
  EXPECT_EQ(session_->execute("UPDATE t SET a = 8").affectedRows, 3);
  EXPECT_EQ(session_->execute("UPDATE t SET a = 8").affectedRows, 3);
  session_->execute("DROP TABLE t");
  EXPECT_THROW(session_->execute("SELECT * FROM t"), ProviderError);
  session_->execute("CREATE TABLE t (z)");
  EXPECT_EQ(session_->execute("SELECT * FROM t").cursor->columns()[0].name, "z");
  // What is done while a statement is compiled is done each time.
  for (const char* mode : {"1", "0", "1"}) {
    session_->execute(std::string("PRAGMA foreign_keys = ") + mode);
    EXPECT_EQ(first("PRAGMA foreign_keys").toText(), mode);
  }
}

TEST_F(SqliteDriverTest, FinishedCursorFreesTheTable) {
  session_->execute("CREATE TABLE t (a)");
  const auto none = session_->execute("SELECT a FROM t");
  EXPECT_FALSE(none.cursor->next());
  EXPECT_FALSE(none.cursor->next());
  EXPECT_NO_THROW(session_->execute("DROP TABLE t"));
}

}  // namespace
}  // namespace qvn::data
