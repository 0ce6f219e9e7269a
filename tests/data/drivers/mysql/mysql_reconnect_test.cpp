// Lost connections that are opened again between statements.
#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/silent_proxy.h"

namespace qvn::test {
namespace {

using data::StatementResult;
using std::chrono::seconds;
namespace number = data::provider_number;

class MysqlReconnect : public MysqlTest {
 protected:
  MysqlReconnect() {
    session_ = connectTo(mysqlConnectionString() + ";Reconnect=Yes");
    session_->execute("CREATE OR REPLACE TABLE qvn_ventas (id INT PRIMARY KEY)");
  }
  ~MysqlReconnect() override { administrator_->execute("DROP TABLE qvn_ventas"); }

  std::string connectionNumber() { return scalar("SELECT CONNECTION_ID()").toText(); }
  // Returns once the session has ended on the server.
  void kill(const std::string& connection) {
    administrator_->execute("KILL CONNECTION " + connection);
    const std::string count = "SELECT COUNT(*) FROM information_schema.processlist WHERE id = " + connection;
    while (test::scalar(*administrator_, count).toLong() != 0) continue;
  }
  std::int32_t lost(const std::string& sql) {
    return errorNumber([&] { session_->execute(sql); });
  }

  std::unique_ptr<data::Session> turn_ = turnOn("qvn_ventas");
  std::unique_ptr<data::Session> administrator_ = another();
};

TEST_F(MysqlReconnect, AnIdleConnectionThatWasClosedIsNotNoticed) {
  const std::string first = connectionNumber();
  kill(first);
  session_->execute("INSERT INTO qvn_ventas VALUES (1)");
  EXPECT_NE(connectionNumber(), first);
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM qvn_ventas")), shown(std::int64_t{1}));
}

// The rest of the transaction would otherwise be stored without its beginning.
TEST_F(MysqlReconnect, NotInATransactionUntilItIsTakenBack) {
  session_->execute("BEGIN");
  session_->execute("INSERT INTO qvn_ventas VALUES (1)");
  kill(connectionNumber());
  EXPECT_EQ(lost("INSERT INTO qvn_ventas VALUES (2)"), number::kUnspecified);
  EXPECT_EQ(lost("INSERT INTO qvn_ventas VALUES (3)"), number::kUnspecified);
  EXPECT_EQ(lost("COMMIT"), number::kUnspecified);
  session_->execute("ROLLBACK");
  session_->execute("INSERT INTO qvn_ventas VALUES (4)");
  EXPECT_EQ(shown(scalar("SELECT SUM(id) FROM qvn_ventas")), shown(Decimal::fromText("4").value()));
}

TEST_F(MysqlReconnect, NotWhileRowsAreOnTheirWay) {
  const std::string killed = connectionNumber();
  const StatementResult rows = session_->execute("SELECT seq, REPEAT('x', 1000) FROM seq_1_to_1000000");
  ASSERT_TRUE(rows.cursor->next());
  kill(killed);
  EXPECT_EQ(lost("SELECT 1"), number::kUnspecified);
  EXPECT_EQ(lost("SELECT 1"), 0);
  EXPECT_EQ(errorNumber([&] {
              while (rows.cursor->next()) continue;
            }),
            number::kUnspecified);
}

class MysqlReconnectOverProxy : public MysqlReconnect {
 protected:
  SilentProxy proxy_{mysqlPort()};
  // The server itself stands behind the proxy in its list.
  std::unique_ptr<data::Session> proxied_ =
      connectTo(mysqlTcpConnectionString() +
                    ";Reconnect=Yes;Connect Timeout=1;SERVER=127.0.0.1:" + std::to_string(proxy_.port()) + ",127.0.0.1",
                seconds(1));
};

// What follows would otherwise be stored one by one on another connection.
TEST_F(MysqlReconnectOverProxy, ATransactionThatBeganLateIsLostWithItsConnection) {
  proxy_.holdNextAnswer();
  proxied_->execute("BEGIN");
  const auto error = errorNumber([&] { proxied_->execute("INSERT INTO qvn_ventas VALUES (1)"); });
  EXPECT_EQ(error, number::kUnspecified);
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM qvn_ventas")), shown(std::int64_t{0}));
  proxied_->execute("ROLLBACK");
  proxied_->execute("INSERT INTO qvn_ventas VALUES (2)");
}

// Nobody knows whether it was done.
TEST_F(MysqlReconnectOverProxy, AStatementWhoseAnswerWasLostIsNotRepeated) {
  const std::string first = test::scalar(*proxied_, "SELECT CONNECTION_ID()").toText();
  proxy_.goSilent();
  EXPECT_EQ(errorNumber([&] { proxied_->execute("INSERT INTO qvn_ventas VALUES (1)"); }), number::kUnspecified);
  EXPECT_EQ(test::shown(test::scalar(*proxied_, "SELECT COUNT(*) FROM qvn_ventas")), shown(std::int64_t{0}));
  EXPECT_NE(test::scalar(*proxied_, "SELECT CONNECTION_ID()").toText(), first);
}

TEST_F(MysqlReconnect, KeepsTheLimitOfLockWaits) {
  session_->setCommandTimeout(seconds(5));
  kill(connectionNumber());
  EXPECT_EQ(scalar("SELECT @@innodb_lock_wait_timeout").toText(), "4");
}

}  // namespace
}  // namespace qvn::test
