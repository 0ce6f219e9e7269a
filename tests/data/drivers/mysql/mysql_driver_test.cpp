#include "qvn/data/drivers/mysql/mysql_driver.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/data/drivers/mysql/mysql_fixture.h"
#include "tests/support/provider_error_of.h"

namespace qvn::test {
namespace {

using data::StatementResult;
using std::chrono::seconds;
using std::chrono::steady_clock;
namespace number = data::provider_number;

std::optional<data::ProviderError> connectError(const std::string& connectionString) {
  return providerError([&] { connectTo(connectionString, seconds(1)); });
}

TEST(MysqlDriver, ServesConnectionStringsThatNameIt) {
  struct Row {
    const char* text;
    bool expected;
  };
  static constexpr Row kRows[] = {
      {"MySQL;SERVER=caja", true},
      {"Provider=MySQLProv;Data Source=caja", true},
      {"provider=mysql", true},
      {"Driver={MySQL ODBC 5.1 Driver};SERVER=caja", true},
      {"Provider=SQLite;x=MySQL", false},
      {"Provider=MySQ", false},
      {"DSN=MySQL", false},
      {"", false},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(data::mysqlDriver()->accepts(data::ConnectionString(row.text)), row.expected) << row.text;
  }
}

TEST(MysqlDriver, RefusesBadPortsBeforeConnecting) {
  for (const char* const port : {"0", "65536", "-1", "33o6", "3306 5", "99999999999"}) {
    SCOPED_TRACE(port);
    const auto error = connectError(std::string("MySQL;SERVER=127.0.0.1;PORT=") + port);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), number::kBadConnectionString);
  }
}

TEST(MysqlDriver, TellsWhyALogInFailed) {
  struct Row {
    const char* why;
    std::string connectionString;
    std::int32_t number;
    std::int32_t nativeError;
    std::string words;
  };
  const Row rows[] = {
      {"wrong password", mysqlTcpConnectionString() + ";PWD=secreto-1", number::kLoginRefused, 1045, "«qvn»"},
      {"wrong user", mysqlConnectionString() + ";UID=nadie;PWD=secreto-1", number::kLoginRefused, 1045, "«nadie»"},
      {"no right to the database", mysqlTcpConnectionString() + ";DATABASE=mysql", number::kLoginRefused, 1044,
       "«qvn»"},
      {"no such database", mysqlConnectionString() + ";DATABASE=no_hay", number::kUnspecified, 1049, "no_hay"},
      {"nobody listens", "MySQL;SERVER=127.0.0.1;PORT=1;UID=root;PWD=secreto-1", number::kUnspecified, 2002,
       "«127.0.0.1:1»"},
      {"no such socket", "MySQL;SOCKET=/nonexistent/s;UID=root;PWD=secreto-1", number::kUnspecified, 2002,
       "«/nonexistent/s»"},
      {"no such host", "MySQL;SERVER=no-hay.invalid;UID=root;PWD=secreto-1", number::kUnspecified, 2005,
       "«no-hay.invalid»"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const auto error = connectError(row.connectionString);
    ASSERT_TRUE(error);
    ASSERT_EQ(error->errors().size(), 1u);
    const data::ErrorItem& item = error->errors().front();
    EXPECT_EQ(item.number, row.number);
    EXPECT_EQ(item.nativeError, row.nativeError);
    EXPECT_EQ(item.sqlState.size(), 5u);
    EXPECT_EQ(item.source, "MySQL");
    EXPECT_NE(item.description.find(row.words), std::string::npos) << item.description;
    EXPECT_EQ(item.description.find("secreto"), std::string::npos) << item.description;
  }
}

// A listening socket of which nobody ever answers.
class SilentServer {
 public:
  SilentServer() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, generic, size) != 0 || listen(socket_, 1) != 0 || getsockname(socket_, generic, &size) != 0) {
      throw std::runtime_error("no listening socket");
    }
    port_ = ntohs(address.sin_port);
  }
  ~SilentServer() { close(socket_); }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  [[nodiscard]] int port() const { return port_; }

 private:
  int socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  int port_ = 0;
};

TEST(MysqlDriver, GivesUpOnAServerThatNeverGreets) {
  const SilentServer server;
  const auto start = steady_clock::now();
  const auto error = connectError("MySQL;SERVER=127.0.0.1;PORT=" + std::to_string(server.port()));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kUnspecified);
  EXPECT_LT(steady_clock::now() - start, seconds(4));
}

