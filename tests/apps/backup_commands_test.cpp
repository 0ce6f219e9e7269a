// qvn respalda, restaura and repara on a real server.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "qvn/data/connection.h"
#include "qvn/data/drivers/built_in.h"
#include "tests/apps/run_program.h"
#include "tests/support/mysql_server.h"
#include "tests/support/server_lock.h"

namespace qvn::test {
namespace {

class BackupCommands : public testing::Test {
 protected:
  BackupCommands() {
    drop();
    connection_->Execute("CREATE DATABASE tienda_cli CHARACTER SET utf8mb4");
    connection_->Execute("USE tienda_cli");
    connection_->Execute("CREATE TABLE clients (id INT PRIMARY KEY, nombre VARCHAR(40), saldo DECIMAL(18,4))");
    connection_->Execute("INSERT INTO clients VALUES (1, 'Muñoz\\ne hijos', 1.2345), (2, NULL, 0)");
  }
  ~BackupCommands() override { drop(); }

  void drop() const {
    try {
      connection_->Execute("DROP DATABASE IF EXISTS tienda_cli");
    } catch (const RuntimeError& error) {
      ADD_FAILURE() << error.description();
    }
  }

  static data::ConnectionPtr open() {
    data::registerBuiltInDrivers();
    auto connection = data::Connection::create();
    connection->Open(mysqlConnectionString());
    return connection;
  }

  [[nodiscard]] std::string scalar(const std::string& sql) const {
    return connection_->Execute(sql)->Fields(0).Value().toText();
  }

  static std::string target() {
    std::string text = mysqlConnectionString();
    return text.replace(text.rfind("DATABASE=qvn_test"), std::string::npos, "DATABASE=tienda_cli;");
  }

  [[nodiscard]] Call call(std::vector<std::string> arguments) const {
    return {.arguments = std::move(arguments), .environment = {"QVN_CONEXION=" + target()}, .folder = folder_.folder()};
  }

