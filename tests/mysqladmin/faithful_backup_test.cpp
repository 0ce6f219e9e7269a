// A faithful dump brings a database back exactly, by this library and by the engine's own client.
#include "qvn/mysqladmin/faithful_backup.h"

#include "qvn/data/provider_error.h"
#include "qvn/mysqladmin/database_restore.h"
#include "qvn/mysqladmin/dump_verification.h"
#include "qvn/mysqladmin/faithful_value.h"
#include "tests/mysqladmin/shop_server.h"
#include "tests/support/error_of.h"

namespace qvn::mysqladmin {
namespace {

class FaithfulBackupTest : public test::ShopServer {
 protected:
  void fillWithOddities() {
    execute("SET SESSION sql_mode = 'NO_AUTO_VALUE_ON_ZERO'");
    execute(
        "CREATE TABLE nums (id INT PRIMARY KEY AUTO_INCREMENT, a TINYINT, d BIGINT UNSIGNED, e DECIMAL(65,30), "
        "f FLOAT, g DOUBLE, h BIT(1), i BIT(64), j YEAR, k INT(6) ZEROFILL, l FLOAT(7,2)) ENGINE=InnoDB");
    execute(
        "INSERT INTO nums VALUES (0, -5, 18446744073709551615, 12345678901234567890.123456789, 0.1, 1e300, 1, "
        "0xFFFFFFFFFFFFFFFF, 2049, 42, 1.1), (7, NULL, 0, -0.005, 16777217, -0e0, 0, 1, 0, 0, NULL), "
        "(8, 1, 1, NULL, 3.4e38, 2.2250738585072014e-308, NULL, NULL, NULL, NULL, 99999.99)");
    execute(
        "CREATE TABLE `te``xt-os` (t VARCHAR(50), u TEXT CHARACTER SET latin1, v BLOB, w VARBINARY(10), "
        "x ENUM('a','b'), y SET('p','q'), z JSON, c CHAR(5), g POINT, uu UUID, i6 INET6, `sel ect` BINARY(3)) "
        "ENGINE=MyISAM COMMENT 'dos\nlíneas;'");
    execute(
        "INSERT INTO `te``xt-os` VALUES ('O''Brien\\\\x', 'áéñ', 0x0001FF270A, 0x00, 'a', 'p,q', '{\"a\":1}', 'ab', "
        "POINT(1, 2), '123e4567-e89b-12d3-a456-426655440000', '::1', 'a'), "
        "('uno\\r\\ndos\\n\\0\\Z;\\n-- #\\n', NULL, '', '', NULL, '', NULL, '', NULL, NULL, NULL, NULL)");
    execute("CREATE TABLE dates (d DATE, t TIME(3), dt DATETIME(6), ts TIMESTAMP NULL, KEY (d)) ENGINE=Aria");
    execute(
        "INSERT INTO dates VALUES ('2012-03-07', '10:42:07.5', '2012-03-07 10:42:07.123456', '2012-03-07 10:42:07'), "
        "('0000-00-00', '-838:59:59', '2012-00-00 00:00:00', NULL), ('0001-02-03', NULL, NULL, NULL)");
    execute("CREATE TABLE parent (a INT PRIMARY KEY, b INT AS (a + 1) STORED, c INT INVISIBLE DEFAULT 7)");
    execute("CREATE TABLE child (a INT, FOREIGN KEY (a) REFERENCES parent (a))");
    execute("INSERT INTO parent (a, c) VALUES (1, 2), (3, 4)");
    execute("INSERT INTO child VALUES (3)");
    execute("CREATE VIEW z AS SELECT a FROM parent");
    execute("CREATE VIEW b AS SELECT * FROM z");
    execute("CREATE TRIGGER tr BEFORE INSERT ON parent FOR EACH ROW BEGIN SET NEW.a = 2 * NEW.a; SET @x = ';\n'; END");
  }
};

TEST_F(FaithfulBackupTest, ComesBackWithEqualChecksumsByThisLibraryAndByTheEnginesClient) {
  fillWithOddities();
  execute("SET SESSION time_zone = '+05:00', sql_mode = 'ANSI_QUOTES'");
  const std::string before = fingerprint();
  for (const char* name : {"a.sql", "a.sql.gz", "a.sql.zst"}) {
    SCOPED_TRACE(name);
    const BackupReport backup = backupFaithfully(folder_.path(name), connection_, clock_);
    EXPECT_TRUE(backup.isComplete());
    EXPECT_EQ(backup.rows, 11);
    execute("DELETE FROM child");
    execute("UPDATE nums SET g = 5");
    const RestoreReport report = restoreByGrammar(folder_.path(name), connection_);
    EXPECT_TRUE(report.isComplete()) << report.failure.value_or(RestoreFailure{}).reason;
    EXPECT_EQ(fingerprint(), before);
  }
  EXPECT_EQ(scalar("SELECT @@time_zone"), "+05:00");
  drop();
  EXPECT_EQ(runClient("mariadb", "< " + folder_.path("a.sql")), 0);
  EXPECT_EQ(fingerprint(), before);
}

TEST_F(FaithfulBackupTest, TablesAloneComeBackByLinesAsWell) {
  fillWithOddities();
  execute("DROP TRIGGER tr");
  const std::string before = fingerprint();
  backupFaithfully(file_, connection_, clock_);
  drop();
  const RestoreReport report = DatabaseRestore(file_, open("qvn_test"));
  EXPECT_TRUE(report.isComplete()) << report.failure.value_or(RestoreFailure{}).reason;
  EXPECT_EQ(fingerprint(), before);
}

TEST_F(FaithfulBackupTest, CutsInsertsBelowTheServersLimit) {
  execute("CREATE TABLE a (id INT PRIMARY KEY, t VARCHAR(1000))");
  execute("INSERT INTO a SELECT seq, REPEAT('x', 1000) FROM seq_1_to_5000");
  const BackupReport report = backupFaithfully(file_, connection_, clock_);
  EXPECT_EQ(report.rows, 5000);
  EXPECT_GT(report.longestStatement, 900'000);
  EXPECT_LT(report.longestStatement, 1'000'000);
  EXPECT_GT(report.bytes, 5'000'000);
}

TEST_F(FaithfulBackupTest, ReadsOneMomentWhileOthersWrite) {
  execute("CREATE TABLE a (x INT)");
  execute("INSERT INTO a SELECT seq FROM seq_1_to_3000");
  execute("CREATE TABLE b (x INT)");
  const auto other = open("tienda");
  const auto write = [&](const TransferProgress& /*at*/) {
    other->Execute("INSERT INTO b VALUES (1)");
    return true;
  };
  EXPECT_EQ(backupFaithfully(file_, connection_, clock_, write).rows, 3000);
  EXPECT_NE(scalar("SELECT COUNT(*) FROM b"), "0");
}

TEST_F(FaithfulBackupTest, LeavesAnOlderFileWhenItFails) {
  execute("CREATE TABLE a (x INT)");
  execute("INSERT INTO a SELECT seq FROM seq_1_to_3000");
  std::ofstream(file_) << "older";
  const auto stop = [](const TransferProgress& /*at*/) { return false; };
  EXPECT_TRUE(backupFaithfully(file_, connection_, clock_, stop).wasInterrupted);
  std::int64_t killed = 0;
  const auto kill = [&](const TransferProgress& /*at*/) {
    open("tienda")->Execute("KILL " + std::to_string(killed));
    return true;
  };
  execute("INSERT INTO a SELECT seq FROM seq_1_to_500000");
  killed = connection_->Execute("SELECT CONNECTION_ID()")->Fields(0).Value().toLongLong();
  EXPECT_THROW(backupFaithfully(file_, connection_, clock_, kill), data::ProviderError);
  EXPECT_EQ(test::errorNumber([&] { backupFaithfully("/dev/full", open("tienda"), clock_); }), error_number::kDiskFull);
  EXPECT_EQ(test::bytesOf(file_), "older");
  EXPECT_FALSE(std::filesystem::exists(file_ + ".parcial"));
}

TEST_F(FaithfulBackupTest, VerificationTellsEqualFromChanged) {
  execute("CREATE TABLE a (x INT)");
  execute("INSERT INTO a VALUES (1), (2)");
  execute("CREATE TABLE b (x INT)");
  backupFaithfully(file_, connection_, clock_);
  EXPECT_TRUE(verifyDump(file_, connection_).matches());
  EXPECT_EQ(scalar("SELECT DATABASE()"), "tienda");
  EXPECT_EQ(scalar("SHOW DATABASES LIKE 'qvn\\_verifica%'"), "no row");

  execute("UPDATE a SET x = 3 WHERE x = 2");
  execute("DROP TABLE b");
  const VerificationReport report = verifyDump(file_, connection_);
  EXPECT_FALSE(report.matches());
  ASSERT_EQ(report.tables.size(), 2U);
  EXPECT_EQ(report.tables[0].original.rows, report.tables[0].restored.rows);
  EXPECT_NE(report.tables[0].original.checksum, report.tables[0].restored.checksum);
  EXPECT_EQ(report.tables[1].original.rows, -1);
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM a WHERE x = 3"), "1");

  std::ofstream(file_) << "INSERT INTO nada VALUES (1);";
  EXPECT_FALSE(verifyDump(file_, connection_).matches());
}

TEST(FaithfulValue, IsReadBackAsItWas) {
  struct Row {
    Variant value;
    ColumnForm form;
    std::string literal;
  };
  const Row rows[] = {
      {Null{}, ColumnForm::Text, "NULL"},
      {Variant(std::int16_t{-7}), ColumnForm::Number, "-7"},
      {Variant(std::int64_t{-9223372036854775807}), ColumnForm::Number, "-9223372036854775807"},
      {Variant(0.1), ColumnForm::Number, "0.1"},
      {Variant(-0.0), ColumnForm::Number, "-0e0"},
      {Variant(Decimal::fromText("18446744073709551615").value()), ColumnForm::Number, "18446744073709551615"},
      {Variant("1.50"), ColumnForm::Number, "1.50"},
      {Variant(std::string("a'\\\"\n\r\0\x1A\tñ", 11)), ColumnForm::Text, "'a\\'\\\\\"\\n\\r\\0\\Z\tñ'"},
      {Variant(""), ColumnForm::Text, "''"},
      {Variant(std::string("\0\xFF'", 3)), ColumnForm::Bytes, "0x00FF27"},
      {Variant(""), ColumnForm::Bytes, "''"},
  };
  for (const Row& row : rows) {
    std::string sql = "(";
    appendFaithfully(row.value, row.form, sql);
    EXPECT_EQ(sql, "(" + row.literal);
  }
}

}  // namespace
}  // namespace qvn::mysqladmin
