#include "qvn/ledger/receivables.h"

#include <gtest/gtest.h>

#include "tests/ledger/shop.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::ledger {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

class Receivables : public testing::TestWithParam<test::Engine> {
 protected:
  // Movements of one document: letters and amounts such as "C 10.50".
  void movements(int document, const std::vector<std::pair<char, std::string>>& rows, int payment = 0) {
    for (const auto& [kind, amount] : rows) {
      shop_.run("INSERT INTO cobdet VALUES (" + std::to_string(++lastMovement_) + ", " + std::to_string(document) +
                ", '" + kind + "', " + amount + ", " + std::to_string(payment) + ")");
    }
  }
  void updateBalance(const Variant& document) {
    host::QueryPtr query;
    ActualizaSaldo(document, shop_.ambiente(), query);
  }
  void updatePayment(const Variant& payment) {
    host::QueryPtr query;
    ActualizaPorAplicar(payment, shop_.ambiente(), query);
  }

  test::Shop shop_{GetParam()};
  int lastMovement_ = 0;
};

TEST_P(Receivables, ActualizaSaldoIssuesTheseStatementsInThisOrder) {
  movements(10, {{'C', "1500.5"}, {'A', "500.25"}});
  {
    const test::LocaleGuard locale("es_ES.UTF-8");  // where numbers have a comma
    updateBalance(10);
  }
  EXPECT_EQ(shop_.statements(),
            (Statements{"SELECT sum(importe) As cargos FROM cobdet WHERE cargo_ab = 'C' AND cobranza = 10",
                        "SELECT sum(importe) As abonos FROM cobdet WHERE cargo_ab = 'A' AND cobranza = 10",
                        "UPDATE cobranza SET saldo = 1000.25,estado = 'P' WHERE cobranza = 10",
                        "SELECT * FROM cobranza WHERE cobranza = 10",
                        "SELECT sum(saldo * tip_cam) As S FROM cobranza WHERE cliente = 'ÑU-1'",
                        "UPDATE clients SET saldo = 2705.25 WHERE CLIENTE = 'ÑU-1'"}));
  EXPECT_EQ(shop_.row("SELECT saldo, estado FROM cobranza WHERE cobranza = 10"), "1000.25|P");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'ÑU-1'"), "2705.25");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), "7");
}

TEST_P(Receivables, ActualizaSaldoSettlesOnlyOnExactZero) {
  struct Row {
    const char* why;
    std::vector<std::pair<char, std::string>> movements;
    const char* balance;
    const char* state;
  };
  const Row kRows[] = {
      {"no movements", {}, "0", "S"},
      {"charges equal credits", {{'C', "99.99"}, {'A', "99.99"}}, "0", "S"},
      {"0.1 + 0.2 - 0.3: each sum is rounded first", {{'C', "0.1"}, {'C', "0.2"}, {'A', "0.3"}}, "0", "S"},
      {"one cent is missing: the difference is not rounded again",
       {{'C', "100"}, {'A', "99.99"}},
       "0.010000000000005",
       "P"},
      {"one cent too much", {{'C', "99.99"}, {'A', "100"}}, "-0.010000000000005", "P"},
      {"half a cent goes to the even one", {{'C', "0.125"}, {'A', "0.12"}}, "0", "S"},
      {"only credits", {{'A', "5"}}, "-5", "P"},
      {"movements of another kind do not count", {{'C', "5"}, {'X', "3"}}, "5", "P"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    shop_.run("DELETE FROM cobdet");
    movements(20, row.movements);
    updateBalance(20);
    ASSERT_EQ(shop_.statements().size(), 6u);
    EXPECT_EQ(shop_.statements()[2], "UPDATE cobranza SET saldo = " + std::string(row.balance) + ",estado = '" +
                                         row.state + "' WHERE cobranza = 20");
    EXPECT_EQ(shop_.scalar("SELECT estado FROM cobranza WHERE cobranza = 20"), row.state);
    EXPECT_EQ(shop_.statements()[5],
              "UPDATE clients SET saldo = " + std::string(row.balance) + " WHERE CLIENTE = 'B2'");
    EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), row.balance);
    shop_.forgetStatements();
  }
}

TEST_P(Receivables, StopsWithoutADocumentAndFailsWithoutATotal) {
  updateBalance(999);
  ASSERT_EQ(shop_.statements().size(), 4u);
  EXPECT_EQ(shop_.statements()[2], "UPDATE cobranza SET saldo = 0,estado = 'S' WHERE cobranza = 999");
  shop_.run("UPDATE cobranza SET tip_cam = NULL WHERE cliente = 'B2'");
  movements(20, {{'C', "5"}});
  EXPECT_EQ(errorNumber([&] { updateBalance(20); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(shop_.row("SELECT saldo, estado FROM cobranza WHERE cobranza = 20"), "5|P");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), "7");
  // SUM passes over a NULL beside other rates.
  shop_.run("INSERT INTO cobranza VALUES (21, 'B2', 3, 2, 'P')");
  updateBalance(20);
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), "6");
}

