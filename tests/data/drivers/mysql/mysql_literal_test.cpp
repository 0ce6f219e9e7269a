// Literals are judged by what the server reads back from them.
#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

class MysqlLiteral : public MysqlTest {};

TEST_F(MysqlLiteral, NastyTextsComeBackInEveryMode) {
  const std::string texts[] = {"",
                               "O'Higgins",
                               "\\",
                               "\\'",
                               "'); DROP TABLE prods; -- ",
                               "\"comillas\" y `acentos`",
                               std::string("antes\0después", 14),
                               "línea\r\notra\x1A\ttab",
                               "🍕 ñ á",
                               "%_\\%\\_",
                               "\x7F\x01"};
  for (const char* const mode : {"", "NO_BACKSLASH_ESCAPES", "ANSI_QUOTES"}) {
    session_->execute(std::string("SET sql_mode = '") + mode + "'");
    for (const std::string& text : texts) {
      SCOPED_TRACE(mode + (": " + text));
      EXPECT_EQ(shown(scalar("SELECT " + session_->literal(text, FieldType::VarWChar))), shown(text));
    }
  }
}

TEST_F(MysqlLiteral, WriteEachKindOfValue) {
  const Date morning = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  const LiteralRow rows[] = {
      {"NULL", Null{}, FieldType::VarWChar, "NULL"},
      {"true", true, FieldType::Boolean, "1"},
      {"a Double with all its digits", 0.1 + 0.2, FieldType::Double, "0.30000000000000004"},
      {"a Decimal keeps its zeros", decimal("12.30"), FieldType::Numeric, "12.30"},
      {"bytes", std::string("\0\xFF", 2), FieldType::Binary, "X'00FF'"},
      {"no bytes", "", FieldType::VarBinary, "X''"},
      {"a date", morning, FieldType::DbTimeStamp, "'2012-03-07 10:42:07'"},
      {"a time of day", morning, FieldType::DbTime, "'10:42:07'"},
  };
  expectLiterals(*session_, rows);
}

TEST_F(MysqlLiteral, EditedColumnsAreFoundAgain) {
  session_->execute("CREATE TEMPORARY TABLE horas (momento DATETIME(6), hora TIME, bit1 BIT, bits BIT(40), foto BLOB)");
  session_->execute("INSERT INTO horas VALUES ('2012-03-07 10:42:07.123457', '10:42:07', 1, 1099511627775, " +
                    session_->literal(allBytes() + "'\\", FieldType::LongVarBinary) + ")");
  expectFoundAgain(*session_, "horas", 5);
}

}  // namespace
}  // namespace qvn::test
