#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class DemoOnEngine : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override { database_ = GetParam().create(); }
  [[nodiscard]] Call demo() const { return {.arguments = {"demo", "-c", database_->connectionString()}}; }
  [[nodiscard]] data::ConnectionPtr connect() const { return database_->connect(); }

  std::unique_ptr<TestDatabase> database_;
};
INSTANTIATE_TEST_SUITE_P(Engines, DemoOnEngine, testing::ValuesIn(shopEngines()), engineName);

TEST_P(DemoOnEngine, LeavesTheFiguresOfTheStory) {
  expectHolds(expectRun(0, demo()).out,
              {"Saldo del cliente en moneda base: 19,147.80\n",  // 6255.30 + 5220.00 + 450.00 x 17.05
               "Documento 1003: saldado (S), saldo 0.00\n",
               "Documento 1007: pendiente (P), saldo 3,220.00\n",  // 5104.00 + 116.00 - 2000.00
               "Pago 506: quedan por aplicar 1,744.70\n",          // 10000.00 - 6255.30 - 2000.00
               "Cliente C003: saldo 10,892.50\n"});                // 3220.00 + 450.00 x 17.05

  const auto connection = connect();
  EXPECT_EQ(valuesOf(connection, "SELECT estado FROM cobranza ORDER BY cobranza"), "S P S P S P P P P P P P");
  EXPECT_EQ(valuesOf(connection, "SELECT aplicado FROM caja ORDER BY abono"), "1 1 0 1 1 0");
  EXPECT_NEAR(std::stod(valuesOf(connection, "SELECT por_apli FROM caja WHERE abono = 503")), 650.00, 0.001);
  const double balances[] = {1276.00 - 76.00,
                             (4350.00 - 1850.00) + (1250.75 - 250.75) * 16.9,
                             10892.50,
                             (820.00 - 300.00) * 17.05 + (7656.00 + 348.00),
                             8120.00 + 243.60 - 4060.00,
                             2958.45 - 458.45};
  const auto customers = connection->Execute("SELECT saldo FROM clients ORDER BY cliente");
  for (const double balance : balances) {
    ASSERT_FALSE(customers->Eof());
    EXPECT_NEAR(customers->Fields(0).Value().toDouble(), balance, 0.001);
    customers->MoveNext();
  }
}

TEST_P(DemoOnEngine, SuppliesReceivesReturnsAndChangesPrices) {
  const std::string told = expectRun(0, demo()).out;
  // What the story shows on the way: the order and its second line before, between and after.
  std::size_t at = told.find("\n5. ");
  ASSERT_NE(at, std::string::npos) << told;
  for (const std::string piece :
       {"2001  C003     PE\n", "40.00     0.00     40.00\n", "2001  C003     SU\n", "40.00    25.00     15.00\n",
        "2001  C003     CE\n", "40.00    40.00      0.00\n", "3001  P014       PE\n", "3001  P014       CE\n",
        "12.00     5.00\n", "12.00     8.00\n", "1290.00  1190.00\n", "1390.00  1285.00\n",
        "1290.00  1390.00     1190.00  1285.00\n", "27580.00\n", "4001  MXN      1.0000     0.00  S\n",
        "4002  MXN      1.0000  4000.00  P\n", "4000.00\n", "701  25000.00   1420.00\n"}) {
    at = told.find(piece, at);
    ASSERT_NE(at, std::string::npos) << piece << "missing, or too early, in\n" << told;
  }
  const auto connection = connect();
  EXPECT_EQ(valuesOf(connection, "SELECT estado FROM pedidos ORDER BY pedido"), "CE PE");
  EXPECT_EQ(valuesOf(connection, "SELECT estado FROM orden"), "CE");
  EXPECT_EQ(valuesOf(connection, "SELECT id FROM slotes"), "3");
  EXPECT_NEAR(std::stod(valuesOf(connection, "SELECT SUM(saldo) FROM proveed")), 4000 + 500 * 17.05, 0.001);
  EXPECT_EQ(valuesOf(connection, "SELECT consec FROM consec WHERE dato = 'histcamb'"), "1");
  // 5 + 3 and 20 + 8 have gone out of the lots of exit 905; nothing of the third.
  EXPECT_NEAR(std::stod(valuesOf(connection, "SELECT SUM(cantsal) FROM lotes")), 36, 0.001);
}

TEST_P(DemoOnEngine, AnOlderMarkCoversTheOlderTablesAlone) {
  const auto connection = connect();
  connection->Execute("CREATE TABLE qvn_demo (version INTEGER NOT NULL PRIMARY KEY)");
  connection->Execute("CREATE TABLE caja (abono INTEGER)");
  connection->Execute("CREATE TABLE lotes (mio VARCHAR(10))");
  connection->Execute("INSERT INTO lotes VALUES ('intacto')");
  expectRun(1, demo(), {"no lo cambió"});
  EXPECT_EQ(valuesOf(connection, "SELECT mio FROM lotes"), "intacto");
  connection->Execute("DROP TABLE lotes");
  connection->Execute("INSERT INTO qvn_demo VALUES (2)");
  connection->Execute("CREATE TABLE pagos (mio VARCHAR(10))");
  expectRun(1, demo(), {"no lo cambió"});
  connection->Execute("DROP TABLE pagos");
  expectHolds(expectRun(0, demo()).out, {"Ya había una de una ejecución anterior"});
}

