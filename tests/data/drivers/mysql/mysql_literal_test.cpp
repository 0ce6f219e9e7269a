// Literals are judged by what the server reads back from them.
#include <cmath>
#include <limits>

#include "qvn/base/runtime_error.h"
#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

class MysqlLiteral : public MysqlTest {
 protected:
  std::string literal(const Variant& value, FieldType type) { return session_->literal(value, type); }
};

TEST_F(MysqlLiteral, NastyTextsComeBack) {
  const std::string texts[] = {
      "",
      "O'Higgins",
      "\\",
      "\\'",
      "'); DROP TABLE prods; -- ",
      "\"comillas\" y `acentos`",
      std::string("antes\0después", 14),
      "línea\r\notra\x1A\ttab",
      "🍕 ñ á",
      "%_\\%\\_",
      "\x7F\x01",
  };
  for (const char* const mode : {"", "NO_BACKSLASH_ESCAPES", "ANSI_QUOTES"}) {
    SCOPED_TRACE(mode);
    session_->execute(std::string("SET sql_mode = '") + mode + "'");
    for (const std::string& text : texts) {
      SCOPED_TRACE(text);
      EXPECT_EQ(shown(scalar("SELECT " + literal(text, FieldType::VarWChar))), shown(text));
    }
  }
}

TEST_F(MysqlLiteral, BytesComeBackFromABinaryColumn) {
  session_->execute("CREATE TEMPORARY TABLE fotos (foto LONGBLOB)");
  const std::string bytes = allBytes() + "'\\";
  session_->execute("INSERT INTO fotos VALUES (" + literal(bytes, FieldType::LongVarBinary) + ")");
  EXPECT_EQ(shown(scalar("SELECT foto FROM fotos")), shown(bytes));
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM fotos WHERE foto = " + literal(bytes, FieldType::LongVarBinary))),
            shown(std::int64_t{1}));
}

TEST_F(MysqlLiteral, WriteEachKindOfValue) {
  struct Row {
    const char* why;
    Variant value;
    FieldType type;
    std::string expected;
  };
  const Date morning = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  const Row rows[] = {
      {"NULL", Null{}, FieldType::VarWChar, "NULL"},
      {"true", true, FieldType::Boolean, "1"},
      {"a Double with all its digits", 0.1 + 0.2, FieldType::Double, "0.30000000000000004"},
      {"a Decimal keeps its zeros", *Decimal::fromText("12.30"), FieldType::Numeric, "12.30"},
      {"bytes", std::string("\0\xFF", 2), FieldType::Binary, "X'00FF'"},
      {"no bytes", "", FieldType::VarBinary, "X''"},
      {"a date", morning, FieldType::DbTimeStamp, "'2012-03-07 10:42:07'"},
      {"a time of day", morning, FieldType::DbTime, "'10:42:07'"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(literal(row.value, row.type), row.expected);
  }
}

TEST_F(MysqlLiteral, EditedColumnsAreFoundAgain) {
  session_->execute("CREATE TEMPORARY TABLE horas (momento DATETIME(6), hora TIME, bit1 BIT, bits BIT(40))");
  session_->execute("INSERT INTO horas VALUES ('2012-03-07 10:42:07.123457', '10:42:07', 1, 1099511627775)");
  const data::StatementResult result = session_->execute("SELECT momento, hora, bit1, bits FROM horas");
  ASSERT_TRUE(result.cursor->next());
  for (std::size_t i = 0; i < 4; ++i) {
    const data::Column& column = result.cursor->columns()[i];
    SCOPED_TRACE(column.name);
    Variant value;
    result.cursor->read(i, value);
    EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM horas WHERE " + column.name + " = " + literal(value, column.type))),
              shown(std::int64_t{1}));
  }
}

TEST_F(MysqlLiteral, RefusesWhatHasNoLiteral) {
  EXPECT_EQ(errorNumber([&] { literal(std::numeric_limits<double>::infinity(), FieldType::Double); }),
            error_number::kOverflow);
  EXPECT_EQ(errorNumber([&] { literal(std::numeric_limits<double>::quiet_NaN(), FieldType::Double); }),
            error_number::kOverflow);
  EXPECT_EQ(errorNumber([&] { literal(Date(3e6), FieldType::Date); }), error_number::kInvalidCall);
  EXPECT_EQ(errorNumber([&] { literal(Array{}, FieldType::VarWChar); }), error_number::kTypeMismatch);
}

}  // namespace
}  // namespace qvn::test
