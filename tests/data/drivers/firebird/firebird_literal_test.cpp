// Literals are judged by what the engine reads back from them.
#include "tests/data/drivers/firebird/firebird_fixture.h"
#include "tests/support/column_types.h"

namespace qvn::test {
namespace {

using data::FieldType;

class FirebirdLiteral : public FirebirdTest {};

TEST_F(FirebirdLiteral, ATextWithNulComesBackAndIsFoundAgain) {
  session_->execute("CREATE TABLE textos (v VARCHAR(20))");
  const std::string text("antes\0después", 14);
  const std::string quoted = session_->literal(text, FieldType::VarWChar);
  session_->execute("INSERT INTO textos VALUES (" + quoted + ")");
  EXPECT_EQ(shown(scalar("SELECT v FROM textos WHERE v = " + quoted)), shown(text));
  EXPECT_EQ(shown(scalar("SELECT CHAR_LENGTH(v) FROM textos")), shown(std::int32_t{13}));
}

TEST_F(FirebirdLiteral, WriteEachKindOfValue) {
  const Date morning = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  const LiteralRow rows[] = {
      {"NULL", Null{}, FieldType::VarWChar, "NULL"},
      {"NULL of a Boolean", Null{}, FieldType::Boolean, "NULL"},
      {"true", true, FieldType::Boolean, "TRUE"},
      {"a number for a Boolean", std::int32_t{0}, FieldType::Boolean, "FALSE"},
      {"true for a number", true, FieldType::Integer, "1"},
      {"a Double with all its digits", 0.1 + 0.2, FieldType::Double, "3.0000000000000004e-01"},
      {"a Double for an exact number", 12.5, FieldType::Numeric, "12.5"},
      {"a Decimal keeps its zeros", decimal("12.30"), FieldType::Numeric, "12.30"},
      {"bytes", std::string("\0\xFF", 2), FieldType::Binary, "X'00FF'"},
      {"a date and a time", morning, FieldType::DbTimeStamp, "TIMESTAMP '2012-03-07 10:42:07'"},
      {"a day", morning, FieldType::Date, "DATE '2012-03-07'"},
      {"a day for the other date type", morning, FieldType::DbDate, "DATE '2012-03-07'"},
      {"a time of day", morning, FieldType::DbTime, "TIME '10:42:07'"},
      {"a date for a text", morning, FieldType::VarWChar, "'2012-03-07 10:42:07'"},
  };
  expectLiterals(*session_, rows);
}

TEST_F(FirebirdLiteral, EditedColumnsAreFoundAgain) {
  session_->execute(
      "CREATE TABLE horas (momento TIMESTAMP, futuro TIMESTAMP, pasado TIMESTAMP, dia DATE, hora TIME, "
      "vigente BOOLEAN, doble DOUBLE PRECISION, precio NUMERIC(12,2), clave CHAR(5), nota BLOB SUB_TYPE TEXT)");
  session_->execute(
      "INSERT INTO horas VALUES ('2012-03-07 10:42:07.1235', '2299-03-07 10:42:07.9999', '1899-12-29 18:00:00.0001', "
      "'2012-03-07', '10:42:07.0003', TRUE, 1e0 / 3e0, 1234.5, 'ñ', '" +
      std::string(40'000, 'x') + "')");
  expectFoundAgain(*session_, "horas", 10);
}

}  // namespace
}  // namespace qvn::test