TEST_P(Receivables, KeysEnterTheTextAsTheyAre) {
  for (const Variant& document : {Variant(20), Variant("20"), Variant(20.0), Variant(std::int16_t{20})}) {
    updateBalance(document);
    EXPECT_EQ(shop_.statements()[3], "SELECT * FROM cobranza WHERE cobranza = 20");
    shop_.forgetStatements();
  }
  EXPECT_EQ(errorNumber([&] { updateBalance(Null{}); }), data::provider_number::kStatementRefused);
  shop_.run("INSERT INTO cobranza VALUES (30, 'O''Higgins', 0, 1, 'P')");
  EXPECT_EQ(errorNumber([&] { updateBalance(30); }), data::provider_number::kStatementRefused);
}

TEST_P(Receivables, ActualizaPorAplicarLeavesTheRemainder) {
  for (const char* row : {"5, 300, 300, 0", "6, 80, 80, 0", "7, 40, 1, 0"}) {
    shop_.run("INSERT INTO caja VALUES (" + std::string(row) + ")");
  }
  movements(10, {{'A', "120.5"}, {'A', "29.5"}}, 5);
  movements(11, {{'A', "80"}}, 6);
  updatePayment(5);
  EXPECT_EQ(shop_.statements(), (Statements{"SELECT SUM(importe) FROM cobdet WHERE abono = 5",
                                            "UPDATE caja SET por_apli = importe - 150 WHERE abono = 5",
                                            "UPDATE caja SET aplicado = 1 WHERE por_apli = 0 AND abono = 5"}));
  EXPECT_EQ(shop_.row("SELECT por_apli, aplicado FROM caja WHERE abono = 5"), "150|0");
  updatePayment(6);
  EXPECT_EQ(shop_.row("SELECT por_apli, aplicado FROM caja WHERE abono = 6"), "0|1");
  // No movements: the sum is NULL and counts as 0.
  updatePayment(7);
  EXPECT_EQ(shop_.row("SELECT por_apli, aplicado FROM caja WHERE abono = 7"), "40|0");
  // The mark is never taken away.
  shop_.run("DELETE FROM cobdet WHERE abono = 6");
  updatePayment(6);
  EXPECT_EQ(shop_.row("SELECT por_apli, aplicado FROM caja WHERE abono = 6"), "80|1");
}

TEST_P(Receivables, QueryIsProvidedOnceAndUsedAgain) {
  host::QueryPtr query;
  ActualizaSaldo(20, shop_.ambiente(), query);
  const host::QueryPtr provided = query;
  ASSERT_TRUE(provided);
  ActualizaPorAplicar(5, shop_.ambiente(), query);
  EXPECT_EQ(query, provided);
  // What the host had added runs first; a failure empties the runner.
  shop_.forgetStatements();
  query->Agrega("UPDATE nada SET a = 1");
  EXPECT_EQ(errorNumber([&] { ActualizaSaldo(20, shop_.ambiente(), query); }), data::provider_number::kNoSuchTable);
  EXPECT_TRUE(query->Fallo());
  EXPECT_FALSE(query->Error().empty());
  ASSERT_EQ(shop_.statements().size(), 3u);
  EXPECT_EQ(shop_.statements()[2], "UPDATE nada SET a = 1");
  query->Ejecuta();
  EXPECT_FALSE(query->Fallo());
  EXPECT_EQ(shop_.statements().size(), 3u);
}

TEST_P(Receivables, AfectaSaldoDeClienteNeverChangesABalance) {
  EXPECT_EQ(errorNumber([&] { AfectaSaldoDeCliente("B2", 5, shop_.connection()); }),
            data::provider_number::kNotSupported);
  EXPECT_EQ(errorNumber([&] { AfectaSaldoDeCliente("nadie", 5, shop_.connection()); }),
            data::provider_number::kNoCurrentRecord);
  EXPECT_EQ(shop_.statements(), (Statements{"SELECT * FROM clients WHERE cliente = 'B2'",
                                            "SELECT * FROM clients WHERE cliente = 'nadie'"}));
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM clients WHERE cliente = 'B2'"), "7");
}

TEST_P(Receivables, WithoutAConnection) {
  host::QueryPtr query;
  const auto empty = std::make_shared<host::SimpleAmbiente>();
  EXPECT_EQ(errorNumber([&] { ActualizaSaldo(10, nullptr, query); }), error_number::kObjectNotSet);
  EXPECT_EQ(errorNumber([&] { ActualizaPorAplicar(10, empty, query); }), error_number::kObjectNotSet);
  shop_.connection()->Close();
  EXPECT_EQ(errorNumber([&] { updateBalance(10); }), data::provider_number::kObjectClosed);
}

INSTANTIATE_TEST_SUITE_P(Engines, Receivables, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
