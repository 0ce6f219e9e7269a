#include "qvn/core/consecutive.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "qvn/base/runtime_error.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/alias_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/mysql_server.h"
#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

class Consecutive : public testing::TestWithParam<test::Engine> {
 protected:
  Consecutive() {
    const auto setup = database_->connect();
    setup->Execute("CREATE TABLE consec (dato VARCHAR(20) NOT NULL PRIMARY KEY, consec BIGINT)");
    setup->Execute("CREATE TABLE otra (a INTEGER)");
    setup->Execute("INSERT INTO consec VALUES ('compras', 41)");
    setup->Execute("INSERT INTO consec VALUES ('nulo', NULL)");
    setup->Execute("INSERT INTO consec VALUES ('lleno', 2147483647)");
    observe(connection_);
  }
  void observe(const data::ConnectionPtr& connection) {
    connection->setStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
  }
  std::int32_t draw(std::string_view counter) {
    host::QueryPtr query;
    return TraeSiguiente(counter, connection_, {}, query);
  }
  // As another station sees it, which the plain draw on MySQL would keep waiting.
  [[nodiscard]] std::string stored(const std::string& counter) const {
    if (isLocking()) connection_->Execute("UNLOCK TABLES");
    const auto rows = database_->connect()->Execute("SELECT consec FROM consec WHERE dato = '" + counter + "'");
    if (rows->Eof()) return "(none)";
    return rows->Fields(0).Value().isNull() ? "(null)" : rows->Fields(0).Value().toText();
  }
  [[nodiscard]] static bool isLocking() { return GetParam().name == "MySQL"; }
  [[nodiscard]] static bool goesThroughQuery() { return GetParam().name == "SqlServer"; }

  // What a draw issues: `found` is the row's number, "" for none.
  [[nodiscard]] static Statements drawStatements(const std::string& counter, const std::string& next, bool isFound) {
    const std::string which = "WHERE dato = '" + counter + "'";
    if (isLocking()) {
      return {"SELECT * FROM consec " + which,
              isFound ? "UPDATE consec SET consec = " + next + " " + which
                      : "INSERT INTO consec (dato, consec) VALUES( '" + counter + "', 1 )",
              "LOCK TABLES consec WRITE"};
    }
    return {"SELECT dato,consec FROM consec " + which,
            isFound ? "UPDATE consec SET consec = " + next + " " + which
                    : "INSERT INTO  consec  ( consec, dato) VALUES (1, '" + counter + "')"};
  }

  std::unique_ptr<test::TestDatabase> database_ = GetParam().create();
  data::ConnectionPtr connection_ = database_->connect();
  Statements statements_;
};

TEST_P(Consecutive, DrawsAndPeeks) {
  EXPECT_EQ(TraePosibleSiguiente("ventas", connection_), 1);
  EXPECT_EQ(TraePosibleSiguiente("compras", connection_), 42);
  EXPECT_EQ(statements_, (Statements{"SELECT Dato,Consec FROM consec WHERE DATO = 'ventas'",
                                     "SELECT Dato,Consec FROM consec WHERE DATO = 'compras'"}));
  EXPECT_EQ(stored("ventas"), "(none)");
  EXPECT_EQ(stored("compras"), "41");
  struct Row {
    const char* counter;
    std::int32_t expected;
  };
  for (const Row& row : {Row{"ventas", 1}, Row{"ventas", 2}, Row{"compras", 42}, Row{"ventas", 3}}) {
    SCOPED_TRACE(std::string(row.counter) + " " + std::to_string(row.expected));
    statements_.clear();
    EXPECT_EQ(draw(row.counter), row.expected);
    EXPECT_EQ(statements_, drawStatements(row.counter, std::to_string(row.expected), row.expected > 1));
    EXPECT_EQ(stored(row.counter), std::to_string(row.expected));
  }
}

