// Servers that answer with several results, refuse, take long or go away.
#include <ostream>

#include "tests/data/drivers/odbc/odbc_fixture.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

std::string tdsConnectionString() { return serverVariable("QVN_TEST_TDS"); }

TEST(OdbcServer, TellsWhyItDidNotConnect) {
  const std::string words = "No se abrió «";
  const std::vector<Failure> failures = {
      {tdsConnectionString(), number::kLoginRefused, {}, "28000", words},
      {tdsConnectionString() + ";Uid=nadie", number::kLoginRefused, {}, "28000", words},
      {tdsConnectionString() + ";Server=127.0.0.1,1", number::kUnspecified, {}, "08001", words},
      {mariaDbConnectionString(), number::kLoginRefused, {}, "28000", words},
  };
  expectFailures("ODBC", failures, [](const std::string& right) { connectTo(right + ";Pwd=secreto-1"); });
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
      {"SELECT 7; SELECT 8", {shown(std::int32_t{7})}, 0, "3"},
      {"DELETE FROM t WHERE i = 3; SELECT n FROM t", {shown(std::int32_t{10}), shown(std::int32_t{20})}, 1, "2"},
      {"SELECT 7; DELETE FROM t WHERE i = 2; SELECT 8; DELETE FROM t WHERE i = 1", {shown(std::int32_t{7})}, 0, "0"},
      {"INSERT INTO t VALUES (4, 40), (5, 50); DELETE FROM t WHERE i = 5", {}, 2, "1"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.sql);
    data::StatementResult result = session_->execute(row.sql);
    ASSERT_EQ(result.cursor != nullptr, !row.rows.empty());
    EXPECT_EQ(result.affectedRows, row.affectedRows);
    if (result.cursor != nullptr) {
      EXPECT_EQ(remaining(*result.cursor), row.rows);
    }
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
  const std::vector<Failure> failures = {
      {"INSERT INTO t VALUES (1, 1); INSERT INTO t VALUES (9, NULL); SELEC 1", number::kIntegrityViolation, 2627},
      {"INSERT INTO t VALUES (9, NULL); INSERT INTO t VALUES (1, 1)", number::kIntegrityViolation, 515},
      {"DELETE FROM t WHERE i = 3; SELECT * FROM nada; SELECT 1", number::kNoSuchTable, 208},
      {"SELEC 1; SELECT 1", number::kStatementRefused, 102},
  };
  expectFailures("ODBC", failures, [this](const std::string& sql) { session_->execute(sql); });
  EXPECT_EQ(scalar(*session_, "SELECT COUNT(*) FROM t").toText(), "2");
}

struct Server {
  const char* name;
  std::string (*connectionString)();
  const char* ownNumber;   // statement that gives the session's number
  const char* killEnding;  // what follows that number in the statement that ends the session
};

void PrintTo(const Server& server, std::ostream* out) { *out << server.name; }

const Server kServers[] = {
    {"SqlServerClosed", tdsConnectionString, "SELECT @@SPID", ""},
    {"SqlServerReset", tdsConnectionString, "SELECT @@SPID", " WITH RESET"},
    {"MariaDb", mariaDbConnectionString, "SELECT CONNECTION_ID()", ""},
};

// A session that has told its loss says so again without asking its server.
void expectLostForGood(data::Session& session) {
  expectFailures("ODBC", {{"SELECT 1", number::kUnspecified, {}, "08003"}},
                 [&](const std::string& sql) { session.execute(sql); });
}

class OdbcServers : public testing::TestWithParam<Server> {
 protected:
  /// Ends the session from another one.
  void kill() const { connectTo(GetParam().connectionString())->execute("KILL " + ownNumber_ + GetParam().killEnding); }
  std::unique_ptr<data::Session> session_ = connectTo(GetParam().connectionString());
  std::string ownNumber_ = scalar(*session_, GetParam().ownNumber).toText();
};

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
