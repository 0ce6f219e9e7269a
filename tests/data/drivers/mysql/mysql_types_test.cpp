// What each column type of the engine gives to hosts.
#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::Column;
using data::FieldType;

const std::string kNines65(65, '9');

const TypeRow kTypeRows[] = {
    {"NULL of a number", "INT", "NULL", FieldType::Integer, Null{}},
    {"NULL of a text", "TEXT", "NULL", FieldType::LongVarWChar, Null{}},
    {"smallest TINYINT", "TINYINT", "-128", FieldType::TinyInt, std::int16_t{-128}},
    {"largest TINYINT", "TINYINT UNSIGNED", "255", FieldType::UnsignedTinyInt, std::int16_t{255}},
    {"smallest SMALLINT", "SMALLINT", "-32768", FieldType::SmallInt, std::int16_t{-32768}},
    {"largest SMALLINT", "SMALLINT UNSIGNED", "65535", FieldType::UnsignedSmallInt, std::int32_t{65535}},
    {"smallest MEDIUMINT", "MEDIUMINT", "-8388608", FieldType::Integer, std::int32_t{-8388608}},
    {"largest MEDIUMINT", "MEDIUMINT UNSIGNED", "16777215", FieldType::UnsignedInt, std::int64_t{16777215}},
    {"smallest INT", "INT", "-2147483648", FieldType::Integer, std::numeric_limits<std::int32_t>::min()},
    {"leading zeros", "INT(8) ZEROFILL", "42", FieldType::UnsignedInt, std::int64_t{42}},
    {"largest INT", "INT UNSIGNED", "4294967295", FieldType::UnsignedInt, std::int64_t{4294967295}},
    {"smallest BIGINT", "BIGINT", "-9223372036854775808", FieldType::BigInt, std::numeric_limits<std::int64_t>::min()},
    {"largest BIGINT", "BIGINT UNSIGNED", "18446744073709551615", FieldType::UnsignedBigInt,
     decimal("18446744073709551615")},
    {"FLOAT", "FLOAT", "-1.5e38", FieldType::Single, -1.5e38F},
    {"largest DOUBLE", "DOUBLE", "1.7976931348623157e308", FieldType::Double, 1.7976931348623157e308},
    {"smallest DOUBLE", "DOUBLE", "2.2250738585072014e-308", FieldType::Double, 2.2250738585072014e-308},
    {"DOUBLE with all its digits", "DOUBLE", "0.1e0 + 0.2e0", FieldType::Double, 0.1 + 0.2},
    {"DECIMAL keeps its zeros", "DECIMAL(10,2)", "-12.30", FieldType::Numeric, decimal("-12.30")},
    {"DECIMAL of 65 digits", "DECIMAL(65,0)", kNines65, FieldType::Numeric, decimal(kNines65)},
    {"DECIMAL of 30 decimals", "DECIMAL(65,30)", "-1e-30", FieldType::Numeric,
     decimal("-0.000000000000000000000000000001")},
    {"one bit set", "BIT(1)", "b'1'", FieldType::Boolean, true},
    {"one bit clear", "BIT", "0", FieldType::Boolean, false},
    {"all 64 bits", "BIT(64)", "~0", FieldType::UnsignedBigInt, decimal("18446744073709551615")},
    {"the highest of nine bits", "BIT(9)", "256", FieldType::UnsignedBigInt, decimal("256")},
    {"YEAR", "YEAR", "2155", FieldType::SmallInt, std::int16_t{2155}},
    {"DATE", "DATE", "'2012-03-07'", FieldType::Date, moment(2012, 3, 7)},
    {"last DATE", "DATE", "'9999-12-31'", FieldType::Date, moment(9999, 12, 31)},
    {"first DATE that a date value holds", "DATE", "'0100-01-01'", FieldType::Date, moment(100, 1, 1)},
    {"a DATE before it", "DATE", "'0099-12-31'", FieldType::Date, "0099-12-31"},
    {"zero DATE", "DATE NOT NULL", "'0000-00-00'", FieldType::Date, Null{}},
    {"DATE with zero month", "DATE", "'2012-00-07'", FieldType::Date, Null{}},
    {"DATE with zero day", "DATE", "'2012-03-00'", FieldType::Date, Null{}},
    {"DATETIME", "DATETIME", "'2012-03-07 10:42:07'", FieldType::DbTimeStamp, moment(2012, 3, 7, {10, 42, 7})},
    {"zero DATETIME", "DATETIME", "'0000-00-00 00:00:00'", FieldType::DbTimeStamp, Null{}},
    {"DATETIME with microseconds", "DATETIME(6)", "'2012-03-07 10:42:07.000250'", FieldType::DbTimeStamp,
     moment(2012, 3, 7, {10, 42, 7}, 0.00025)},
    {"a fraction before day zero", "DATETIME(1)", "'1899-12-29 18:00:00.5'", FieldType::DbTimeStamp,
     moment(1899, 12, 29, {18, 0, 0}, 0.5)},
    {"the last DATETIME stays in its day", "DATETIME(6)", "'9999-12-31 23:59:59.999999'", FieldType::DbTimeStamp,
     moment(9999, 12, 31, {23, 59, 59})},
    {"TIMESTAMP", "TIMESTAMP", "'2038-01-18 23:59:59'", FieldType::DbTimeStamp, moment(2038, 1, 18, {23, 59, 59})},
    {"TIME", "TIME", "'23:59:59'", FieldType::DbTime, Date(86399.0 / 86400)},
    {"TIME with a fraction", "TIME(2)", "'00:00:00.25'", FieldType::DbTime, Date(0.25 / 86400)},
    {"TIME of 24 hours", "TIME", "'24:00:00'", FieldType::DbTime, "24:00:00"},
    {"longest TIME", "TIME", "'838:59:59'", FieldType::DbTime, "838:59:59"},
    {"negative TIME", "TIME", "'-00:00:01'", FieldType::DbTime, "-00:00:01"},
    {"CHAR", "CHAR(5)", "'ñandú'", FieldType::WChar, "ñandú"},
    {"VARCHAR beyond the basic plane", "VARCHAR(20)", "'¡🍕!'", FieldType::VarWChar, "¡🍕!"},
    {"empty VARCHAR", "VARCHAR(20)", "''", FieldType::VarWChar, ""},
    {"VARCHAR of another character set", "VARCHAR(20) CHARACTER SET latin1", "'niño'", FieldType::VarWChar, "niño"},
    {"ENUM", "ENUM('S','P')", "'P'", FieldType::VarWChar, "P"},
    {"SET", "SET('a','b','c')", "'c,a'", FieldType::VarWChar, "a,c"},
    {"TINYTEXT", "TINYTEXT", "'á'", FieldType::LongVarWChar, "á"},
    {"LONGTEXT", "LONGTEXT", "'á'", FieldType::LongVarWChar, "á"},
    {"JSON", "JSON", "'{\"a\": 1}'", FieldType::LongVarWChar, "{\"a\": 1}"},
    {"BINARY is padded", "BINARY(3)", "X'FF'", FieldType::Binary, std::string("\xFF\0\0", 3)},
    {"VARBINARY", "VARBINARY(9)", "X'00FF27'", FieldType::VarBinary, std::string("\0\xFF'", 3)},
    {"BLOB", "BLOB", "X'00FF0D0A1A5C'", FieldType::LongVarBinary, std::string("\0\xFF\r\n\x1A\\", 6)},
    {"LONGBLOB", "LONGBLOB", "''", FieldType::LongVarBinary, ""},
    {"GEOMETRY", "POINT", "ST_GeomFromText('POINT(0 0)')", FieldType::LongVarBinary,
     std::string("\0\0\0\0\1\1\0\0\0", 9) + std::string(16, '\0')},
};