TEST(MysqlDriver, TheRequestsUserAndPasswordGoFirst) {
  const data::ConnectionString parameters(mysqlTcpConnectionString());
  const std::string password = *parameters.value({"PWD"});
  const data::ConnectionString wrong(mysqlTcpConnectionString() + ";UID=nadie;PWD=nada");
  EXPECT_NE(data::mysqlDriver()->connect({wrong, "qvn", password, {}}), nullptr);
}

class MysqlStatement : public MysqlTest {};

TEST_F(MysqlStatement, CountsTheRowsThatMatched) {
  session_->execute("CREATE TEMPORARY TABLE caja (id INT AUTO_INCREMENT PRIMARY KEY, abono INT)");
  const StatementResult inserted = session_->execute("INSERT INTO caja (abono) VALUES (7), (7), (9)");
  EXPECT_EQ(inserted.affectedRows, 3);
  EXPECT_EQ(inserted.insertedNumber, 1);
  EXPECT_EQ(session_->execute("INSERT INTO caja (abono) VALUES (9)").insertedNumber, 4);
  EXPECT_EQ(session_->execute("UPDATE caja SET abono = 7 WHERE abono = 7").affectedRows, 2);
  const StatementResult none = session_->execute("DELETE FROM caja WHERE abono = 8");
  EXPECT_EQ(none.affectedRows, 0);
  EXPECT_EQ(none.insertedNumber, 0);
  EXPECT_EQ(none.cursor, nullptr);
}

TEST_F(MysqlStatement, ErrorsKeepTheEnginesCodeAndWords) {
  session_->execute("CREATE TEMPORARY TABLE claves (id INT PRIMARY KEY, nombre VARCHAR(9) NOT NULL)");
  session_->execute("INSERT INTO claves VALUES (1, 'uno')");
  struct Row {
    const char* sql;
    std::int32_t number;
    std::int32_t nativeError;
    const char* sqlState;
    const char* words;
  };
  static constexpr Row kRows[] = {
      {"SELEC 1", number::kStatementRefused, 1064, "42000", "SELEC 1"},
      {"SELECT 1; SELECT 2", number::kStatementRefused, 1064, "42000", "SELECT 2"},
      {"SELECT * FROM no_existe", number::kNoSuchTable, 1146, "42S02", "no_existe"},
      {"DROP TABLE no_existe", number::kNoSuchTable, 1051, "42S02", "no_existe"},
      {"SELECT eñe FROM claves", number::kStatementRefused, 1054, "42S22", "'eñe'"},
      {"INSERT INTO claves VALUES (1, 'dos')", number::kIntegrityViolation, 1062, "23000", "Duplicate entry"},
      {"INSERT INTO claves VALUES (2, NULL)", number::kIntegrityViolation, 1048, "23000", "nombre"},
      {"SIGNAL SQLSTATE '40001' SET MYSQL_ERRNO = 1213", number::kStatementRefused, 1213, "40001", ""},
      {"SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1205", number::kTimeout, 1205, "HY000", ""},
      {"SIGNAL SQLSTATE '70100' SET MYSQL_ERRNO = 1969", number::kTimeout, 1969, "70100", ""},
      {"SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = 1020", number::kRowChanged, 1020, "HY000", ""},
      {"SIGNAL SQLSTATE '08S01' SET MYSQL_ERRNO = 1047", number::kUnspecified, 1047, "08S01", "vuelva a conectarse"},
      {"LOAD DATA LOCAL INFILE '/etc/hostname' INTO TABLE claves", number::kStatementRefused, 4166, "HY000", ""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.sql);
    const auto error = providerError([&] { session_->execute(row.sql); });
    ASSERT_TRUE(error);
    const data::ErrorItem& item = error->errors().front();
    EXPECT_EQ(item.number, row.number);
    EXPECT_EQ(item.nativeError, row.nativeError);
    EXPECT_EQ(item.sqlState, row.sqlState);
    EXPECT_EQ(item.source, "MySQL");
    EXPECT_NE(item.description.find(row.words), std::string::npos) << item.description;
  }
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
      SCOPED_TRACE(sql.substr(0, 60));
      const auto start = steady_clock::now();
      const auto error = providerError([&] { session->execute(sql); });
      const auto time = steady_clock::now() - start;
      ASSERT_TRUE(error);
      EXPECT_EQ(error->number(), number::kTimeout);
      EXPECT_EQ(error->errors().front().nativeError, 1317);
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