  ScratchFolder folder_;
  data::ConnectionPtr connection_ = open();
  data::ConnectionPtr lock_ = holdServerLock("tienda_cli");
};

TEST_F(BackupCommands, AFaithfulBackupIsVerifiedAndRestored) {
  const std::string before =
      scalar("SELECT GROUP_CONCAT(CONCAT_WS('|', id, COALESCE(nombre, '-'), saldo)) FROM clients");
  expectHolds(expectRun(0, call({"respalda", "--simula", "a.sql.gz"})).out, {"clients  InnoDB", "Simulación"});
  EXPECT_FALSE(std::filesystem::exists(folder_.folder() / "a.sql.gz"));
  const Outcome backup = expectRun(0, call({"respalda", "--fiel", "--verifica", "a.sql.gz"}));
  expectHolds(backup.out, {"Respaldo «a.sql.gz»: 1 tablas, 2 renglones", "clients          2               2  igual"});
  struct stat status {};
  ASSERT_EQ(stat((folder_.folder() / "a.sql.gz").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);

  connection_->Execute("DELETE FROM clients WHERE id = 2");
  expectHolds(expectRun(1, call({"restaura", "--verifica", "a.sql.gz"}), {"no es igual"}).out, {"DISTINTA"});
  expectHolds(expectRun(0, call({"restaura", "--fiel", "--aqui", "a.sql.gz"})).out, {"sentencias ejecutadas"});
  EXPECT_EQ(scalar("SELECT GROUP_CONCAT(CONCAT_WS('|', id, COALESCE(nombre, '-'), saldo)) FROM clients"), before);
  expectRun(0, call({"restaura", "--fiel", "a.sql.gz"}));
}

TEST_F(BackupCommands, TheUsualBackupTellsWhatItDoesNotKeep) {
  const Outcome backup = expectRun(0, call({"respalda", "a.sql"}), {"columna «nombre»", "en lugar de Null"});
  expectHolds(backup.out, {"2 renglones"});
  expectHolds(expectRun(0, call({"restaura", "--simula", "a.sql"})).out,
              {"11: DROP DATABASE IF EXISTS `tienda_cli`;", "9 sentencias; no se ejecutó ninguna"});
  expectHolds(expectRun(0, call({"restaura", "a.sql"})).out, {"9 sentencias ejecutadas"});
  EXPECT_EQ(open()->Execute("SELECT saldo FROM tienda_cli.clients")->Fields(0).Value().toText(), "1.23");
}

TEST_F(BackupCommands, FailuresSayWhereAndGiveTheirStatus) {
  putBytes(folder_.folder() / "cut.sql", "DO 1;\nDO 2");
  expectRun(1, call({"restaura", "cut.sql"}), {"no termina con «;»", "sentencia: DO 2"});
  putBytes(folder_.folder() / "bad.sql", "DO 1;\n\nINSERT INTO nada VALUES (1);\n");
  expectRun(1, call({"restaura", "bad.sql"}), {"línea 3: ", "(error -2147217865)", "sentencia: INSERT INTO nada"});
  expectRun(1, call({"restaura", "nada.sql"}), {"nada.sql", "(error 53)"});
  expectRun(1, call({"respalda", "nada/a.sql"}), {"(error 76"});
  expectRun(1, call({"respalda", "--fiel", "/dev/full"}), {"error 61"});
}

TEST_F(BackupCommands, ThePasswordNeverStandsInTheCommand) {
  expectRun(2, call({"respalda", "a.sql", "-c", "MySQL;UID=a;PWD=s3creto"}), {"QVN_CLAVE", "--pide-clave"});
  std::string bare = target();
  const std::size_t password = bare.find("PWD=");
  const std::size_t end = bare.find("DATABASE=");
  std::string secret = bare.substr(password + 5, end - password - 7);
  secret.replace(secret.find("\"\""), 2, "\"").replace(secret.find("\"\""), 2, "\"");
  bare.erase(password, end - password);
  putBytes(folder_.folder() / "clave", secret + "\r\nno\n");
  const std::vector<std::string> command = {"respalda", "--fiel", "a.sql", "-c", bare};
  const auto with = [&](const std::string& word) {
    std::vector<std::string> words = command;
    words.push_back(word);
    return words;
  };
  expectRun(0, {.arguments = command, .environment = {"QVN_CLAVE=" + secret}, .folder = folder_.folder()});
  expectRun(0, {.arguments = with("--archivo-clave=clave"), .folder = folder_.folder()});
  const Outcome asked = run({.arguments = with("--pide-clave"), .input = secret + "\n", .folder = folder_.folder()});
  EXPECT_EQ(asked.status, 0) << asked.err;
  expectRun(1, {.arguments = with("--archivo-clave=nada"), .folder = folder_.folder()}, {"«nada»", "error 53"});
  expectRun(1, {.arguments = command, .environment = {"QVN_CLAVE=otra"}, .folder = folder_.folder()}, {"no aceptó"});
}

TEST_F(BackupCommands, ARepairTellsWhatItDid) {
  connection_->Execute(
      "CREATE TABLE reparando (tabla VARCHAR(40) PRIMARY KEY, reparando INT, fechainicio VARCHAR(20), "
      "fechafin VARCHAR(20))");
  connection_->Execute("CREATE TABLE prods (id INT PRIMARY KEY) ENGINE=MyISAM");
  const std::string words = "Index for table './tienda_cli/prods.MYI' is corrupt";
  const Outcome repaired = run(call({"repara", words}));
  EXPECT_EQ(repaired.status, 0) << repaired.err;
  expectHolds(repaired.err, {"Reparando: prods\n", "\nstatus "});
  connection_->Execute("UPDATE reparando SET reparando = 1");
  expectRun(1, call({"repara", words}), {"otra estación"});
}

}  // namespace
}  // namespace qvn::test