class MysqlTypes : public MysqlTest {};

TEST_F(MysqlTypes, ReadAsTheirOwnKind) {
  session_->execute("SET sql_mode = 'ALLOW_INVALID_DATES'");
  expectTypes(*session_, "CREATE OR REPLACE TEMPORARY TABLE", kTypeRows);
}

TEST_F(MysqlTypes, ExpressionsHaveTypesToo) {
  EXPECT_EQ(shown(scalar("SELECT NULL")), shown(Null{}));
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM seq_1_to_3")), shown(std::int64_t{3}));
  EXPECT_EQ(shown(scalar("SELECT SUM(seq) / 4 FROM seq_1_to_3")), shown(decimal("1.5000")));
  EXPECT_EQ(shown(scalar("SELECT GROUP_CONCAT('ñ')")), shown("ñ"));
}

TEST_F(MysqlTypes, ColumnsTellTheirSizes) {
  session_->execute(
      "CREATE TEMPORARY TABLE medidas (nombre VARCHAR(60), foto VARBINARY(70), precio DECIMAL(12,4), "
      "cuenta DECIMAL(5,0) UNSIGNED, alta DATETIME)");
  const data::StatementResult result = session_->execute("SELECT medidas.*, nombre AS ñoño FROM medidas");
  const std::vector<Column>& columns = result.cursor->columns();
  ASSERT_EQ(columns.size(), 6u);
  EXPECT_EQ(columns[0].definedSize, 60);
  EXPECT_EQ(columns[1].definedSize, 70);
  EXPECT_EQ(columns[2].precision, 12);
  EXPECT_EQ(columns[2].scale, 4);
  EXPECT_EQ(columns[3].precision, 5);
  EXPECT_EQ(columns[3].scale, 0);
  EXPECT_EQ(columns[4].definedSize, 0);
  EXPECT_EQ(columns[5].name, "ñoño");
}

