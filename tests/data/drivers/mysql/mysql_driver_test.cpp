#include "qvn/data/drivers/mysql/mysql_driver.h"

#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/silent_proxy.h"

namespace qvn::test {
namespace {

using data::StatementResult;
using std::chrono::seconds;
using std::chrono::steady_clock;
namespace number = data::provider_number;

void connectBriefly(const std::string& connectionString) { connectTo(connectionString, seconds(1)); }

TEST(MysqlDriver, ServesConnectionStringsThatNameIt) {
  expectServed(*data::mysqlDriver(), {{"MySQL;SERVER=caja", true},
                                      {"Provider=MySQLProv;Data Source=caja", true},
                                      {"provider=mysql", true},
                                      {"Driver={MySQL ODBC 5.1 Driver};SERVER=caja", true},
                                      {"Provider=SQLite;x=MySQL", false},
                                      {"Provider=MySQ", false},
                                      {"DSN=MySQL", false},
                                      {"", false}});
}

TEST(MysqlDriver, TellsWhyALogInFailed) {
  std::vector<Failure> failures = {
      {mysqlTcpConnectionString() + ";PWD=secreto-1", number::kLoginRefused, 1045, "28000", "«qvn»"},
      {mysqlConnectionString() + ";UID=nadie;PWD=secreto-1", number::kLoginRefused, 1045, "28000", "«nadie»"},
      {mysqlTcpConnectionString() + ";DATABASE=mysql", number::kLoginRefused, 1044, "42000", "«qvn»"},
      {mysqlConnectionString() + ";DATABASE=no_hay", number::kUnspecified, 1049, "42000", "no_hay"},
      {"MySQL;SERVER=127.0.0.1;PORT=1;UID=root;PWD=secreto-1", number::kUnspecified, 2002, "HY000", "«127.0.0.1:1»"},
      {"MySQL;SOCKET=/nonexistent/s;UID=root;PWD=secreto-1", number::kUnspecified, 2002, "HY000", "«/nonexistent/s»"},
      {"MySQL;SERVER=no-hay.invalid;UID=root;PWD=secreto-1", number::kUnspecified, 2005, "HY000", "«no-hay.invalid»"},
  };
  for (const char* const port : {"0", "65536", "-1", "33o6", "3306 5", "99999999999"}) {
    failures.push_back({std::string("MySQL;SERVER=127.0.0.1;PORT=") + port, number::kBadConnectionString});
  }
  expectFailures("MySQL", failures, connectBriefly);
}

TEST(MysqlDriver, GivesUpOnAServerThatNeverGreets) {
  SilentProxy network(mysqlPort());
  network.goSilent();
  const auto start = steady_clock::now();
  const std::string server = "MySQL;SERVER=127.0.0.1;PORT=" + std::to_string(network.port());
  EXPECT_EQ(errorNumber([&] { connectBriefly(server); }), number::kUnspecified);
  EXPECT_LT(steady_clock::now() - start, seconds(4));
}

TEST(MysqlDriver, TheRequestsUserAndPasswordGoFirst) {
  const data::ConnectionString parameters(mysqlTcpConnectionString());
  const std::string password = *parameters.value({"PWD"});
  const data::ConnectionString wrong(mysqlTcpConnectionString() + ";UID=nadie;PWD=nada");
  EXPECT_NE(data::mysqlDriver()->connect({wrong, "qvn", password, {}}), nullptr);
}

class MysqlStatement : public MysqlTest {};

TEST_F(MysqlStatement, TellsTheFirstNumberOfTheRowsThatItInserted) {
  session_->execute("CREATE TEMPORARY TABLE caja (id INT AUTO_INCREMENT PRIMARY KEY, abono INT)");
  const StatementResult inserted = session_->execute("INSERT INTO caja (abono) VALUES (7), (7), (9)");
  EXPECT_EQ(inserted.affectedRows, 3);
  EXPECT_EQ(inserted.insertedNumber, 1);
  EXPECT_EQ(session_->execute("INSERT INTO caja (abono) VALUES (9)").insertedNumber, 4);
  EXPECT_EQ(session_->execute("DELETE FROM caja WHERE abono = 8").insertedNumber, 0);
}

TEST_F(MysqlStatement, ErrorsKeepTheEnginesCodeAndWords) {
  session_->execute("CREATE TEMPORARY TABLE claves (id INT PRIMARY KEY, nombre VARCHAR(9) NOT NULL)");
  session_->execute("INSERT INTO claves VALUES (1, 'uno')");
  const std::vector<Failure> failures = {
      {"SELEC 1", number::kStatementRefused, 1064, "42000", "SELEC 1"},
      {"SELECT 1; SELECT 2", number::kStatementRefused, 1064, "42000", "SELECT 2"},
      {"SELECT * FROM no_existe", number::kNoSuchTable, 1146, "42S02", "no_existe"},
      {"DROP TABLE no_existe", number::kNoSuchTable, 1051, "42S02", "no_existe"},
      {"SELECT eñe FROM claves", number::kStatementRefused, 1054, "42S22", "'eñe'"},
      {"INSERT INTO claves VALUES (1, 'dos')", number::kIntegrityViolation, 1062, "23000", "Duplicate entry"},
      {"INSERT INTO claves VALUES (2, NULL)", number::kIntegrityViolation, 1048, "23000", "nombre"},
      {"SIGNAL SQLSTATE '40001' SET MYSQL_ERRNO = 1213", number::kStatementRefused, 1213, "40001", "", true},
      {"SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1205", number::kTimeout, 1205, "HY000", "", true},
      {"SIGNAL SQLSTATE '70100' SET MYSQL_ERRNO = 1969", number::kTimeout, 1969, "70100"},
      {"SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1020", number::kRowChanged, 1020, "HY000"},
      {"SIGNAL SQLSTATE '08S01' SET MYSQL_ERRNO = 1047", number::kUnspecified, 1047, "08S01", "vuelva a conectarse"},
      {"LOAD DATA LOCAL INFILE '/etc/hostname' INTO TABLE claves", number::kStatementRefused, 4166, "HY000"},
  };
  expectFailures("MySQL", failures, [this](const std::string& sql) { session_->execute(sql); });
  EXPECT_EQ(shown(scalar("SELECT COUNT(*) FROM claves")), shown(std::int64_t{1}));
}

TEST(MysqlStatementRights, RefuseTheStatementNotTheLogIn) {
  const auto session = connectTo(mysqlTcpConnectionString());
  EXPECT_EQ(errorNumber([&] { session->execute("SELECT * FROM mysql.user"); }), number::kStatementRefused);
  EXPECT_EQ(errorNumber([&] { session->execute("USE mysql"); }), number::kStatementRefused);
}

// The columns' descriptions are more than the server keeps before it sends, so that they come long before the first
// row.
std::string slowWideStatement() {
  std::string sql = "SELECT SLEEP(5)";
  for (int i = 0; i < 600; ++i) sql += ", 1 AS una_columna_de_nombre_largo_" + std::to_string(i);
  return sql;
}

TEST(MysqlTimeout, CancelsTheStatementAndKeepsTheSession) {
  for (const std::string& connectionString : {mysqlConnectionString(), mysqlTcpConnectionString()}) {
    const auto session = connectTo(connectionString, seconds(1));
    const std::string slow[] = {"SELECT SLEEP(5)", "CREATE TEMPORARY TABLE lenta AS SELECT SLEEP(5)",
                                slowWideStatement()};
    for (const std::string& sql : slow) {
      const auto start = steady_clock::now();
      expectFailures("MySQL", {{sql, number::kTimeout, 1317}},
                     [&](const std::string& text) { session->execute(text); });
      const auto time = steady_clock::now() - start;
      EXPECT_GE(time, seconds(1));
      EXPECT_LT(time, seconds(4));
      EXPECT_EQ(remaining(*session->execute("SELECT 'sigo'").cursor), std::vector<std::string>{shown("sigo")});
    }
  }
}

TEST(MysqlTimeout, CountsForEachStatementAndZeroIsNone) {
  const auto session = connectTo(mysqlConnectionString(), seconds(1));
  const StatementResult open = session->execute("SELECT seq FROM seq_1_to_5000");
  EXPECT_EQ(errorNumber([&] { session->execute("SELECT SLEEP(5)"); }), number::kTimeout);
  EXPECT_EQ(remaining(*open.cursor).size(), 5000u);
  session->setCommandTimeout(seconds(0));
  EXPECT_EQ(errorNumber([&] { session->execute("SELECT SLEEP(1.5)"); }), 0);
}

// The engine answers that DO is done although it was told to end it. So it is with a COMMIT that was done just in time:
// taken for a failure, it would be made twice.
TEST(MysqlTimeout, AStatementThatTheServerFinishedIsNoFailure) {
  const auto session = connectTo(mysqlConnectionString(), seconds(1));
  const auto start = steady_clock::now();
  EXPECT_EQ(errorNumber([&] { session->execute("DO SLEEP(5)"); }), 0);
  EXPECT_LT(steady_clock::now() - start, seconds(4));
  EXPECT_EQ(remaining(*session->execute("SELECT 'sigo'").cursor), std::vector<std::string>{shown("sigo")});
}

// Here the second log-in, which would bring the order, is refused.
TEST(MysqlTimeout, AServerThatTakesNoOrderLosesTheConnection) {
  const auto administrator = connectTo(mysqlConnectionString());
  administrator->execute("CREATE OR REPLACE USER qvn_una@'%' WITH MAX_USER_CONNECTIONS 1");
  const auto session = connectTo(mysqlTcpConnectionString() + ";UID=qvn_una;PWD=;DATABASE=", seconds(1));
  const auto start = steady_clock::now();
  EXPECT_EQ(errorNumber([&] { session->execute("SELECT SLEEP(5)"); }), number::kUnspecified);
  EXPECT_LT(steady_clock::now() - start, seconds(4));
  EXPECT_EQ(errorNumber([&] { session->execute("SELECT 1"); }), number::kUnspecified);
  administrator->execute("DROP USER qvn_una@'%'");
}

}  // namespace
}  // namespace qvn::test
