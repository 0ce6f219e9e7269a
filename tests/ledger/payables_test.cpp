#include "qvn/ledger/payables.h"

#include <gtest/gtest.h>

#include "tests/ledger/shop.h"
#include "tests/support/error_of.h"

namespace qvn::ledger {
namespace {

using test::errorNumber;
using Statements = std::vector<std::string>;

class Payables : public testing::TestWithParam<test::Engine> {
 protected:
  Payables() {
    for (const char* sql : {
             "CREATE TABLE proveed (proveedor VARCHAR(20) NOT NULL PRIMARY KEY, saldo DOUBLE PRECISION)",
             "CREATE TABLE cuenxpag (cuenxpag INTEGER NOT NULL PRIMARY KEY, proveedor VARCHAR(20), saldo DOUBLE "
             "PRECISION, tip_cam DOUBLE PRECISION, estado CHAR(1))",
             "CREATE TABLE cuenxpdet (id INTEGER NOT NULL PRIMARY KEY, cuenxpag INTEGER, cargo_ab CHAR(1), importe "
             "DOUBLE PRECISION, abono INTEGER)",
             "CREATE TABLE pagos (abono INTEGER NOT NULL PRIMARY KEY, importe DOUBLE PRECISION, por_apli DOUBLE "
             "PRECISION)",
             "INSERT INTO proveed VALUES ('ÑA-1', 0)",
             "INSERT INTO proveed VALUES ('P2', 7)",
             "INSERT INTO cuenxpag VALUES (10, 'ÑA-1', 0, 1, 'P')",
             "INSERT INTO cuenxpag VALUES (11, 'ÑA-1', 100, 17.05, 'P')",
             "INSERT INTO cuenxpag VALUES (20, 'P2', 3, 1, 'X')",
             "INSERT INTO pagos VALUES (5, 300, 300)",
             "INSERT INTO pagos VALUES (6, NULL, 9)",
         }) {
      shop_.run(sql);
    }
  }
  void movements(int document, const std::vector<std::pair<char, std::string>>& rows, int payment = 0) {
    for (const auto& [kind, amount] : rows) {
      shop_.run("INSERT INTO cuenxpdet VALUES (" + std::to_string(++lastMovement_) + ", " + std::to_string(document) +
                ", '" + kind + "', " + amount + ", " + std::to_string(payment) + ")");
    }
  }
  [[nodiscard]] static bool refusesQuotedNames() { return !GetParam().forms.takesQuotedAlias; }

  test::Shop shop_{GetParam()};
  int lastMovement_ = 0;
};

TEST_P(Payables, ActualizaSaldoPagosIssuesTheseStatementsInThisOrder) {
  movements(10, {{'C', "1500.5"}, {'A', "500.25"}});
  ActualizaSaldoPagos(10, shop_.ambiente());
  EXPECT_EQ(shop_.statements(),
            (Statements{"SELECT sum(Importe) As Cargos FROM cuenxpdet WHERE cargo_ab = 'C' AND cuenxpag = 10",
                        "SELECT sum(Importe) As Abonos FROM cuenxpdet WHERE cargo_ab = 'A' AND cuenxpag = 10",
                        "UPDATE cuenxpag SET saldo = 1000.25,estado = 'P' WHERE cuenxpag = 10",
                        "SELECT * FROM cuenxpag WHERE cuenxpag = 10",
                        "SELECT sum(saldo * tip_cam) As S FROM cuenxpag WHERE proveedor = 'ÑA-1'",
                        "UPDATE proveed SET saldo = 2705.25 WHERE Proveedor = 'ÑA-1'"}));
  EXPECT_EQ(shop_.row("SELECT saldo, estado FROM cuenxpag WHERE cuenxpag = 10"), "1000.25|P");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM proveed WHERE proveedor = 'ÑA-1'"), "2705.25");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM proveed WHERE proveedor = 'P2'"), "7");
}

TEST_P(Payables, ActualizaCuenxpagHasTextsOfItsOwn) {
  const auto call = [&] { ActualizaCuenxpag(20, shop_.ambiente()); };
  if (refusesQuotedNames()) {
    EXPECT_EQ(errorNumber(call), data::provider_number::kStatementRefused);
    EXPECT_EQ(shop_.statements().size(), 1u);
    return;
  }
  call();
  EXPECT_EQ(shop_.statements(),
            (Statements{"SELECT sum(importe) As 'Cargos' FROM cuenxpdet WHERE cargo_ab = 'C' AND cuenxpag = 20",
                        "SELECT sum(importe) As 'Abonos' FROM cuenxpdet WHERE cargo_ab = 'A' AND cuenxpag = 20",
                        "UPDATE cuenxpag SET saldo = 0,ESTADO = 'S' WHERE Cuenxpag = 20",
                        "SELECT * FROM cuenxpag WHERE Cuenxpag = 20",
                        "SELECT sum(saldo * tip_cam) As 'S' FROM cuenxpag WHERE proveedor = 'P2'",
                        "UPDATE proveed SET saldo = 0 WHERE proveedor = 'P2'"}));
  EXPECT_EQ(shop_.row("SELECT saldo, estado FROM cuenxpag WHERE cuenxpag = 20"), "0|S");
  shop_.forgetStatements();
  movements(20, {{'C', "5"}});
  call();
  EXPECT_EQ(shop_.statements()[2], "UPDATE cuenxpag SET saldo = 5,ESTADO = 'P' WHERE Cuenxpag = 20");
}

