// What a failure looks like to a host, whatever the engine.
#include "tests/conformance/conformance.h"
#include "tests/support/failures.h"

namespace qvn::test {
namespace {

namespace number = data::provider_number;

class ErrorConformance : public Conformance {
 protected:
  void SetUp() override {
    Conformance::SetUp();
    createProducts();
  }
};

TEST_P(ErrorConformance, NumbersAndStates) {
  struct Row {
    const char* why;
    const char* sql;
    std::int32_t number;
    const char* sqlState;
  };
  static constexpr Row kRows[] = {
      {"no such table", "SELECT * FROM nada", number::kNoSuchTable, "42S02"},
      {"no such column", "SELECT nada FROM prods", number::kStatementRefused, "42S22"},
      {"syntax", "SELEC * FROM prods", number::kStatementRefused, "42000"},
      {"duplicate key", "INSERT INTO prods (articulo) VALUES ('A1')", number::kIntegrityViolation, "23000"},
      {"not null", "INSERT INTO prods (articulo) VALUES (NULL)", number::kIntegrityViolation, "23000"},
      {"a code with a quote", "SELECT * FROM prods WHERE articulo = 'O'Higgins'", number::kStatementRefused, "42000"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const auto error = providerError([&] { connection_->Execute(row.sql); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), row.number);
    ASSERT_FALSE(error->errors().empty());
    EXPECT_EQ(error->errors()[0].sqlState, row.sqlState);
    EXPECT_NE(error->errors()[0].nativeError, 0);
    EXPECT_EQ(error->errors()[0].source, GetParam().driver);
    EXPECT_FALSE(error->description().empty());
    ASSERT_FALSE(connection_->Errors().empty());
    EXPECT_EQ(connection_->Errors()[0].number, row.number);
  }
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), "3");
}

TEST_P(ErrorConformance, TheLibrarysOwnStatementsRunAsWritten) {
  struct Row {
    std::string sql;
    bool isTaken = true;
  };
  const SqlForms& forms = GetParam().forms;
  const Row kRows[] = {
      {"SELECT COUNT(*) AS 'REGISTROS' FROM prods", forms.takesQuotedAlias},
      {"SELECT * FROM prods"},
      {"SELECT articulo FROM prods WHERE articulo = 'A1'"},
      {"SELECT existencia FROM prods WHERE (((existencia) = 5)) "},
      {"SELECT existencia FROM prods WHERE (((existencia) = 5))"},
      {"SELECT articulo FROM prods "},
      {"SELECT SCOPE_IDENTITY()", forms.hasScopeIdentity},
      {"SELECT sum(existencia) As cargos FROM prods WHERE articulo = 'A1' AND existencia = 100"},
      {"SELECT sum(existencia * precio1) As S FROM prods WHERE articulo = 'A1'"},
      {"UPDATE prods SET precio1 = 10.25,nombre = 'P' WHERE existencia = 100"},
      {"UPDATE prods SET precio1 = existencia - 99.5 WHERE articulo = 'A1'"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.sql);
    EXPECT_EQ(errorNumber([&] { connection_->Execute(row.sql); }), row.isTaken ? 0 : number::kStatementRefused);
  }
  EXPECT_EQ(scalar("SELECT precio1 FROM prods WHERE articulo = 'A1'"), "0.5");
}

TEST_P(ErrorConformance, ASecondStatementIsNeverLost) {
  const std::int32_t raised = errorNumber([&] { connection_->Execute(select("1") + "; DELETE FROM prods"); });
  EXPECT_EQ(raised, GetParam().forms.runsBatches ? 0 : number::kStatementRefused);
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), GetParam().forms.runsBatches ? "0" : "3");
}

TEST_P(ErrorConformance, LostConnectionInMidResult) {
  std::vector<std::string> rows;
  for (int i = 0; i < 20000; ++i) rows.push_back("'N" + std::to_string(i) + "', '" + std::string(60, 'x') + "'");
  insert("prods (articulo, nombre)", rows);
  const auto held = openForEditing("SELECT * FROM prods WHERE articulo = 'A1'");
  const auto breakOff = database_->breakerOf(*connection_);
  const auto streamed = open("SELECT * FROM prods");
  breakOff();
  EXPECT_EQ(errorNumber([&] {
              while (!streamed->Eof()) streamed->MoveNext();
            }),
            GetParam().forms.readsAhead ? 0 : number::kUnspecified);
  EXPECT_TRUE(streamed->Eof());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(errorNumber([&] { connection_->Execute("UPDATE prods SET existencia = 1"); }), number::kUnspecified);
  ASSERT_FALSE(connection_->Errors().empty());
  EXPECT_EQ(connection_->Errors()[0].number, number::kUnspecified);
  held->Fields("existencia").setValue(5);
  EXPECT_EQ(errorNumber([&] { held->Update(); }), number::kUnspecified);
  streamed->Close();
  connection_->Close();
  EXPECT_EQ(held->State(), data::ObjectState::Closed);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{5});
}

TEST_P(ErrorConformance, SlowStatementTimesOutAndTheSessionGoesOn) {
  connection_->setCommandTimeout(std::chrono::seconds{1});
  const auto streamed = open("SELECT articulo FROM prods ORDER BY articulo");
  const auto start = std::chrono::steady_clock::now();
  const std::string state = GetParam().driver == "MySQL" ? "70100" : "HYT00";
  expectFailures(GetParam().driver, {{GetParam().slowStatement, number::kTimeout, {}, state}},
                 [this](const std::string& sql) { connection_->Execute(sql); });
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{10});
  streamed->MoveNext();
  EXPECT_EQ(streamed->Fields(0).Value().toText(), "B2");
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), "3");
}

TEST_P(ErrorConformance, InvalidUtf8InAStatementIsHarmless) {
  const auto attempt = [&] { connection_->Execute("SELECT '\xff\xfe' FROM prods"); };
  const std::int32_t raised = errorNumber(attempt);
  EXPECT_TRUE(raised == 0 || raised == number::kStatementRefused) << raised;
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM prods"), "3");
}

TEST_P(ErrorConformance, ObserverSeesEveryTextBeforeItRuns) {
  std::vector<std::string> seen;
  connection_->setStatementObserver([&](std::string_view sql) { seen.emplace_back(sql); });
  const std::string one = select("1");
  open(one);
  (void)errorNumber([&] { connection_->Execute("SELECT * FROM nada"); });
  EXPECT_EQ(seen, (std::vector<std::string>{one, "SELECT * FROM nada"}));
}

INSTANTIATE_TEST_SUITE_P(Engines, ErrorConformance, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
