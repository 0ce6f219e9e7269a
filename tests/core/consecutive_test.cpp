#include "qvn/core/consecutive.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "qvn/base/runtime_error.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/support/alias_driver.h"
#include "tests/support/error_of.h"
#include "tests/support/failures.h"
#include "tests/support/mysql_server.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/test_database.h"

namespace qvn::core {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

std::int32_t drawOn(const data::ConnectionPtr& connection, std::string_view counter) {
  host::QueryPtr query;
  return TraeSiguiente(counter, connection, {}, query);
}

void observe(const data::ConnectionPtr& connection, Statements& statements) {
  connection->setStatementObserver([&](std::string_view sql) { statements.emplace_back(sql); });
}

class Consecutive : public testing::TestWithParam<test::Engine> {
 protected:
  Consecutive() {
    const auto setup = database_->connect();
    setup->Execute("CREATE TABLE consec (dato VARCHAR(20) NOT NULL PRIMARY KEY, consec BIGINT)");
    setup->Execute("CREATE TABLE otra (a INTEGER)");
    setup->Execute("INSERT INTO consec VALUES ('compras', 41)");
    setup->Execute("INSERT INTO consec VALUES ('nulo', NULL)");
    setup->Execute("INSERT INTO consec VALUES ('lleno', 2147483647)");
    observe(connection_, statements_);
  }
  std::int32_t draw(std::string_view counter) { return drawOn(connection_, counter); }
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
  const std::pair<std::string, std::int32_t> draws[] = {{"ventas", 1}, {"ventas", 2}, {"compras", 42}, {"ventas", 3}};
  for (const auto& [counter, expected] : draws) {
    const std::string number = std::to_string(expected);
    SCOPED_TRACE(counter + " " + number);
    statements_.clear();
    EXPECT_EQ(draw(counter), expected);
    EXPECT_EQ(statements_, drawStatements(counter, number, expected > 1));
    EXPECT_EQ(stored(counter), number);
  }
}

TEST_P(Consecutive, CountersThatCannotMove) {
  // Every statement after the first one, per counter.
  const auto failure = [&](const char* counter) {
    statements_.clear();
    return errorNumber([&] { draw(counter); });
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

TEST_P(Consecutive, SafeDrawsAreConsecutiveAndLockNothing) {
  const auto readingAnotherTable = [this] { connection_->Execute("SELECT * FROM otra"); };
  const auto another = database_->connect();
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", connection_), 1);
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", another), 2);
  EXPECT_EQ(TraeSiguienteSeguro("nuevo", connection_), 3);
  EXPECT_EQ(TraeSiguienteSeguro("compras", another), 42);
  EXPECT_EQ(errorNumber(readingAnotherTable), 0);
  // The documented draw goes on from there. On MySQL it leaves its lock to the session.
  EXPECT_EQ(draw("compras"), 43);
  EXPECT_EQ(errorNumber(readingAnotherTable), isLocking() ? data::provider_number::kStatementRefused : 0);
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

// With a table of counters, whose statements are observed from then on.
data::ConnectionPtr countersOfDialect(const std::string& marker, Statements& statements) {
  auto connection = test::connectionOfDialect(marker);
  connection->Execute("CREATE TABLE consec (dato TEXT, consec INTEGER)");
  observe(connection, statements);
  return connection;
}

TEST(ConsecutiveConfig, DrawsFromALocalDatabase) {
  Statements statements;
  const auto local = countersOfDialect("Local", statements);
  EXPECT_EQ(TraeSiguienteConfig("folio", local), 1);
  EXPECT_EQ(TraeSiguienteConfig("folio", local), 2);
  EXPECT_EQ(
      statements,
      (Statements{"SELECT * FROM consec WHERE dato = 'folio'", "INSERT INTO consec (dato, consec) VALUES( 'folio', 1 )",
                  "SELECT * FROM consec WHERE dato = 'folio'", "UPDATE consec SET consec = 2 WHERE dato = 'folio'"}));
  EXPECT_EQ(errorNumber([] { TraeSiguienteConfig("folio", std::make_shared<host::Query>()); }),
            error_number::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { TraeSiguienteConfig("folio", nullptr); }), error_number::kObjectNotSet);
  EXPECT_EQ(errorNumber([] { drawOn(nullptr, "folio"); }), error_number::kObjectNotSet);
}

// Table locks hold at one of several servers only.
TEST(ConsecutiveCluster, TheDocumentedDrawIsRefusedBeforeAnyStatement) {
  const auto script = std::make_shared<test::Script>();
  script->isClustered = true;
  const auto connection = test::connectionTo(script);
  test::expectFailures(
      "", {{.cause = "ventas", .number = data::provider_number::kNotSupported, .words = "TraeSiguienteSeguro"}},
      [&](const std::string& counter) { drawOn(connection, counter); });
  EXPECT_TRUE(script->statements.empty());
}

TEST(ConsecutiveDialect, WordMySqlCountsOnlyAtTheVeryBeginning) {
  Statements statements;
  const auto connection = countersOfDialect("MySQL", statements);
  EXPECT_EQ(drawOn(connection, "ventas"), 1);
  EXPECT_EQ(drawOn(connection, "ventas"), 2);
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
  Statements statements;
  const auto connection = countersOfDialect("SQLNCLI", statements);
  host::QueryPtr query = std::make_shared<Reopening>(connection);
  EXPECT_EQ(TraeSiguiente("ventas", connection, {}, query), 1);
  EXPECT_EQ(statements.back(), "UNLOCK TABLES");
}

}  // namespace
}  // namespace qvn::core
