// What each column type of the engine gives to hosts.
#include <limits>

#include "tests/data/drivers/firebird/firebird_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::Column;
using data::FieldType;

const TypeRow kTypeRows[] = {
    {"NULL of a number", "INTEGER", "NULL", FieldType::Integer, Null{}},
    {"NULL of a text", "BLOB SUB_TYPE TEXT", "NULL", FieldType::LongVarWChar, Null{}},
    {"smallest SMALLINT", "SMALLINT", "-32768", FieldType::SmallInt, std::int16_t{-32768}},
    {"largest INTEGER", "INTEGER", "2147483647", FieldType::Integer, std::numeric_limits<std::int32_t>::max()},
    {"smallest BIGINT", "BIGINT", "-9223372036854775808", FieldType::BigInt, std::numeric_limits<std::int64_t>::min()},
    {"NUMERIC in 16 bits", "NUMERIC(4,2)", "-99.99", FieldType::Numeric, decimal("-99.99")},
    {"NUMERIC in 32 bits keeps its zeros", "NUMERIC(9,2)", "1234.5", FieldType::Numeric, decimal("1234.50")},
    {"NUMERIC below one", "DECIMAL(9,4)", "-0.0305", FieldType::Numeric, decimal("-0.0305")},
    {"NUMERIC zero", "NUMERIC(9,2)", "0", FieldType::Numeric, decimal("0.00")},
    {"NUMERIC without decimals", "NUMERIC(9,0)", "42", FieldType::Numeric, decimal("42")},
    {"NUMERIC of 18 decimals", "NUMERIC(18,18)", "-1.000000000000000001", FieldType::Numeric,
     decimal("-1.000000000000000001")},
    {"largest NUMERIC", "NUMERIC(18,4)", "922337203685477.5807", FieldType::Numeric, decimal("922337203685477.5807")},
    {"smallest NUMERIC", "NUMERIC(18,2)", "-92233720368547758.08", FieldType::Numeric,
     decimal("-92233720368547758.08")},
    {"FLOAT", "FLOAT", "-1.5e38", FieldType::Single, -1.5e38F},
    {"largest DOUBLE", "DOUBLE PRECISION", "1.7976931348623157e308", FieldType::Double, 1.7976931348623157e308},
    {"true", "BOOLEAN", "TRUE", FieldType::Boolean, true},
    {"false", "BOOLEAN", "FALSE", FieldType::Boolean, false},
    {"DATE", "DATE", "'2012-03-07'", FieldType::Date, moment(2012, 3, 7)},
    {"last DATE", "DATE", "'9999-12-31'", FieldType::Date, moment(9999, 12, 31)},
    {"first DATE that a date value holds", "DATE", "'0100-01-01'", FieldType::Date, moment(100, 1, 1)},
    {"a DATE before it", "DATE", "'0099-12-31'", FieldType::Date, "0099-12-31"},
    {"first DATE of the engine", "DATE", "'0001-01-01'", FieldType::Date, "0001-01-01"},
    {"TIMESTAMP before the first date", "TIMESTAMP", "'0099-12-31 23:59:59.9999'", FieldType::DbTimeStamp,
     "0099-12-31 23:59:59"},
    {"TIMESTAMP", "TIMESTAMP", "'2012-03-07 10:42:07'", FieldType::DbTimeStamp, moment(2012, 3, 7, {10, 42, 7})},
    {"TIMESTAMP with a fraction", "TIMESTAMP", "'2012-03-07 10:42:07.0025'", FieldType::DbTimeStamp,
     moment(2012, 3, 7, {10, 42, 7}, 0.0025)},
    {"a fraction before day zero", "TIMESTAMP", "'1899-12-29 18:00:00.5'", FieldType::DbTimeStamp,
     moment(1899, 12, 29, {18, 0, 0}, 0.5)},
    {"the last TIMESTAMP stays in its day", "TIMESTAMP", "'9999-12-31 23:59:59.9999'", FieldType::DbTimeStamp,
     moment(9999, 12, 31, {23, 59, 59})},
    {"TIME", "TIME", "'23:59:59'", FieldType::DbTime, Date(86399.0 / 86400)},
    {"TIME with a fraction", "TIME", "'00:00:00.25'", FieldType::DbTime, Date(0.25 / 86400)},
    {"CHAR is padded to its characters", "CHAR(7)", "'ñandú'", FieldType::WChar, "ñandú  "},
    {"CHAR beyond the basic plane", "CHAR(3)", "'🍕'", FieldType::WChar, "🍕  "},
    {"CHAR of another character set", "CHAR(5) CHARACTER SET WIN1252", "'niño'", FieldType::WChar, "niño "},
    {"VARCHAR keeps its blanks", "VARCHAR(20)", "'¡ñ! '", FieldType::VarWChar, "¡ñ! "},
    {"empty VARCHAR", "VARCHAR(20)", "''", FieldType::VarWChar, ""},
    {"bytes of fixed length", "CHAR(3) CHARACTER SET OCTETS", "x'FF'", FieldType::Binary, std::string("\xFF\0\0", 3)},
    {"bytes", "VARCHAR(9) CHARACTER SET OCTETS", "x'00FF27'", FieldType::VarBinary, std::string("\0\xFF'", 3)},
    {"text BLOB", "BLOB SUB_TYPE TEXT", "'á'", FieldType::LongVarWChar, "á"},
    {"empty BLOB", "BLOB SUB_TYPE TEXT", "''", FieldType::LongVarWChar, ""},
    {"text BLOB of another character set", "BLOB SUB_TYPE TEXT CHARACTER SET WIN1252", "'niño'",
     FieldType::LongVarWChar, "niño"},
    {"BLOB of bytes", "BLOB", "x'00FF0D0A1A5C'", FieldType::LongVarBinary, std::string("\0\xFF\r\n\x1A\\", 6)},
};

