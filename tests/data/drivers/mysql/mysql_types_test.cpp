// What each column type of the engine gives to hosts.
#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

const std::string kNines65(65, '9');

const TypeRow kTypeRows[] = {
    {"NULL of a text", "TEXT", "NULL", FieldType::LongVarWChar, Null{}},
    {"smallest TINYINT", "TINYINT", "-128", FieldType::TinyInt, std::int16_t{-128}},
    {"largest TINYINT", "TINYINT UNSIGNED", "255", FieldType::UnsignedTinyInt, std::int16_t{255}},
    {"largest SMALLINT", "SMALLINT UNSIGNED", "65535", FieldType::UnsignedSmallInt, std::int32_t{65535}},
    {"smallest MEDIUMINT", "MEDIUMINT", "-8388608", FieldType::Integer, std::int32_t{-8388608}},
    {"largest MEDIUMINT", "MEDIUMINT UNSIGNED", "16777215", FieldType::UnsignedInt, std::int64_t{16777215}},
    {"leading zeros", "INT(8) ZEROFILL", "42", FieldType::UnsignedInt, std::int64_t{42}},
    {"largest INT", "INT UNSIGNED", "4294967295", FieldType::UnsignedInt, std::int64_t{4294967295}},
    {"largest BIGINT", "BIGINT UNSIGNED", "18446744073709551615", FieldType::UnsignedBigInt,
     decimal("18446744073709551615")},
    {"smallest DOUBLE", "DOUBLE", "2.2250738585072014e-308", FieldType::Double, 2.2250738585072014e-308},
    {"DOUBLE with all its digits", "DOUBLE", "0.1e0 + 0.2e0", FieldType::Double, 0.1 + 0.2},
    {"DECIMAL of 65 digits", "DECIMAL(65,0)", kNines65, FieldType::Numeric, decimal(kNines65)},
    {"DECIMAL of 30 decimals", "DECIMAL(65,30)", "-1e-30", FieldType::Numeric,
     decimal("-0.000000000000000000000000000001")},
    {"one bit set", "BIT(1)", "b'1'", FieldType::Boolean, true},
    {"one bit clear", "BIT", "0", FieldType::Boolean, false},
    {"all 64 bits", "BIT(64)", "~0", FieldType::UnsignedBigInt, decimal("18446744073709551615")},
    {"the highest of nine bits", "BIT(9)", "256", FieldType::UnsignedBigInt, decimal("256")},
    {"YEAR", "YEAR", "2155", FieldType::SmallInt, std::int16_t{2155}},
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
    {"TIME with a fraction", "TIME(2)", "'00:00:00.25'", FieldType::DbTime, Date(0.25 / 86400)},
    {"TIME of 24 hours", "TIME", "'24:00:00'", FieldType::DbTime, "24:00:00"},
    {"longest TIME", "TIME", "'838:59:59'", FieldType::DbTime, "838:59:59"},
    {"negative TIME", "TIME", "'-00:00:01'", FieldType::DbTime, "-00:00:01"},
    {"CHAR", "CHAR(5)", "'ñandú'", FieldType::WChar, "ñandú"},
    {"VARCHAR of another character set", "VARCHAR(20) CHARACTER SET latin1", "'niño'", FieldType::VarWChar, "niño"},
    {"ENUM", "ENUM('S','P')", "'P'", FieldType::VarWChar, "P"},
    {"SET", "SET('a','b','c')", "'c,a'", FieldType::VarWChar, "a,c"},
    {"TINYTEXT", "TINYTEXT", "'á'", FieldType::LongVarWChar, "á"},
    {"LONGTEXT", "LONGTEXT", "'á'", FieldType::LongVarWChar, "á"},
    {"JSON", "JSON", "'{\"a\": 1}'", FieldType::LongVarWChar, "{\"a\": 1}"},
    {"BINARY is padded", "BINARY(3)", "X'FF'", FieldType::Binary, std::string("\xFF\0\0", 3)},
    {"VARBINARY", "VARBINARY(9)", "X'00FF27'", FieldType::VarBinary, std::string("\0\xFF'", 3)},
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
  EXPECT_EQ(shownColumns(*session_->execute("SELECT medidas.*, nombre AS ñoño FROM medidas").cursor),
            (std::vector<std::string>{"nombre 60 0.0", "foto 70 0.0", "precio 0 12.4", "cuenta 0 5.0", "alta 0 0.0",
                                      "ñoño 60 0.0"}));
}

TEST_F(MysqlTypes, OriginsNameTheTableUnlessRowsAreGrouped) {
  session_->execute("CREATE TEMPORARY TABLE `o``rigen` (id INT AUTO_INCREMENT PRIMARY KEY, `x``y` INT)");
  session_->execute("INSERT INTO `o``rigen` VALUES (1, 2), (2, 2)");
  const auto result = session_->execute("SELECT id, `x``y` AS otro, id + 1 AS id FROM `o``rigen` AS r");
  ASSERT_TRUE(result.cursor->next());
  EXPECT_EQ(shownOrigins(*result.cursor),
            (std::vector<std::string>{"`qvn_test`.`o``rigen`.`id` key auto", "`qvn_test`.`o``rigen`.`x``y`", ""}));
  const auto grouped =
      session_->execute("SELECT s.id FROM (SELECT id, SUM(`x``y`) AS t FROM `o``rigen` GROUP BY id LIMIT 9) AS s");
  EXPECT_EQ(shownOrigins(*grouped.cursor), std::vector<std::string>{""});
}

}  // namespace
}  // namespace qvn::test
