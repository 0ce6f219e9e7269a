// Rows: streamed, kept while other statements run, dropped early, cut off by the server.
#include <fstream>

#include "tests/data/drivers/mysql/mysql_fixture.h"

namespace qvn::test {
namespace {

using data::StatementResult;
namespace number = data::provider_number;

constexpr std::int64_t kRows = 5000;
const std::string kManyRows = "SELECT seq, IF(seq % 3, NULL, REPEAT('ñ', seq % 300)) FROM seq_1_to_5000";

class MysqlRows : public MysqlTest {};

// Reads both columns of kManyRows from the row `next` on and checks each.
void expectRowsFrom(data::Cursor& cursor, std::int64_t next) {
  Variant number;
  Variant text;
  for (; cursor.next(); ++next) {
    cursor.read(0, number);
    cursor.read(1, text);
    ASSERT_EQ(number.toLongLong(), next);
    ASSERT_EQ(text.isNull(), next % 3 != 0) << next;
    if (!text.isNull()) {
      ASSERT_EQ(text.getIf<std::string>()->size(), static_cast<std::size_t>(next % 300) * 2);
    }
  }
  EXPECT_EQ(next, kRows + 1);
}

void skip(data::Cursor& cursor, int rows) {
  for (int i = 0; i < rows; ++i) ASSERT_TRUE(cursor.next());
}

TEST_F(MysqlRows, StayValidWhileOtherStatementsRun) {
  const StatementResult outer = session_->execute(kManyRows);
  skip(*outer.cursor, 3);
  const StatementResult inner = session_->execute(kManyRows);  // the row at hand is the third
  skip(*inner.cursor, 1);
  const StatementResult untouched = session_->execute(kManyRows);  // nothing read of it when the next one starts
  EXPECT_EQ(shown(scalar("SELECT 7")), shown(std::int32_t{7}));

  Variant value;
  outer.cursor->read(0, value);
  EXPECT_EQ(value.toLongLong(), 3);
  outer.cursor->read(1, value);
  EXPECT_EQ(shown(value), shown("ñññ"));
  expectRowsFrom(*inner.cursor, 2);
  expectRowsFrom(*outer.cursor, 4);
  expectRowsFrom(*untouched.cursor, 1);
  EXPECT_FALSE(outer.cursor->next());
}

TEST_F(MysqlRows, DroppedEarlyLeaveTheSessionFree) {
  for (const int rows : {0, 1, 100}) {
    SCOPED_TRACE(rows);
    StatementResult result = session_->execute(kManyRows);
    skip(*result.cursor, rows);
    result.cursor.reset();
    EXPECT_EQ(shown(scalar("SELECT 7")), shown(std::int32_t{7}));
  }
  StatementResult first = session_->execute(kManyRows);
  const StatementResult second = session_->execute(kManyRows);
  first.cursor.reset();
  expectRowsFrom(*second.cursor, 1);
}

std::int64_t residentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) return std::stoll(line.substr(6));
  }
  ADD_FAILURE() << "no VmRSS";
  return 0;
}

TEST_F(MysqlRows, StreamInConstantMemory) {
  const StatementResult result = session_->execute("SELECT seq, REPEAT('x', 200) FROM seq_1_to_500000");  // 100 MB
  skip(*result.cursor, 1000);
  const std::int64_t before = residentKilobytes();
  skip(*result.cursor, 499'000);
  EXPECT_FALSE(result.cursor->next());
  EXPECT_LT(residentKilobytes() - before, 10'000);
}

TEST_F(MysqlRows, AProcedureGivesItsFirstResultAndItsLateError) {
  session_->execute("DROP PROCEDURE IF EXISTS dos_resultados");
  session_->execute(
      "CREATE PROCEDURE dos_resultados(falla INT) BEGIN VALUES ('uno'), ('dos'); SELECT 'otro'; "
      "IF falla THEN SIGNAL SQLSTATE '23000' SET MYSQL_ERRNO = 1062, MESSAGE_TEXT = 'repetido'; END IF; END");
  const StatementResult sound = session_->execute("CALL dos_resultados(0)");
  EXPECT_EQ(remaining(*sound.cursor), (std::vector<std::string>{shown("uno"), shown("dos")}));

  for (const bool isHeld : {false, true}) {
    SCOPED_TRACE(isHeld);
    const StatementResult failing = session_->execute("CALL dos_resultados(1)");
    // The error, met while the rows are brought into memory, waits for the cursor that it belongs to.
    if (isHeld) session_->execute("DROP PROCEDURE dos_resultados");
    skip(*failing.cursor, 2);
    EXPECT_EQ(errorNumber([&] { failing.cursor->next(); }), number::kIntegrityViolation);
    EXPECT_FALSE(failing.cursor->next());
  }
}

TEST_F(MysqlRows, AConnectionKilledWhileIdleIsFoundAtTheNextStatement) {
  const std::string killed = scalar("SELECT CONNECTION_ID()").toText();
  const StatementResult result = session_->execute(kManyRows + " WHERE seq < 4");
  skip(*result.cursor, 3);
  another()->execute("KILL CONNECTION " + killed);
  expectFailures(
      "MySQL",
      {{.cause = "SELECT 1", .number = number::kUnspecified, .words = "Se perdió la conexión con el servidor MySQL"}},
      [this](const std::string& sql) { session_->execute(sql); });
  EXPECT_EQ(session_->literal("O'Higgins", data::FieldType::VarWChar), "'O\\'Higgins'");
}

TEST_F(MysqlRows, APacketBiggerThanTheServerTakesIsALostConnection) {
  session_->execute("CREATE TEMPORARY TABLE grandes (foto LONGBLOB)");
  const std::string megabytes(6'000'000, '\xFF');
  session_->execute("INSERT INTO grandes VALUES (" + session_->literal(megabytes, data::FieldType::LongVarBinary) +
                    ")");
  EXPECT_EQ(shown(scalar("SELECT foto FROM grandes")), shown(megabytes));
  EXPECT_EQ(errorNumber([&] { session_->execute("SELECT '" + std::string(17'000'000, 'x') + "'"); }),
            number::kUnspecified);
}

}  // namespace
}  // namespace qvn::test
