// The commands that recompute balances, on the demonstration's shop.
#include <gtest/gtest.h>

#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class LedgerCommand : public DemoShop {};
INSTANTIATE_TEST_SUITE_P(Engines, LedgerCommand, testing::ValuesIn(shopEngines()), engineName);

TEST_P(LedgerCommand, SaldoShowsBeforeAndAfter) {
  // 1007 is paid in full: 3,220.00 remained of it. 1009 has one charge of 450.00 dollars.
  execute("INSERT INTO cobdet VALUES (90, 1007, '2026-03-03', 'A', 'Pago', 3220.00, 507)");
  execute("UPDATE cobranza SET saldo = 99, estado = 'S' WHERE cobranza = 1009");
  // Both belong to C003, whose total is that after the last of them: 450.00 x 17.05.
  EXPECT_EQ(expectRun(0, call({"saldo", "1007", "1009"})).out,
            "cobranza  cliente  saldo antes   saldo  estado  saldo del cliente\n"
            "────────  ───────  ───────────  ──────  ──────  ─────────────────\n"
            "    1007  C003        3,220.00    0.00  S                7,672.50\n"
            "    1009  C003           99.00  450.00  P                7,672.50\n");
}

TEST_P(LedgerCommand, SaldoTellsOfUnknownAndFailedDocuments) {
  execute("UPDATE cobranza SET saldo = 0 WHERE cobranza = 1008");
  const Outcome others =
      expectRun(1, call({"saldo", "999", "1008"}, "es_ES.UTF-8"), {"qvn: no existe el documento 999 en «cobranza»\n"});
  expectHolds(others.out, {"    1008  C006            0,00  2.500,00  P                2.500,00\n"});

  execute("UPDATE cobranza SET tip_cam = NULL WHERE cliente = 'C006'");
  expectRun(1, call({"saldo", "1007", "1008", "1009"}),
            {"qvn: falló el documento 1008; los anteriores quedaron escritos\n", "error 94", "tip_cam"});
}

TEST_P(LedgerCommand, SaldoProveedorShowsBeforeAndAfter) {
  execute("UPDATE cuenxpag SET saldo = 5, estado = 'S' WHERE cuenxpag = 4002");
  execute("UPDATE cuenxpag SET saldo = 9 WHERE cuenxpag = 4001");
  execute("UPDATE proveed SET saldo = 77 WHERE proveedor = 'P020'");
  // 7250.40 - 250.40 - 3000.00, all that the supplier is owed once 4001 is paid.
  EXPECT_EQ(
      expectRun(1, call({"saldo-proveedor", "4002", "7", "4001"}), {"qvn: no existe el documento 7 en «cuenxpag»\n"})
          .out,
      "cuenxpag  proveedor  saldo antes     saldo  estado  saldo del proveedor\n"
      "────────  ─────────  ───────────  ────────  ──────  ───────────────────\n"
      "    4002  P014              5.00  4,000.00  P                  4,000.00\n"
      "    4001  P014              9.00      0.00  S                  4,000.00\n");
  EXPECT_EQ(valuesOf("SELECT saldo FROM proveed WHERE proveedor = 'P020'").substr(0, 2), "77");
  execute("DROP TABLE cuenxpdet");
  expectRun(1, call({"saldo-proveedor", "4002"}), {"qvn: falló el documento 4002;", "error -2147217865", "cuenxpdet"});
}

TEST_P(LedgerCommand, TheTraceShowsTheLibrarysStatements) {
  const Outcome wrong = expectRun(2, call({"saldo", "--traza", "1007", "1008 OR 1=1"}), {"«1008 OR 1=1»"});
  EXPECT_EQ(wrong.err.find("UPDATE"), std::string::npos) << "nothing runs when one number is wrong";
  const Outcome outcome = run(call({"por-aplicar", "--traza", "503"}));
  EXPECT_EQ(outcome.status, 0);
  expectHolds(outcome.err, {"SELECT SUM(importe) FROM cobdet WHERE abono = 503\n"
                            "UPDATE caja SET por_apli = importe - 1850 WHERE abono = 503\n"
                            "UPDATE caja SET aplicado = 1 WHERE por_apli = 0 AND abono = 503\n"});
}

TEST_P(LedgerCommand, PorAplicarShowsBeforeAndAfter) {
  // What remained of 506, 1,744.70, goes to document 1007; of 503 nothing changes.
  execute("INSERT INTO cobdet VALUES (90, 1007, '2026-03-03', 'A', 'Pago', 1744.70, 506)");
  EXPECT_EQ(expectRun(1, call({"por-aplicar", "506", "7", "503"}), {"qvn: no existe el abono 7 en «caja»\n"}).out,
            "abono    importe  por aplicar antes  por aplicar  aplicado\n"
            "─────  ─────────  ─────────────────  ───────────  ────────\n"
            "  506  10,000.00           1,744.70         0.00  Sí\n"
            "  503   2,500.00             650.00       650.00  No\n");
}

}  // namespace
}  // namespace qvn::test
