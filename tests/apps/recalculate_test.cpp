// qvn recalcula, on the demonstration's shop and on one of thousands of documents.
#include <csignal>

#include "apps/qvn/interruption.h"
#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class RecalculateCommand : public DemoShop {
 protected:
  [[nodiscard]] Call call(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "recalcula");
    return DemoShop::call(arguments);
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, RecalculateCommand, testing::ValuesIn(shopEngines()), engineName);

// 1007 and 1009 are those of C003, whose total is then 3,220.00 + 450.00 x 17.05 = 10,892.50.
constexpr const char* kDocumentChanges =
    "cobranza  saldo antes     saldo  estado antes  estado\n"
    "────────  ───────────  ────────  ────────────  ──────\n"
    "    1007         0.00  3,220.00  S             P\n"
    "    1009       <NULL>    450.00  <NULL>        P\n"
    "\n";

TEST_P(RecalculateCommand, ShowsWhatItChangesAndChangesItOnce) {
  execute("UPDATE cobranza SET saldo = 0, estado = 'S' WHERE cobranza = 1007");
  execute("UPDATE cobranza SET saldo = NULL, estado = NULL WHERE cobranza = 1009");
  execute("UPDATE clients SET saldo = 5 WHERE cliente = 'C003'");
  EXPECT_EQ(expectRun(0, call({"--clientes", "--simula", "--detalle"})).out,
            std::string(kDocumentChanges) +
                "cuentas   documentos  cambiarían  totales  cambiarían  no se pudo\n"
                "────────  ──────────  ──────────  ───────  ──────────  ──────────\n"
                "clientes          12           2        -           -           -\n"
                "Simulación: no se escribió nada.\n");
  EXPECT_EQ(valuesOf("SELECT COUNT(*) FROM cobranza WHERE estado IS NULL"), "1");

  EXPECT_EQ(expectRun(0, call({"--clientes", "--detalle"})).out,
            std::string(kDocumentChanges) +
                "cliente  saldo antes      saldo\n"
                "───────  ───────────  ─────────\n"
                "C003            5.00  10,892.50\n"
                "\n"
                "cuentas   documentos  cambiados  totales  cambiados  no se pudo\n"
                "────────  ──────────  ─────────  ───────  ─────────  ──────────\n"
                "clientes          12          2        6          1           0\n");
  const Outcome second = expectRun(0, call({"--clientes", "--detalle"}));
  expectHolds(second.out, {"clientes          12          0        6          0           0\n"});
}

TEST_P(RecalculateCommand, WithoutSuppliersTablesItSaysSoAndChangesNothing) {
  execute("DROP TABLE cuenxpdet");
  execute("UPDATE cobranza SET saldo = 0 WHERE cobranza = 1007");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"--proveedores"}}) {
    const Outcome outcome =
        expectRun(1, call(arguments), {"faltan tablas de proveedores; no se cambió nada. Con --clientes"});
    EXPECT_EQ(outcome.out, "");
  }
  EXPECT_EQ(numberOf("SELECT saldo FROM cobranza WHERE cobranza = 1007"), 0);
}

TEST_P(RecalculateCommand, BothSides) {
  execute("UPDATE cuenxpag SET saldo = 1 WHERE cuenxpag = 4003");
  execute("UPDATE proveed SET saldo = 1 WHERE proveedor = 'P020'");
  EXPECT_EQ(expectRun(0, call({})).out,
            "cuentas      documentos  cambiados  totales  cambiados  no se pudo\n"
            "───────────  ──────────  ─────────  ───────  ─────────  ──────────\n"
            "clientes             12          0        6          0           0\n"
            "proveedores           3          1        2          1           0\n");
  EXPECT_EQ(numberOf("SELECT saldo FROM proveed WHERE proveedor = 'P020'"), 500 * 17.05);
}

TEST_P(RecalculateCommand, WhoCannotBeTotalledIsNamed) {
  execute("UPDATE cobranza SET tip_cam = NULL WHERE cliente = 'C006'");
  execute("UPDATE cobranza SET cliente = NULL WHERE cobranza = 1012");
  const Outcome outcome = expectRun(1, call({"--clientes"}),
                                    {"no se pudo con el cliente «C006»", "tip_cam", "qvn: hay documentos sin cliente"});
  expectHolds(outcome.out, {"clientes          12          0        6          1           2\n"});
}

// The trace says when a batch is done. Nobody reads on until the signal is sent: the pipe holds a few batches of the
// ten.
constexpr const char* kInterruptAfterFirstBatch =
    "mkfifo trace\n"
    "\"$0\" recalcula --clientes --traza > out 2> trace &\n"
    "exec 3< trace\n"
    "while read -r line <&3; do [ \"$line\" = COMMIT ] && break; done\n"
    "kill -INT $!\n"
    "cat <&3 > rest\n"
    "wait $!\n";

TEST(Recalculate, AnInterruptionEndsItAfterABatchAndTheNextRunGoesOn) {
  const auto database = engines().front().create();
  const auto connection = database->connect();
  for (const char* sql :
       {"CREATE TABLE clients (cliente TEXT PRIMARY KEY, saldo DOUBLE)",
        "CREATE TABLE cobranza (cobranza INTEGER PRIMARY KEY, cliente TEXT, saldo DOUBLE, tip_cam DOUBLE, estado TEXT)",
        "CREATE TABLE cobdet (cobranza INTEGER, cargo_ab TEXT, importe DOUBLE)",
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
        "INSERT INTO cobranza SELECT i, 'C1', 1, 1, 'P' FROM n"}) {
    connection->Execute(sql);
  }
  const ScratchFolder folder;
  const std::string variable = "QVN_CONEXION=" + database->connectionString();
  const Outcome outcome = run({.arguments = {"-c", kInterruptAfterFirstBatch, QVN_PROGRAM},
                               .environment = {variable},
                               .folder = folder.folder(),
                               .program = "/bin/sh"});
  EXPECT_EQ(outcome.status, 1) << outcome.err;
  expectHolds(bytesOf(folder.folder() / "rest"),
              {"qvn: se interrumpió después de ", " de 5,000 documentos de clientes; ", "repita el comando"});
  const std::string pending = "SELECT COUNT(*) FROM cobranza WHERE estado = 'P'";
  const int left = std::stoi(valuesOf(connection, pending));
  EXPECT_GT(left, 0);
  EXPECT_LT(left, 5000);
  EXPECT_EQ(left % 500, 0);

  expectRun(0, {.arguments = {"recalcula", "--clientes"}, .environment = {variable}});
  EXPECT_EQ(valuesOf(connection, pending), "0");
}

TEST(Recalculate, OnlyTheFirstSignalIsRemembered) {
  const cli::Interruption interruption;
  EXPECT_FALSE(cli::Interruption::isRequested());
  std::raise(SIGINT);
  EXPECT_TRUE(cli::Interruption::isRequested());
  EXPECT_EXIT(std::raise(SIGINT), testing::KilledBySignal(SIGINT), "");
}

}  // namespace
}  // namespace qvn::test