class FirebirdTypes : public FirebirdTest {};

TEST_F(FirebirdTypes, ReadAsTheirOwnKind) { expectTypes(*session_, "RECREATE TABLE", kTypeRows); }

TEST_F(FirebirdTypes, ColumnsTellTheirSizes) {
  session_->execute(
      "CREATE TABLE medidas (nombre VARCHAR(60), clave CHAR(4), foto VARCHAR(70) CHARACTER SET OCTETS, "
      "precio NUMERIC(12,4), tasa DECIMAL(4,2), alta TIMESTAMP)");
  const data::StatementResult result = session_->execute("SELECT medidas.*, nombre AS \"ñoño\" FROM medidas");
  const std::vector<Column>& columns = result.cursor->columns();
  ASSERT_EQ(columns.size(), 7u);
  EXPECT_EQ(columns[0].name, "NOMBRE");
  EXPECT_EQ(columns[0].definedSize, 60);
  EXPECT_EQ(columns[1].definedSize, 4);
  EXPECT_EQ(columns[2].definedSize, 70);
  EXPECT_EQ(columns[3].precision, 18);
  EXPECT_EQ(columns[3].scale, 4);
  EXPECT_EQ(columns[4].precision, 9);
  EXPECT_EQ(columns[4].scale, 2);
  EXPECT_EQ(columns[5].definedSize, 0);
  EXPECT_EQ(columns[6].name, "ñoño");
}

TEST_F(FirebirdTypes, OriginsNameTheTable) {
  session_->execute(
      "CREATE TABLE \"o\"\"rigen\" (id INTEGER GENERATED BY DEFAULT AS IDENTITY, \"x\"\"y\" INTEGER, "
      "PRIMARY KEY (id))");
  const data::StatementResult result =
      session_->execute("SELECT id, \"x\"\"y\" AS otro, id + 1 AS id FROM \"o\"\"rigen\" AS r");
  const std::vector<data::ColumnOrigin> origins = result.cursor->origins();
  ASSERT_EQ(origins.size(), 3u);
  EXPECT_EQ(origins[0].table, "\"o\"\"rigen\"");
  EXPECT_EQ(origins[0].column, "\"ID\"");
  EXPECT_TRUE(origins[0].isKey);
  EXPECT_TRUE(origins[0].isAutoNumber);
  EXPECT_EQ(origins[1].table, origins[0].table);
  EXPECT_EQ(origins[1].column, "\"x\"\"y\"");
  EXPECT_FALSE(origins[1].isKey);
  EXPECT_FALSE(origins[1].isAutoNumber);
  EXPECT_EQ(origins[2].table, "");
  EXPECT_EQ(origins[2].column, "");
}

TEST_F(FirebirdTypes, LongTextsAreReadWhole) {
  session_->execute("CREATE TABLE notas (id INTEGER, nota BLOB SUB_TYPE TEXT)");
  std::string text;
  while (text.size() < 10'000'000) text += "Línea con ñ número " + std::to_string(text.size()) + "\r\n";
  session_->execute("INSERT INTO notas VALUES (1, '" + text + "')");
  EXPECT_TRUE(*scalar("SELECT nota FROM notas").getIf<std::string>() == text);
}

}  // namespace
}  // namespace qvn::test
