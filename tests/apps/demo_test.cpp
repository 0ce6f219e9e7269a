#include <gtest/gtest.h>

#include "tests/apps/run_program.h"
#include "tests/support/test_database.h"

namespace qvn::test {
namespace {

std::string firstColumn(const data::ConnectionPtr& connection, const std::string& sql) {
  std::string values;
  for (const auto rows = connection->Execute(sql); !rows->Eof(); rows->MoveNext()) {
    values.append(values.empty() ? "" : " ").append(rows->Fields(0).Value().toText());
  }
  return values;
}

double number(const data::ConnectionPtr& connection, const std::string& sql) {
  return connection->Execute(sql)->Fields(0).Value().toDouble();
}

void expectHolds(const std::string& text, const std::string& piece) {
  EXPECT_NE(text.find(piece), std::string::npos) << "missing: " << piece << "\nin: " << text;
}

class DemoOnEngine : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override { database_ = GetParam().create(); }
  [[nodiscard]] Outcome demo() const { return runQvn({"demo", "-c", database_->connectionString()}); }
  [[nodiscard]] data::ConnectionPtr connect() const { return database_->connect(); }

  std::unique_ptr<TestDatabase> database_;
};
INSTANTIATE_TEST_SUITE_P(Engines, DemoOnEngine, testing::ValuesIn(engines()), engineName);

TEST_P(DemoOnEngine, LeavesTheFiguresOfTheStory) {
  const Outcome outcome = demo();
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  expectHolds(outcome.out, "Saldo del cliente en moneda base: 19,147.80\n");  // 6255.30 + 5220.00 + 450.00 x 17.05
  expectHolds(outcome.out, "Documento 1003: saldado (S), saldo 0.00\n");
  expectHolds(outcome.out, "Documento 1007: pendiente (P), saldo 3,220.00\n");  // 5104.00 + 116.00 - 2000.00
  expectHolds(outcome.out, "Pago 506: quedan por aplicar 1,744.70\n");          // 10000.00 - 6255.30 - 2000.00
  expectHolds(outcome.out, "Cliente C003: saldo 10,892.50\n");                  // 3220.00 + 450.00 x 17.05

  const auto connection = connect();
  EXPECT_EQ(firstColumn(connection, "SELECT estado FROM cobranza ORDER BY cobranza"), "S P S P S P P P P P P P");
  EXPECT_EQ(firstColumn(connection, "SELECT aplicado FROM caja ORDER BY abono"), "1 1 0 1 1 0");
  struct Row {
    const char* customer;
    double balance;
  };
  static constexpr Row kRows[] = {
      {"C001", 1276.00 - 76.00},
      {"C002", (4350.00 - 1850.00) + (1250.75 - 250.75) * 16.9},
      {"C003", 10892.50},
      {"C004", (820.00 - 300.00) * 17.05 + (7656.00 + 348.00)},
      {"C005", 8120.00 + 243.60 - 4060.00},
      {"C006", 2958.45 - 458.45},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.customer);
    const std::string sql = std::string("SELECT saldo FROM clients WHERE cliente = '") + row.customer + "'";
    EXPECT_NEAR(number(connection, sql), row.balance, 0.001);
  }
  EXPECT_NEAR(number(connection, "SELECT por_apli FROM caja WHERE abono = 503"), 650.00, 0.001);
}

TEST_P(DemoOnEngine, RunsAgainFromTheBeginning) {
  const Outcome first = demo();
  ASSERT_EQ(first.status, 0) << first.err;
  connect()->Execute("UPDATE cobdet SET importe = 1");
  connect()->Execute("DROP TABLE caja");  // as after a run that was cut off
  Outcome second = demo();
  ASSERT_EQ(second.status, 0) << second.err;
  const std::string note = "Ya había una de una ejecución anterior; se hace de nuevo desde el principio.\n";
  const std::size_t at = second.out.find(note);
  ASSERT_NE(at, std::string::npos) << second.out;
  EXPECT_EQ(second.out.erase(at, note.size()), first.out);
}

