// A transaction that the server takes back while the rows of a locking read are on their way.
#include "tests/data/drivers/mysql/mysql_fixture.h"

namespace qvn::test {
namespace {

using data::StatementResult;
namespace number = data::provider_number;

constexpr std::size_t kRows = 200;

// The victim reads and locks the rows of qvn_filas from the first on; the winner holds one of the last, so that many
// rows have arrived when it asks for what the victim holds. Having written far less, the victim is the one that the
// engine takes back.
class MysqlDeadlock : public MysqlTest {
 protected:
  MysqlDeadlock() {
    session_->execute("CREATE OR REPLACE TABLE qvn_filas (id INT PRIMARY KEY, relleno CHAR(250), n INT) ENGINE=InnoDB");
    session_->execute("INSERT INTO qvn_filas SELECT seq, REPEAT('x', 250), 0 FROM seq_1_to_200");
    session_->execute("CREATE OR REPLACE TABLE qvn_escrito (id INT PRIMARY KEY) ENGINE=InnoDB");
    winner_->execute("BEGIN");
    winner_->execute("INSERT INTO qvn_escrito SELECT seq FROM seq_1_to_5000");
    winner_->execute("UPDATE qvn_filas SET n = 1 WHERE id = 190");
  }
  ~MysqlDeadlock() override {
    winner_->execute("ROLLBACK");
    session_->execute("DROP TABLE qvn_filas, qvn_escrito");
  }

  StatementResult read() {
    session_->execute("BEGIN");
    session_->execute("INSERT INTO qvn_escrito VALUES (9999)");
    StatementResult rows = session_->execute("SELECT id, relleno FROM qvn_filas ORDER BY id FOR UPDATE");
    EXPECT_TRUE(rows.cursor->next());
    return rows;
  }
  // Returns once the victim's transaction has been taken back.
  void win() { winner_->execute("UPDATE qvn_filas SET n = 1 WHERE id = 1"); }

  template <typename Call>
  static void expectDeadlock(Call call) {
    expectFailures("MySQL", {{"deadlock", number::kStatementRefused, 1213, "40001", "", true}},
                   [&](const std::string& /*cause*/) { call(); });
  }

  std::unique_ptr<data::Session> turn_ = turnOn("qvn_filas");
  std::unique_ptr<data::Session> winner_ = another();
};

TEST_F(MysqlDeadlock, IsNotTheEndOfTheRows) {
  const StatementResult rows = read();
  win();
  std::size_t count = 1;
  expectDeadlock([&] {
    while (rows.cursor->next()) ++count;
  });
  EXPECT_GT(count, 1u);
  EXPECT_LT(count, kRows);
  EXPECT_FALSE(rows.cursor->next());
}

TEST_F(MysqlDeadlock, FailsTheStatementThatStartsWhileItArrivesAndTheCursor) {
  const StatementResult rows = read();
  win();
  expectDeadlock([&] { session_->execute("SELECT 7"); });
  EXPECT_EQ(shown(scalar("SELECT 7")), shown(std::int32_t{7}));
  expectDeadlock([&] {
    while (rows.cursor->next()) continue;
  });
}

// What comes next would run outside the transaction that the host believes in.
TEST_F(MysqlDeadlock, BehindRowsThatNobodyReadFailsTheNextStatement) {
  StatementResult rows = read();
  win();
  rows.cursor.reset();
  expectDeadlock([&] { session_->execute("INSERT INTO qvn_escrito VALUES (10000)"); });
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM qvn_escrito WHERE id > 5000")), shown(std::int64_t{0}));
}

TEST_F(MysqlDeadlock, BehindRowsThatNobodyReadLeavesNothingToRollBack) {
  StatementResult rows = read();
  win();
  rows.cursor.reset();
  session_->execute("ROLLBACK");
  EXPECT_EQ(shown(scalar("SELECT 7")), shown(std::int32_t{7}));
}

TEST_F(MysqlDeadlock, OutsideATransactionIsNothingToTheNextStatement) {
  StatementResult rows = session_->execute("SELECT id, relleno FROM qvn_filas ORDER BY id FOR UPDATE");
  ASSERT_TRUE(rows.cursor->next());
  win();
  rows.cursor.reset();
  EXPECT_EQ(shown(scalar("SELECT 7")), shown(std::int32_t{7}));
}

}  // namespace
}  // namespace qvn::test