TEST_F(MysqlTypes, OriginsNameTheTable) {
  session_->execute("CREATE TEMPORARY TABLE `o``rigen` (id INT AUTO_INCREMENT PRIMARY KEY, `x``y` INT)");
  session_->execute("INSERT INTO `o``rigen` VALUES (1, 2), (2, 2)");
  const data::StatementResult result =
      session_->execute("SELECT id, `x``y` AS otro, id + 1 AS id FROM `o``rigen` AS r");
  ASSERT_TRUE(result.cursor->next());
  const std::vector<data::ColumnOrigin> origins = result.cursor->origins();
  ASSERT_EQ(origins.size(), 3u);
  EXPECT_EQ(origins[0].table, "`qvn_test`.`o``rigen`");
  EXPECT_EQ(origins[0].column, "`id`");
  EXPECT_TRUE(origins[0].isKey);
  EXPECT_TRUE(origins[0].isAutoNumber);
  EXPECT_EQ(origins[1].table, origins[0].table);
  EXPECT_EQ(origins[1].column, "`x``y`");
  EXPECT_FALSE(origins[1].isKey);
  EXPECT_FALSE(origins[1].isAutoNumber);
  EXPECT_EQ(origins[2].table, "");
  EXPECT_EQ(origins[2].column, "");
}

TEST_F(MysqlTypes, GroupedRowsHaveNoOrigin) {
  session_->execute("CREATE TEMPORARY TABLE grupos (id INT PRIMARY KEY, importe INT)");
  const data::StatementResult result =
      session_->execute("SELECT s.id FROM (SELECT id, SUM(importe) AS t FROM grupos GROUP BY id LIMIT 9) AS s");
  const std::vector<data::ColumnOrigin> origins = result.cursor->origins();
  ASSERT_EQ(origins.size(), 1u);
  EXPECT_EQ(origins[0].table, "");
}

}  // namespace
}  // namespace qvn::test
