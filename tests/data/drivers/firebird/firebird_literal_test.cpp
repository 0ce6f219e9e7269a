// Literals are judged by what the engine reads back from them.
#include <cmath>
#include <limits>

#include "qvn/base/runtime_error.h"
#include "tests/data/drivers/firebird/firebird_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

class FirebirdLiteral : public FirebirdTest {
 protected:
  std::string literal(const Variant& value, FieldType type) { return session_->literal(value, type); }
};

TEST_F(FirebirdLiteral, NastyTextsComeBack) {
  const std::string texts[] = {
      "",
      "O'Higgins",
      "\\'",
      "'); DROP TABLE prods; -- ",
      "\"comillas\" y `acentos`",
      "línea\r\notra\x1A\ttab",
      "🍕 ñ á /* */ ?",
      std::string(20'000, '\''),
  };
  session_->execute("CREATE TABLE textos (v BLOB SUB_TYPE TEXT)");
  for (const std::string& text : texts) {
    SCOPED_TRACE(text.substr(0, 30));
    session_->execute("DELETE FROM textos");
    session_->execute("INSERT INTO textos VALUES (" + literal(text, FieldType::LongVarWChar) + ")");
    EXPECT_EQ(shown(scalar("SELECT v FROM textos")), shown(text));
  }
}

TEST_F(FirebirdLiteral, ATextWithNulComesBackAndIsFoundAgain) {
  session_->execute("CREATE TABLE textos (v VARCHAR(20))");
  const std::string quoted = literal(std::string("antes\0después", 14), FieldType::VarWChar);
  session_->execute("INSERT INTO textos VALUES (" + quoted + ")");
  EXPECT_EQ(shown(scalar("SELECT v FROM textos WHERE v = " + quoted)), shown(std::string("antes\0después", 14)));
  EXPECT_EQ(shown(scalar("SELECT CHAR_LENGTH(v) FROM textos")), shown(std::int32_t{13}));
}

TEST_F(FirebirdLiteral, BytesComeBackFromABinaryColumn) {
  session_->execute("CREATE TABLE fotos (foto BLOB)");
  std::string bytes = allBytes() + "'\\";
  for (int i = 0; i < 2; ++i) {
    SCOPED_TRACE(bytes.size());
    session_->execute("DELETE FROM fotos");
    session_->execute("INSERT INTO fotos VALUES (" + literal(bytes, FieldType::LongVarBinary) + ")");
    EXPECT_EQ(shown(scalar("SELECT foto FROM fotos")), shown(bytes));
    while (bytes.size() < 100'000) bytes += bytes;
  }
}

TEST_F(FirebirdLiteral, WriteEachKindOfValue) {
  struct Row {
    const char* why;
    Variant value;
    FieldType type;
    std::string expected;
  };
  const Date morning = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  const Row rows[] = {
      {"NULL", Null{}, FieldType::VarWChar, "NULL"},
      {"NULL of a Boolean", Null{}, FieldType::Boolean, "NULL"},
      {"true", true, FieldType::Boolean, "TRUE"},
      {"a number for a Boolean", std::int32_t{0}, FieldType::Boolean, "FALSE"},
      {"true for a number", true, FieldType::Integer, "1"},
      {"a Double with all its digits", 0.1 + 0.2, FieldType::Double, "3.0000000000000004e-01"},
      {"a Double for an exact number", 12.5, FieldType::Numeric, "12.5"},
      {"a Decimal keeps its zeros", *Decimal::fromText("12.30"), FieldType::Numeric, "12.30"},
      {"bytes", std::string("\0\xFF", 2), FieldType::Binary, "X'00FF'"},
      {"a date and a time", morning, FieldType::DbTimeStamp, "TIMESTAMP '2012-03-07 10:42:07'"},
      {"a day", morning, FieldType::Date, "DATE '2012-03-07'"},
      {"a day for the other date type", morning, FieldType::DbDate, "DATE '2012-03-07'"},
      {"a time of day", morning, FieldType::DbTime, "TIME '10:42:07'"},
      {"a date for a text", morning, FieldType::VarWChar, "'2012-03-07 10:42:07'"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(literal(row.value, row.type), row.expected);
  }
}

TEST_F(FirebirdLiteral, EditedColumnsAreFoundAgain) {
  session_->execute(
      "CREATE TABLE horas (momento TIMESTAMP, futuro TIMESTAMP, pasado TIMESTAMP, dia DATE, hora TIME, "
      "vigente BOOLEAN, doble DOUBLE PRECISION, precio NUMERIC(12,2), clave CHAR(5), nota BLOB SUB_TYPE TEXT)");
  session_->execute(
      "INSERT INTO horas VALUES ('2012-03-07 10:42:07.1235', '2299-03-07 10:42:07.9999', '1899-12-29 18:00:00.0001', "
      "'2012-03-07', '10:42:07.0003', TRUE, 1e0 / 3e0, 1234.5, 'ñ', '" +
      std::string(40'000, 'x') + "')");
  const data::StatementResult result = session_->execute("SELECT * FROM horas");
  ASSERT_TRUE(result.cursor->next());
  ASSERT_EQ(result.cursor->columns().size(), 10u);
  for (std::size_t i = 0; i < 10; ++i) {
    const data::Column& column = result.cursor->columns()[i];
    Variant value;
    result.cursor->read(i, value);
    const std::string quoted = literal(value, column.type);
    SCOPED_TRACE(column.name + " = " + quoted.substr(0, 60));
    EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM horas WHERE " + column.name + " = " + quoted)),
              shown(std::int64_t{1}));
  }
}

TEST_F(FirebirdLiteral, RefusesWhatHasNoLiteral) {
  EXPECT_EQ(errorNumber([&] { literal(std::numeric_limits<double>::infinity(), FieldType::Double); }),
            error_number::kOverflow);
  EXPECT_EQ(errorNumber([&] { literal(Date(3e6), FieldType::Date); }), error_number::kInvalidCall);
  EXPECT_EQ(errorNumber([&] { literal(Array{}, FieldType::VarWChar); }), error_number::kTypeMismatch);
}

}  // namespace
}  // namespace qvn::test