TEST_P(DemoOnEngine, RunsAgainFromTheBeginning) {
  const Outcome first = expectRun(0, demo());
  connect()->Execute("UPDATE cobdet SET importe = 1");
  connect()->Execute("DROP TABLE histcamb");
  connect()->Execute("DROP TABLE caja");  // as after a run that was cut off
  Outcome second = expectRun(0, demo());
  const std::string note = "Ya había una de una ejecución anterior; se hace de nuevo desde el principio.\n";
  const std::size_t at = second.out.find(note);
  ASSERT_NE(at, std::string::npos) << second.out;
  EXPECT_EQ(second.out.erase(at, note.size()), first.out);
}

TEST_P(DemoOnEngine, LeavesForeignTablesAlone) {
  for (const std::string table :
       {"clients", "cobranza", "cobdet", "caja", "prods", "pedidos", "pedpar", "orden", "ordpar", "lotes", "slotes",
        "histcamb", "consec", "proveed", "cuenxpag", "cuenxpdet", "pagos"}) {
    SCOPED_TRACE(table);
    const auto connection = connect();
    connection->Execute("CREATE TABLE " + table + " (mio VARCHAR(10))");
    connection->Execute("INSERT INTO " + table + " VALUES ('intacto')");
    EXPECT_EQ(expectRun(1, demo(), {"no lo cambió"}).out, "");
    EXPECT_EQ(valuesOf(connection, "SELECT mio FROM " + table), "intacto");
    EXPECT_THROW(connection->Execute("SELECT * FROM qvn_demo"), data::ProviderError);
    connection->Execute("DROP TABLE " + table);
  }
}

TEST_P(DemoOnEngine, NeverShowsThePassword) {
  const Outcome outcome = runQvn({"demo", "--traza", "-c", database_->connectionString() + ";Nota=x;PWD=\"s3;creto\""});
  EXPECT_EQ((outcome.out + outcome.err).find("creto"), std::string::npos) << outcome.out << outcome.err;
  expectHolds(outcome.out + outcome.err, {"PWD=***"});
}

TEST(DemoCommand, KeepsItsShopInAFolderOfItsOwn) {
  const ScratchFolder folder;
  // The connection of everyday work is not the one to practise on.
  const Call call{.arguments = {"demo"}, .environment = {"QVN_CONEXION=Provider=Nadie"}, .folder = folder.folder()};
  expectHolds(expectRun(0, call).out, {"Base de datos: ./demo-qvn/tienda.db (SQLite)\n"});
  EXPECT_TRUE(std::filesystem::is_regular_file(folder.folder() / "demo-qvn" / "tienda.db"));
}

TEST(DemoCommand, SaysHowToGoOnLooking) {
  const ScratchFolder folder;
  const std::string awkward = (folder.folder() / "a;b 'c' \"d\" ñ").string();
  const std::string told = expectRun(0, {.arguments = {"demo", "--carpeta", awkward}}).out;
  const std::string heading = "Para seguir mirando:\n";
  const std::size_t at = told.find(heading);
  ASSERT_NE(at, std::string::npos);
  const Outcome pasted = run({.arguments = {"-e", "-c", told.substr(at + heading.size())}, .program = "/bin/sh"});
  EXPECT_EQ(pasted.status, 0) << pasted.err;
  expectHolds(pasted.out,
              {"(12 registros)\n", "    1007  C003        3,220.00  3,220.00  P               10,892.50\n"});
}

TEST(DemoCommand, LeavesForeignFilesAlone) {
  const ScratchFolder folder;
  const std::filesystem::path file = folder.folder() / "tienda.db";
  const Call demo{.arguments = {"demo", "--carpeta", folder.folder().string()}};
  putBytes(file, "no soy una base de datos");
  expectRun(1, demo, {"tienda.db"});
  EXPECT_EQ(bytesOf(file), "no soy una base de datos");
  // Nor is there a folder to be made below a file.
  expectRun(1, {.arguments = {"demo", "--carpeta", file / "dentro"}}, {"qvn: No se pudo crear la carpeta «"});

  std::filesystem::remove(file);
  const std::string connection = "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + file.string();
  ASSERT_EQ(runQvn({"sql", "-c", connection, "CREATE TABLE ajena (a INTEGER)"}).status, 0);
  const std::string before = bytesOf(file);
  expectRun(1, demo, {"no lo cambió"});
  EXPECT_EQ(bytesOf(file), before);

  putBytes(file, "");  // holds nothing that could be lost
  expectRun(0, demo);
}

}  // namespace
}  // namespace qvn::test
