// Dumps replayed on a real server.
#include "qvn/mysqladmin/database_restore.h"

#include "qvn/mysqladmin/database_backup.h"
#include "tests/mysqladmin/shop_server.h"

namespace qvn::mysqladmin {
namespace {

class RestoreTest : public test::ShopServer {
 protected:
  RestoreReport restored(const std::string& text) {
    std::ofstream(file_, std::ios::binary) << text;
    return DatabaseRestore(file_, connection_);
  }
};

TEST_F(RestoreTest, BringsBackWhatItsOwnDumpHolds) {
  execute("CREATE TABLE a (id INT PRIMARY KEY, t VARCHAR(40) NOT NULL, d DATE NOT NULL) ENGINE=MyISAM COMMENT 'x;'");
  execute("INSERT INTO a VALUES (1, 'O''Brien\\\\x', '2026-03-07'), (2, 'ñ', '2026-03-08')");
  const std::string before = fingerprint();
  ASSERT_TRUE(DatabaseBackup(file_, connection_, clock_).isComplete());
  execute("DELETE FROM a");
  execute("CREATE TABLE later (x INT)");
  const RestoreReport report = DatabaseRestore(file_, connection_);
  EXPECT_TRUE(report.isComplete()) << report.failure.value_or(RestoreFailure{}).reason;
  // SET, DROP, CREATE, USE; CREATE, lock, INSERT, unlock; SET.
  EXPECT_EQ(report.statements, 9);
  EXPECT_EQ(fingerprint(), before);
}

TEST_F(RestoreTest, StopsAtTheFirstErrorAndSaysWhere) {
  const RestoreReport report = restored("CREATE TABLE a (x INT);\n\nINSERT INTO\nnada VALUES (1);\nDROP TABLE a;\n");
  ASSERT_TRUE(report.failure.has_value());
  EXPECT_EQ(report.failure->line, 3);
  EXPECT_EQ(report.failure->statement, "INSERT INTOnada VALUES (1);");
  EXPECT_EQ(report.statements, 1);
  EXPECT_EQ(scalar("SHOW TABLES"), "a");

  EXPECT_EQ(DatabaseRestore(folder_.path("nada.sql"), connection_).failure.value().number, 53);
  EXPECT_EQ(DatabaseRestore(file_, nullptr).failure.value().number, 91);
}

TEST_F(RestoreTest, LeavesAStatementWithoutEndUnrun) {
  const RestoreReport report = restored("CREATE TABLE a (x INT);\nDROP TABLE a");
  EXPECT_EQ(report.unfinished, "DROP TABLE a");
  EXPECT_FALSE(report.isComplete());
  EXPECT_EQ(scalar("SHOW TABLES"), "a");
}

TEST_F(RestoreTest, AStatementOverThePacketLimitIsRefusedWhole) {
  std::string dump = "CREATE TABLE a (t LONGTEXT);\nINSERT INTO a VALUES \n('" + std::string(9'000'000, 'x') +
                     "'),\n('" + std::string(9'000'000, 'y') + "');\n";
  EXPECT_TRUE(restored(dump).failure.has_value());
  EXPECT_EQ(open("tienda")->Execute("SELECT COUNT(*) FROM a")->Fields(0).Value().toText(), "0");

  open("tienda")->Execute("DROP TABLE a");
  const data::ConnectionPtr session = open("tienda");
  const RestoreReport split = restoreByGrammar(file_, session);
  EXPECT_TRUE(split.isComplete()) << split.failure.value_or(RestoreFailure{}).reason;
  EXPECT_EQ(split.statements, 3);
  EXPECT_EQ(session->Execute("SELECT SUM(LENGTH(t)) FROM a")->Fields(0).Value().toText(), "18000000");
}

TEST_F(RestoreTest, ByGrammarPutsTheSessionBackAsItWas) {
  const std::string settings =
      "SELECT CONCAT_WS('|', @@sql_mode, @@time_zone, @@autocommit, @@foreign_key_checks, "
      "@@character_set_client, DATABASE())";
  const std::string before = scalar(settings);
  std::ofstream(file_) << "SET NAMES latin1; SET SESSION sql_mode = 'ANSI', time_zone = '+05:00', autocommit = 0, "
                          "foreign_key_checks = 0; USE mysql; CREATE TABLE tienda.a (x INT) ENGINE=InnoDB;"
                          "INSERT INTO tienda.a VALUES (1); /*!999999 SKIPPED */; INSERT INTO nada VALUES (1);";
  const RestoreReport report = restoreByGrammar(file_, connection_);
  ASSERT_TRUE(report.failure.has_value());
  EXPECT_EQ(report.failure->statement, "INSERT INTO nada VALUES (1)");
  EXPECT_EQ(scalar(settings), before);
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM a"), "0");
}

TEST_F(RestoreTest, ReplaysTheEnginesOwnDumps) {
  execute("CREATE TABLE a (id INT AUTO_INCREMENT PRIMARY KEY, t TEXT, b BLOB, n DECIMAL(30,10)) ENGINE=InnoDB");
  execute("INSERT INTO a VALUES (1, '-- it''s;\\n#x\\r\\n', 0x00FF27, 1.5), (2, NULL, NULL, NULL), (7, 'b', '', 0)");
  execute("CREATE TABLE m (x INT, KEY (x)) ENGINE=MyISAM");
  execute("INSERT INTO m VALUES (1), (2)");
  execute("CREATE VIEW v AS SELECT id FROM a");
  execute("CREATE TRIGGER t BEFORE INSERT ON m FOR EACH ROW BEGIN SET NEW.x = NEW.x; SET @a = ';'; END");
  const std::string before = fingerprint();
  ASSERT_EQ(runClient("mariadb-dump", "tienda > " + file_), 0);
  drop();
  open("qvn_test")->Execute("CREATE DATABASE tienda CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci");
  const RestoreReport report = restoreByGrammar(file_, open("tienda"));
  EXPECT_TRUE(report.isComplete()) << report.failure.value_or(RestoreFailure{}).reason;
  EXPECT_EQ(fingerprint(), before);

  // By lines: tables without comments, triggers and views.
  ASSERT_EQ(runClient("mariadb-dump", "--skip-comments --skip-triggers tienda a m > " + file_), 0);
  drop();
  open("qvn_test")->Execute("CREATE DATABASE tienda CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci");
  const data::ConnectionPtr session = open("tienda");
  const RestoreReport byLines = DatabaseRestore(file_, session);
  EXPECT_TRUE(byLines.isComplete()) << byLines.failure.value_or(RestoreFailure{}).reason;
  EXPECT_EQ(session->Execute("SELECT COUNT(*) FROM a")->Fields(0).Value().toText(), "3");
}

}  // namespace
}  // namespace qvn::mysqladmin