TEST_P(Consecutive, CountersThatCannotMove) {
  // Every statement after the first one, per counter.
  const auto failure = [&](const char* counter) {
    statements_.clear();
    const std::int32_t number = errorNumber([&] { draw(counter); });
    return number;
  };
  EXPECT_EQ(failure("nulo"), error_number::kInvalidUseOfNull);
  EXPECT_EQ(statements_.size(), 1u);
  EXPECT_EQ(failure("lleno"), error_number::kOverflow);
  const bool failsBefore = isLocking() || goesThroughQuery();
  EXPECT_EQ(statements_, failsBefore ? Statements(1, drawStatements("lleno", "", true)[0])
                                     : drawStatements("lleno", "2147483648", true));
  EXPECT_EQ(stored("lleno"), failsBefore ? "2147483647" : "2147483648");
  EXPECT_EQ(errorNumber([&] { TraePosibleSiguiente("nulo", connection_); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(errorNumber([&] { TraePosibleSiguiente("lleno", connection_); }), error_number::kOverflow);
  EXPECT_EQ(failure("O'Higgins"), data::provider_number::kStatementRefused);
  EXPECT_EQ(errorNumber([&] { TraePosibleSiguiente("O'Higgins", connection_); }),
            data::provider_number::kStatementRefused);
}

TEST_P(Consecutive, RunnerIsProvidedOnceAndTakesTheNewNumber) {
  host::QueryPtr query;
  TraeSiguiente("compras", connection_, {}, query);
  const host::QueryPtr provided = query;
  ASSERT_TRUE(provided);
  query->Agrega("UPDATE otra SET a = 1");
  statements_.clear();
  if (isLocking()) connection_->Execute("UNLOCK TABLES");
  TraeSiguiente("compras", connection_, {}, query);
  EXPECT_EQ(query, provided);
  const bool ranBefore = std::ranges::find(statements_, "UPDATE otra SET a = 1") != statements_.end();
  EXPECT_EQ(ranBefore, goesThroughQuery());
}

TEST_P(Consecutive, PlainDrawOnMySqlLeavesTheLockToTheSession) {
  draw("ventas");
  const std::int32_t other = errorNumber([&] { connection_->Execute("SELECT * FROM otra"); });
  EXPECT_EQ(other, isLocking() ? data::provider_number::kStatementRefused : 0);
}

TEST_P(Consecutive, SafeDrawsAreConsecutiveAndLockNothing) {
  const auto another = database_->connect();
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", connection_), 1);
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", another), 2);
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", connection_), 3);
  EXPECT_EQ(TraeSiguienteSeguro("compras", another), 42);
  EXPECT_EQ(errorNumber([&] { connection_->Execute("SELECT * FROM otra"); }), 0);
  // The documented draw goes on from there.
  EXPECT_EQ(draw("compras"), 43);
  EXPECT_EQ(stored("compras"), "43");
}

TEST_P(Consecutive, SafeDrawTakesAnyNameAndRefusesWhatCannotMove) {
  for (const char* name : {"O'Higgins", "barra\\", "ñ€", "a\" -- b"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(TraeSiguienteSeguro(name, connection_), 1);
    EXPECT_EQ(TraeSiguienteSeguro(name, connection_), 2);
  }
  EXPECT_EQ(errorNumber([&] { TraeSiguienteSeguro("nulo", connection_); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(errorNumber([&] { TraeSiguienteSeguro("lleno", connection_); }), error_number::kOverflow);
  EXPECT_EQ(stored("nulo"), "(null)");
  EXPECT_EQ(stored("lleno"), "2147483647");
  connection_->Execute("DROP TABLE consec");
  EXPECT_EQ(errorNumber([&] { TraeSiguienteSeguro("ventas", connection_); }), data::provider_number::kNoSuchTable);
  EXPECT_EQ(errorNumber([&] { draw("ventas"); }), data::provider_number::kNoSuchTable);
}

INSTANTIATE_TEST_SUITE_P(Engines, Consecutive, testing::ValuesIn(test::engines()), test::engineName);

TEST(ConsecutiveConfig, DrawsFromALocalDatabase) {
  const auto local = test::connectionOfDialect("Local");
  Statements statements;
  local->Execute("CREATE TABLE consec (dato TEXT, consec INTEGER)");
  local->setStatementObserver([&](std::string_view sql) { statements.emplace_back(sql); });
  EXPECT_EQ(TraeSiguienteConfig("folio", local), 1);
  EXPECT_EQ(TraeSiguienteConfig("folio", local), 2);
  EXPECT_EQ(
      statements,
      (Statements{"SELECT * FROM consec WHERE dato = 'folio'", "INSERT INTO consec (dato, consec) VALUES( 'folio', 1 )",
                  "SELECT * FROM consec WHERE dato = 'folio'", "UPDATE consec SET consec = 2 WHERE dato = 'folio'"}));
  EXPECT_EQ(errorNumber([] { TraeSiguienteConfig("folio", std::make_shared<host::Query>()); }),
            error_number::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { TraeSiguienteConfig("folio", nullptr); }), error_number::kObjectNotSet);
  host::QueryPtr query;
  EXPECT_EQ(errorNumber([&] { TraeSiguiente("folio", nullptr, {}, query); }), error_number::kObjectNotSet);
}

TEST(ConsecutiveDialect, WordMySqlCountsOnlyAtTheVeryBeginning) {
  const auto connection = test::connectionOfDialect("MySQL");
  connection->Execute("CREATE TABLE consec (dato TEXT, consec INTEGER)");
  Statements statements;
  connection->setStatementObserver([&](std::string_view sql) { statements.emplace_back(sql); });
  host::QueryPtr query;
  EXPECT_EQ(TraeSiguiente("ventas", connection, {}, query), 1);
  EXPECT_EQ(TraeSiguiente("ventas", connection, {}, query), 2);
  EXPECT_EQ(statements, (Statements{"SELECT dato,consec FROM consec WHERE dato = 'ventas'",
                                    "INSERT INTO  consec  ( consec, dato) VALUES (1, 'ventas')",
                                    "SELECT dato,consec FROM consec WHERE dato = 'ventas'",
                                    "UPDATE consec SET consec = 2 WHERE dato = 'ventas'"}));
}

// A host's runner that opens the connection anew, on another server.
class Reopening final : public host::Query {
 public:
  explicit Reopening(data::ConnectionPtr connection) : connection_(std::move(connection)) { Conexion(connection_); }
  void Ejecuta() override {
    Query::Ejecuta();
    connection_->Close();
    connection_->Open(test::mysqlConnectionString());
  }

 private:
  data::ConnectionPtr connection_;
};

TEST(ConsecutiveDialect, AConnectionThatBecameMySqlIsUnlocked) {
  data::registerBuiltInDrivers();
  const auto connection = test::connectionOfDialect("SQLNCLI");
  connection->Execute("CREATE TABLE consec (dato TEXT, consec INTEGER)");
  std::string last;
  connection->setStatementObserver([&](std::string_view sql) { last = sql; });
  host::QueryPtr query = std::make_shared<Reopening>(connection);
  EXPECT_EQ(TraeSiguiente("ventas", connection, {}, query), 1);
  EXPECT_EQ(last, "UNLOCK TABLES");
}

}  // namespace
}  // namespace qvn::core
