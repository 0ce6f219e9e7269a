// Servers that answer with several results, refuse, take long or go away.
#include <algorithm>
#include <ostream>

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;
namespace number = data::provider_number;

std::string tdsConnectionString() { return serverVariable("QVN_TEST_TDS"); }

bool tellsPassword(const data::ProviderError& error) {
  return std::any_of(error.errors().begin(), error.errors().end(),
                     [](const data::ErrorItem& item) { return item.description.find("secreto") != std::string::npos; });
}

TEST(OdbcServer, TellsWhyItDidNotConnect) {
  struct Row {
    std::string connectionString;
    std::int32_t number;
    const char* sqlState;
  };
  const Row rows[] = {
      {tdsConnectionString(), number::kLoginRefused, "28000"},
      {tdsConnectionString() + ";Uid=nadie", number::kLoginRefused, "28000"},
      {tdsConnectionString() + ";Server=127.0.0.1,1", number::kUnspecified, "08001"},
      {mariaDbConnectionString(), number::kLoginRefused, "28000"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(data::withoutPassword(row.connectionString));
    const auto error = providerError([&] { connectTo(row.connectionString + ";Pwd=secreto-1"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number) << error->description();
    ASSERT_FALSE(error->errors().empty());
    EXPECT_EQ(error->errors().front().sqlState, row.sqlState);
    EXPECT_NE(error->description().find("No se abrió «"), std::string::npos) << error->description();
    EXPECT_FALSE(tellsPassword(*error)) << error->description();
  }
}

class OdbcBatch : public testing::Test {
 protected:
  void SetUp() override {
    session_->execute("CREATE TEMP TABLE t (i INTEGER PRIMARY KEY, n INTEGER NOT NULL)");
    session_->execute("INSERT INTO t VALUES (1, 10), (2, 20), (3, 30)");
  }
  std::unique_ptr<data::Session> session_ = connectTo(tdsConnectionString());
};

TEST_F(OdbcBatch, TheFirstResultWithRowsAndTheFirstCount) {
  struct Row {
    const char* sql;
    std::vector<std::string> rows;
    std::int64_t affectedRows;
    const char* left;  // rows of the table afterwards
  };
  const Row rows[] = {
      {"SELECT 7; SELECT 8", {"7"}, 0, "3"},
      {"DELETE FROM t WHERE i = 3; SELECT n FROM t", {"10", "20"}, 1, "2"},
      {"SELECT 7; DELETE FROM t WHERE i = 2; SELECT 8; DELETE FROM t WHERE i = 1", {"7"}, 0, "0"},
      {"INSERT INTO t VALUES (4, 40), (5, 50); DELETE FROM t WHERE i = 5", {}, 2, "1"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.sql);
    data::StatementResult result = session_->execute(row.sql);
    ASSERT_EQ(result.cursor != nullptr, !row.rows.empty());
    EXPECT_EQ(result.affectedRows, row.affectedRows);
    std::vector<std::string> read;
    for (Variant value; result.cursor != nullptr && result.cursor->next();) {
      result.cursor->read(0, value);
      read.push_back(value.toText());
    }
    EXPECT_EQ(read, row.rows);
    result.cursor.reset();
    EXPECT_EQ(scalar(*session_, "SELECT COUNT(*) FROM t").toText(), row.left);
  }
}

TEST_F(OdbcBatch, AnErrorBehindTheRowsIsToldAfterThem) {
  const auto result = session_->execute("SELECT n FROM t; INSERT INTO t VALUES (1, 1); DELETE FROM t WHERE i = 3");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(result.cursor->next());
  EXPECT_EQ(errorNumber([&] { result.cursor->next(); }), number::kIntegrityViolation);
  EXPECT_FALSE(result.cursor->next());
  EXPECT_EQ(scalar(*session_, "SELECT COUNT(*) FROM t").toText(), "2");
}

TEST_F(OdbcBatch, TheFirstErrorDecides) {
  struct Row {
    const char* sql;
    std::int32_t number;
    std::int32_t nativeError;
  };
  static constexpr Row kRows[] = {
      {"INSERT INTO t VALUES (1, 1); INSERT INTO t VALUES (9, NULL); SELEC 1", number::kIntegrityViolation, 2627},
      {"INSERT INTO t VALUES (9, NULL); INSERT INTO t VALUES (1, 1)", number::kIntegrityViolation, 515},
      {"DELETE FROM t WHERE i = 3; SELECT * FROM nada; SELECT 1", number::kNoSuchTable, 208},
      {"SELEC 1; SELECT 1", number::kStatementRefused, 102},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.sql);
    const auto error = providerError([&] { session_->execute(row.sql); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number) << error->description();
    ASSERT_FALSE(error->errors().empty());
    EXPECT_EQ(error->errors().front().nativeError, row.nativeError);
  }
  EXPECT_EQ(scalar(*session_, "SELECT COUNT(*) FROM t").toText(), "2");
}

struct Server {
  const char* name;
  std::string (*connectionString)();
  const char* slowStatement;
  const char* ownNumber;   // statement that gives the session's number
  const char* killEnding;  // what follows that number in the statement that ends the session
};

void PrintTo(const Server& server, std::ostream* out) { *out << server.name; }

const Server kServers[] = {
    {"SqlServerClosed", tdsConnectionString, "WAITFOR DELAY '00:00:20'", "SELECT @@SPID", ""},
    {"SqlServerReset", tdsConnectionString, "WAITFOR DELAY '00:00:20'", "SELECT @@SPID", " WITH RESET"},
    {"MariaDb", mariaDbConnectionString, "SELECT SLEEP(20)", "SELECT CONNECTION_ID()", ""},
};

// A session that has told its loss says so again without asking its server.
void expectLostForGood(data::Session& session) {
  const auto error = providerError([&] { session.execute("SELECT 1"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kUnspecified);
  EXPECT_EQ(error->errors().front().sqlState, "08003") << error->description();
}

class OdbcServers : public testing::TestWithParam<Server> {
 protected:
  /// Ends the session from another one.
  void kill() const { connectTo(GetParam().connectionString())->execute("KILL " + ownNumber_ + GetParam().killEnding); }
  std::unique_ptr<data::Session> session_ = connectTo(GetParam().connectionString());
  std::string ownNumber_ = scalar(*session_, GetParam().ownNumber).toText();
};

TEST_P(OdbcServers, ATimeoutLeavesTheSessionUsable) {
  session_->setCommandTimeout(seconds(1));
  const auto start = steady_clock::now();
  const auto error = providerError([&] { session_->execute(GetParam().slowStatement); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), number::kTimeout) << error->description();
  EXPECT_EQ(error->errors().front().sqlState, "HYT00");
  EXPECT_LT(steady_clock::now() - start, seconds(10));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(scalar(*session_, "SELECT 7").toText(), "7");
}

TEST_P(OdbcServers, AnEndedSessionIsLostForGood) {
  kill();
  EXPECT_EQ(errorNumber([&] { session_->execute("SELECT 1"); }), number::kUnspecified);
  expectLostForGood(*session_);
}

INSTANTIATE_TEST_SUITE_P(Engines, OdbcServers, testing::ValuesIn(kServers),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

class OdbcStream : public OdbcServers {};

TEST_P(OdbcStream, ASessionEndedInMidResultIsLostForGood) {
  const data::StatementResult open = session_->execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000000) SELECT i FROM n");
  ASSERT_TRUE(open.cursor->next());
  kill();
  EXPECT_EQ(errorNumber([&] { remaining(*open.cursor); }), number::kUnspecified);
  EXPECT_FALSE(open.cursor->next());
  expectLostForGood(*session_);
}

// MariaDB's driver has all rows before the first one is read.
INSTANTIATE_TEST_SUITE_P(Streaming, OdbcStream, testing::Values(kServers[0], kServers[1]),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace
}  // namespace qvn::test
