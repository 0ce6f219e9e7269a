#include "qvn/core/existence.h"

#include <gtest/gtest.h>

#include "tests/support/alias_driver.h"
#include "tests/support/error_of.h"

namespace qvn::core {
namespace {

class Existence : public testing::Test {
 protected:
  void use(const std::string& marker) {
    connection_ = test::connectionOfDialect(marker);
    connection_->Execute("CREATE TABLE clients (cliente VARCHAR(20), numero INTEGER)");
    connection_->Execute("CREATE TABLE vacia (a INTEGER)");
    connection_->Execute("INSERT INTO clients VALUES ('A1', 5), ('B2', 7)");
    statements_.clear();
    connection_->setStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
  }
  data::ConnectionPtr connection_;
  std::vector<std::string> statements_;
};

TEST_F(Existence, ExisteWritesItsStatementByDialectAndType) {
  struct Row {
    const char* marker;
    Variant value;
    bool numeric;
    bool expected;
    const char* statement;
  };
  const Row kRows[] = {
      {"MySQL", "A1", false, true, "SELECT cliente FROM clients WHERE cliente = 'A1'"},
      {"MySQL", 5, true, true, "SELECT numero FROM clients WHERE (((numero) = 5)) "},
      {"x-mysql-y", 5, true, true, "SELECT numero FROM clients WHERE (((numero) = 5)) "},
      {"SQLNCLI10", 6, true, false, "SELECT numero FROM clients WHERE (((numero) = 6))"},
      {"IbOleDb", "7", true, true, "SELECT numero FROM clients WHERE (((numero) = 7))"},
      {"Otro", 7, true, true, "SELECT numero FROM clients WHERE (((numero) = 7))"},
      {"IbOleDb", "ZZ", false, false, "SELECT cliente FROM clients WHERE cliente = 'ZZ'"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.statement + std::string(" on ") + row.marker);
    use(row.marker);
    EXPECT_EQ(Existe(row.numeric ? "numero" : "cliente", "clients", row.value, connection_, row.numeric), row.expected);
    EXPECT_EQ(statements_, std::vector<std::string>{row.statement});
  }
  EXPECT_EQ(test::errorNumber([&] { Existe("cliente", "clients", "O'H", connection_); }),
            data::provider_number::kStatementRefused);
  EXPECT_EQ(test::errorNumber([&] { Existe("cliente", "clients", Null{}, connection_); }),
            error_number::kInvalidUseOfNull);
  EXPECT_EQ(test::errorNumber([&] { Existe("cliente", "clients", 1, nullptr); }), error_number::kObjectNotSet);
}

TEST_F(Existence, TableQuestionsLowerTheName) {
  use("MySQL");
  EXPECT_EQ(LastRec("CLIENTS", connection_), 2);
  EXPECT_EQ(LastRec("Vacia", connection_), 0);
  EXPECT_TRUE(Existen("CLIENTS", connection_));
  EXPECT_FALSE(Existen("VACIA", connection_));
  EXPECT_EQ(statements_, (std::vector<std::string>{"SELECT COUNT(*) AS 'REGISTROS' FROM clients",
                                                   "SELECT COUNT(*) AS 'REGISTROS' FROM vacia", "SELECT * FROM clients",
                                                   "SELECT * FROM vacia"}));
  EXPECT_EQ(test::errorNumber([&] { Existen("nada", connection_); }), data::provider_number::kNoSuchTable);
}

TEST_F(Existence, ExisteCampoTurnsTheProvidersErrorIntoFalse) {
  use("MySQL");
  EXPECT_TRUE(ExisteCampo("numero", "vacia JOIN clients", connection_));
  EXPECT_FALSE(ExisteCampo("nada", "clients", connection_));
  EXPECT_FALSE(ExisteCampo("a", "nada", connection_));
  EXPECT_EQ(statements_.back(), "SELECT a FROM nada ");
  connection_->Close();
  EXPECT_FALSE(ExisteCampo("numero", "clients", connection_));
}

TEST_F(Existence, LastInsertedIdIsTheServersWord) {
  use("SQLNCLI10");
  EXPECT_EQ(test::errorNumber([&] { lastInsertedId(connection_); }), data::provider_number::kStatementRefused);
  EXPECT_EQ(statements_.back(), "SELECT SCOPE_IDENTITY()");
}

}  // namespace
}  // namespace qvn::core