TEST_P(DemoOnEngine, LeavesForeignTablesAlone) {
  for (const std::string table : {"clients", "cobranza", "cobdet", "caja"}) {
    SCOPED_TRACE(table);
    const auto connection = connect();
    connection->Execute("CREATE TABLE " + table + " (mio VARCHAR(10))");
    connection->Execute("INSERT INTO " + table + " VALUES ('intacto')");
    const Outcome outcome = demo();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    expectHolds(outcome.err, "no lo cambió");
    EXPECT_EQ(firstColumn(connection, "SELECT mio FROM " + table), "intacto");
    EXPECT_THROW(connection->Execute("SELECT * FROM qvn_demo"), data::ProviderError);
    connection->Execute("DROP TABLE " + table);
  }
}

TEST_P(DemoOnEngine, NeverShowsThePassword) {
  const Outcome outcome = runQvn({"demo", "--traza", "-c", database_->connectionString() + ";Nota=x;PWD=\"s3;creto\""});
  EXPECT_EQ((outcome.out + outcome.err).find("creto"), std::string::npos) << outcome.out << outcome.err;
  expectHolds(outcome.out + outcome.err, "PWD=***");
}

TEST(DemoCommand, KeepsItsShopInAFolderOfItsOwn) {
  const TempFolder folder;
  // The connection of everyday work is not the one to practise on.
  const Outcome outcome =
      run({.arguments = {"demo"}, .environment = {"QVN_CONEXION=Provider=Nadie"}, .folder = folder.path()});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  expectHolds(outcome.out, "Base de datos: ./demo-qvn/tienda.db (SQLite)\n");
  EXPECT_TRUE(std::filesystem::is_regular_file(folder.path() / "demo-qvn" / "tienda.db"));
}

TEST(DemoCommand, SaysHowToGoOnLooking) {
  const TempFolder folder;
  const std::string awkward = (folder.path() / "a;b 'c' \"d\" ñ").string();
  const Outcome outcome = runQvn({"demo", "--carpeta", awkward});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const std::string heading = "Para seguir mirando:\n";
  const std::size_t at = outcome.out.find(heading);
  ASSERT_NE(at, std::string::npos);
  const Outcome pasted =
      run({.arguments = {"-e", "-c", outcome.out.substr(at + heading.size())}, .program = "/bin/sh"});
  EXPECT_EQ(pasted.status, 0) << pasted.err;
  expectHolds(pasted.out, "(12 registros)\n");
  expectHolds(pasted.out, "    1007  C003        3,220.00  3,220.00  P               10,892.50\n");
}

TEST(DemoCommand, LeavesForeignFilesAlone) {
  const TempFolder folder;
  const std::filesystem::path file = folder.path() / "tienda.db";
  const auto demo = [&] { return runQvn({"demo", "--carpeta", folder.path().string()}); };

  writeFile(file, "no soy una base de datos");
  EXPECT_EQ(demo().status, 1);
  EXPECT_EQ(readFile(file), "no soy una base de datos");

  std::filesystem::remove(file);
  const std::string connection = "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + file.string();
  ASSERT_EQ(runQvn({"sql", "-c", connection, "CREATE TABLE ajena (a INTEGER)"}).status, 0);
  const std::string before = readFile(file);
  const Outcome outcome = demo();
  EXPECT_EQ(outcome.status, 1);
  expectHolds(outcome.err, "no lo cambió");
  EXPECT_EQ(readFile(file), before);

  // An empty file holds nothing that could be lost.
  writeFile(file, "");
  EXPECT_EQ(demo().status, 0);
}

TEST(DemoCommand, TellsWhichFolderCannotBeMade) {
  const TempFolder folder;
  writeFile(folder.path() / "archivo", "x");
  const Outcome outcome = runQvn({"demo", "--carpeta", (folder.path() / "archivo" / "dentro").string()});
  EXPECT_EQ(outcome.status, 1);
  expectHolds(outcome.err, "qvn: No se pudo crear la carpeta «");
}

}  // namespace
}  // namespace qvn::test