TEST_P(Payables, SumsAreNotRounded) {
  struct Row {
    const char* why;
    std::vector<std::pair<char, std::string>> movements;
    const char* balance;
    const char* state;
  };
  const bool roundsDoubles = GetParam().forms.roundsDoubles;
  const Row kRows[] = {
      {"no movements", {}, "0", "S"},
      {"charges equal credits", {{'C', "99.99"}, {'A', "99.99"}}, "0", "S"},
      {"0.1 + 0.2 - 0.3 is not zero in binary, and written as 0",
       {{'C', "0.1"}, {'C', "0.2"}, {'A', "0.3"}},
       "0",
       roundsDoubles ? "S" : "P"},
      {"half a cent counts", {{'C', "0.125"}, {'A', "0.12"}}, "0.005", "P"},
      {"overpaid", {{'A', "5"}}, "-5", "P"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    shop_.run("DELETE FROM cuenxpdet");
    shop_.forgetStatements();
    movements(20, row.movements);
    ActualizaSaldoPagos(20, shop_.ambiente());
    ASSERT_EQ(shop_.statements().size(), 6u);
    EXPECT_EQ(shop_.statements()[2], "UPDATE cuenxpag SET saldo = " + std::string(row.balance) + ",estado = '" +
                                         row.state + "' WHERE cuenxpag = 20");
    EXPECT_EQ(shop_.scalar("SELECT estado FROM cuenxpag WHERE cuenxpag = 20"), row.state);
    EXPECT_EQ(shop_.scalar("SELECT saldo FROM proveed WHERE proveedor = 'P2'"), row.balance);
  }
}

TEST_P(Payables, StopsWithoutADocumentAndFailsWithoutATotal) {
  ActualizaSaldoPagos(999, shop_.ambiente());
  EXPECT_EQ(shop_.statements().size(), 4u);
  shop_.run("UPDATE cuenxpag SET tip_cam = NULL WHERE cuenxpag = 20");
  EXPECT_EQ(errorNumber([&] { ActualizaSaldoPagos(20, shop_.ambiente()); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(shop_.row("SELECT saldo, estado FROM cuenxpag WHERE cuenxpag = 20"), "0|S");
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM proveed WHERE proveedor = 'P2'"), "7");
  shop_.run("INSERT INTO cuenxpag VALUES (30, 'O''Higgins', 0, 1, 'P')");
  EXPECT_EQ(errorNumber([&] { ActualizaSaldoPagos(30, shop_.ambiente()); }), data::provider_number::kStatementRefused);
  EXPECT_EQ(errorNumber([&] { ActualizaSaldoPagos(10, nullptr); }), error_number::kObjectNotSet);
  shop_.connection()->Close();
  EXPECT_EQ(errorNumber([&] { ActualizaSaldoPagos(10, shop_.ambiente()); }), data::provider_number::kObjectClosed);
}

TEST_P(Payables, ActualizaPorAplicarEnPagosSubtractsHere) {
  movements(10, {{'A', "120.5"}, {'A', "29.5"}}, 5);
  const auto call = [&] { ActualizaPorAplicarEnPagos(5, shop_.ambiente()); };
  if (refusesQuotedNames()) {
    EXPECT_EQ(errorNumber(call), data::provider_number::kStatementRefused);
    return;
  }
  call();
  EXPECT_EQ(shop_.statements(),
            (Statements{"SELECT Sum(Importe) As 'I' FROM cuenxpdet WHERE abono = 5",
                        "SELECT * FROM pagos WHERE abono = 5", "UPDATE pagos SET Por_apli = 150 WHERE ABONO = 5"}));
  EXPECT_EQ(shop_.scalar("SELECT por_apli FROM pagos WHERE abono = 5"), "150");
  shop_.run("DELETE FROM cuenxpdet");
  call();
  EXPECT_EQ(shop_.scalar("SELECT por_apli FROM pagos WHERE abono = 5"), "300");
  shop_.forgetStatements();
  ActualizaPorAplicarEnPagos(99, shop_.ambiente());
  EXPECT_EQ(shop_.statements().size(), 2u);
  EXPECT_EQ(errorNumber([&] { ActualizaPorAplicarEnPagos(6, shop_.ambiente()); }), error_number::kInvalidUseOfNull);
  EXPECT_EQ(shop_.scalar("SELECT por_apli FROM pagos WHERE abono = 6"), "9");
}

TEST_P(Payables, AfectaSaldoDeProveedorNeverChangesABalance) {
  EXPECT_EQ(errorNumber([&] { AfectaSaldoDeProveedor("P2", 5, shop_.connection()); }),
            data::provider_number::kNotSupported);
  EXPECT_EQ(errorNumber([&] { AfectaSaldoDeProveedor("nadie", 5, shop_.connection()); }),
            data::provider_number::kNoCurrentRecord);
  EXPECT_EQ(shop_.statements(), (Statements{"SELECT * FROM proveed WHERE proveedor = 'P2'",
                                            "SELECT * FROM proveed WHERE proveedor = 'nadie'"}));
  EXPECT_EQ(shop_.scalar("SELECT saldo FROM proveed WHERE proveedor = 'P2'"), "7");
}

INSTANTIATE_TEST_SUITE_P(Engines, Payables, testing::ValuesIn(test::engines()), test::engineName);

}  // namespace
}  // namespace qvn::ledger
