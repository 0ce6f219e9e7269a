// The dump that hosts know, byte by byte.
#include "qvn/mysqladmin/database_backup.h"

#include <algorithm>

#include "tests/mysqladmin/shop_server.h"

namespace qvn::mysqladmin {
namespace {

using test::bytesOf;
using test::withCrLf;

class DatabaseBackupTest : public test::ShopServer {
 protected:
  // What stands between the header and the trailer, both checked here.
  std::string dumpedTables() {
    report_ = DatabaseBackup(file_, connection_, clock_);
    const std::string dump = bytesOf(file_);
    const std::string head = withCrLf(
                                 "\n#\n# Respaldo creado por: QvnGenericFunctions v0.1.0\n# Base datos: tienda\n"
                                 "# Fecha/Hora: 07/03/26 00:00:00\n# DBMS: MySQL v") +
                             scalar("show variables like 'version'", 1) +
                             withCrLf(
                                 "\n#\n\nSET FOREIGN_KEY_CHECKS=0;\n\nDROP DATABASE IF EXISTS `tienda`;\n"
                                 "CREATE DATABASE `tienda`;\nUSE `tienda`;\n");
    const std::string tail = withCrLf("\nSET FOREIGN_KEY_CHECKS=1;\n\n# Fin del Respaldo: 08/03/26 00:00:00\n");
    EXPECT_EQ(dump.substr(0, head.size()), head);
    EXPECT_EQ(dump.substr(dump.size() - tail.size()), tail);
    EXPECT_EQ(report_.bytes, static_cast<std::int64_t>(dump.size()));
    return dump.substr(head.size(), dump.size() - head.size() - tail.size());
  }

  // A table's block; `create` as the server tells it, on lines ended by line feeds.
  static std::string block(const std::string& table, const std::string& create, const std::string& rows) {
    const std::string insert = rows.empty() ? "" : "INSERT INTO `" + table + "` VALUES \n" + rows;
    return withCrLf("\n#\n# Estructura de la tabla " + table + "\n#\n") + create +
           withCrLf("\n\n#\n# Datos de la tabla " + table + "\n#\nlock tables `" + table + "` write;\n" + insert +
                    "unlock tables;\n#--------------------------------------------\n");
  }

  [[nodiscard]] bool hasSkipped(const std::string& step) const {
    return std::ranges::any_of(report_.skipped, [&](const SkippedStep& skipped) { return skipped.step == step; });
  }

  BackupReport report_;
};

TEST_F(DatabaseBackupTest, WritesTablesInTheirOrderByteByByte) {
  execute("CREATE TABLE b (id INT NOT NULL, PRIMARY KEY (id)) ENGINE=MyISAM DEFAULT CHARSET=latin1 COMMENT='x;'");
  execute("CREATE TABLE a (t VARCHAR(40) DEFAULT '\\\\;') ENGINE=InnoDB DEFAULT CHARSET=utf8mb4");
  execute("INSERT INTO b VALUES (5)");
  execute("CREATE TABLE empty (n INT) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_general_ci");
  execute("INSERT INTO a VALUES ('O''Brien\\\\x'), ('uno\\r\\ndos'), ('uno\\ndos'), (''), ('ñ€😀\\t'), ('\\'\\\\\\'')");
  EXPECT_EQ(dumpedTables(),
            block("a",
                  "CREATE TABLE `a` (\n  `t` varchar(40) DEFAULT '\\\\;'\n) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 "
                  "COLLATE=utf8mb4_general_ci;",
                  "('O\\'Brien\\\\x'),\n('uno\\r\\ndos'),\n('unodos'),\n(''),\n('ñ€😀\t'),\n('\\'\\\\\\'');\n") +
                block("b",
                      "CREATE TABLE `b` (\n  `id` int(11) NOT NULL,\n  PRIMARY KEY (`id`)\n) ENGINE=MyISAM DEFAULT "
                      "CHARSET=latin1 COLLATE=latin1_swedish_ci COMMENT='x;';",
                      "('5');\n") +
                block("empty",
                      "CREATE TABLE `empty` (\n  `n` int(11) DEFAULT NULL\n) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 "
                      "COLLATE=utf8mb4_general_ci;",
                      ""));
  EXPECT_TRUE(report_.isComplete());
  EXPECT_EQ(report_.rows, 7);
}

TEST_F(DatabaseBackupTest, WritesEveryTypeAsItsText) {
  struct Row {
    const char* type;
    const char* value;
    std::string text;
  };
  const Row rows[] = {
      {"TINYINT", "-128", "-128"},
      {"SMALLINT UNSIGNED", "65535", "65535"},
      {"MEDIUMINT", "-8388608", "-8388608"},
      {"INT UNSIGNED", "4294967295", "4294967295"},
      {"BIGINT UNSIGNED", "18446744073709551615", "18446744073709551615"},
      {"INT(6) ZEROFILL", "42", "42"},
      {"DECIMAL(20,4)", "3", "3.00"},
      {"DECIMAL(20,4)", "-0.005", "-0.01"},
      {"DECIMAL(20,4)", "2.6749", "2.67"},
      {"DECIMAL(65,30)", "12345678901234567890.995", "12345678901234567891.00"},
      {"DOUBLE", "3", "3"},
      {"DOUBLE", "0.1", "0.1"},
      {"FLOAT", "1.5", "1.5"},
      {"BIT(1)", "1", "True"},
      {"BIT(12)", "5", "5"},
      {"YEAR", "2026", "2026"},
      {"DATE", "'2012-03-07'", "2012-03-07"},
      {"TIME", "'10:42:07'", "10:42:07"},
      {"TIME", "'-30:00:00'", "-30:00:00"},
      {"DATETIME", "'2012-03-07 10:42:07'", "2012-03-07 10:42:07"},
      {"DATETIME(3)", "'2012-03-07 10:42:07.25'", "2012-03-07 10:42:07.25"},
      {"DATETIME(6)", "'2012-03-07 10:42:07.123456'", "2012-03-07 10:42:07.123456"},
      {"TIMESTAMP", "'2012-03-07 10:42:07'", "2012-03-07 10:42:07"},
      {"CHAR(5)", "'ab'", "ab"},
      {"TEXT CHARACTER SET latin1", "'ñ'", "ñ"},
      {"ENUM('a','b')", "'b'", "b"},
      {"SET('a','b')", "'a,b'", "a,b"},
      {"VARBINARY(9)", "0x27005C", std::string("\\'\0\\\\", 5)},
      {"BINARY(3)", "'a'", std::string("a\0\0", 3)},
      {"BLOB", "0x0D0A41", "\\r\\nA"},
      {"LONGTEXT CHARACTER SET utf16", "'ñ€😀'", "ñ€😀"},
      {"JSON", "'{\"a\":1}'", "{\"a\":1}"},
      {"UUID", "'123e4567-e89b-12d3-a456-426655440000'", "123e4567-e89b-12d3-a456-426655440000"},
      {"INET6", "'::1'", "::1"},
      {"POINT", "POINT(1, 2)", std::string("\0\0\0\0\1\1\0\0\0\0\0\0\0\0\0\xF0\x3F\0\0\0\0\0\0\0\x40", 25)},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.type) + " " + row.value);
    execute("DROP TABLE IF EXISTS t");
    execute(std::string("CREATE TABLE t (v ") + row.type + ")");
    execute(std::string("INSERT INTO t VALUES (") + row.value + ")");
    clock_ = test::FixedClock({Date::fromCivil(2026, 3, 7), Date::fromCivil(2026, 3, 8)});
    const std::string tables = dumpedTables();
    const std::string values = "VALUES \r\n('" + row.text + "');\r\n";
    EXPECT_NE(tables.find(values), std::string::npos) << tables;
  }
}

TEST_F(DatabaseBackupTest, WritesTheTextBeforeInPlaceOfNull) {
  execute("CREATE TABLE a (x VARCHAR(9), y DECIMAL(9,3), z DATE)");
  execute("INSERT INTO a VALUES (NULL, 1, NULL), ('\\'', NULL, '0000-00-00')");
  execute("CREATE TABLE b (x INT)");
  execute("INSERT INTO b VALUES (NULL)");
  const std::string tables = dumpedTables();
  EXPECT_NE(tables.find("('', '1.00', '1.00'),\r\n('\\'', '\\'', '\\'');\r\n"), std::string::npos) << tables;
  EXPECT_NE(tables.find("VALUES \r\n('\\'');\r\n"), std::string::npos) << tables;
  ASSERT_EQ(report_.skipped.size(), 4U);
  EXPECT_EQ(report_.skipped[2].step, "y");
  EXPECT_EQ(report_.skipped[1].times, 2);
  EXPECT_TRUE(report_.isComplete());
}

TEST_F(DatabaseBackupTest, GoesOnBehindEveryStepThatFails) {
  execute("CREATE TABLE `select` (a INT)");
  execute("CREATE TABLE `con-guion` (a INT)");
  execute("CREATE TABLE z (a INT)");
  execute("INSERT INTO z VALUES (1), (2)");
  execute("CREATE VIEW v AS SELECT a FROM z");
  execute("CREATE VIEW w AS SELECT a FROM `select`");
  execute("DROP TABLE `select`");
  const std::string tables = dumpedTables();
  EXPECT_NE(tables.find(withCrLf("# Estructura de la tabla con-guion\n#\n\n#\n# Datos de la tabla con-guion\n#\n"
                                 "lock tables `con-guion` write;\nunlock tables;\n#---")),
            std::string::npos)
      << tables;
  EXPECT_NE(tables.find(withCrLf("INSERT INTO `v` VALUES \n('1'),\n('2');\n")), std::string::npos) << tables;
  EXPECT_NE(tables.find(withCrLf("INSERT INTO `z` VALUES \n('1'),\n('2');\n")), std::string::npos) << tables;
  EXPECT_TRUE(hasSkipped("SHOW CREATE TABLE con-guion"));
  EXPECT_TRUE(hasSkipped("SELECT * FROM w"));
  EXPECT_FALSE(report_.isComplete());
}

TEST_F(DatabaseBackupTest, TakesTheNameBehindDatabase) {
  struct Row {
    std::string_view connection;
    std::string_view name;
  };
  for (const Row& row : {Row{"MySQL;DATABASE=tienda;UID=a", "tienda"}, Row{"MySQL;Database=la `tienda`", "la `tienda`"},
                         Row{"MySQL;UID=a", ""}, Row{"", ""}, Row{"DATABASE=;X", ""}}) {
    EXPECT_EQ(namedDatabase(row.connection), row.name);
  }
}

TEST_F(DatabaseBackupTest, SaysWhereNothingCouldBeWritten) {
  execute("CREATE TABLE a (x INT)");
  for (const std::string& path : {folder_.path("nada/a.sql"), std::string("/dev/full")}) {
    EXPECT_FALSE(DatabaseBackup(path, connection_, clock_).isComplete()) << path;
  }
  EXPECT_FALSE(DatabaseBackup(file_, nullptr, clock_).isComplete());
  connection_->Close();
  EXPECT_FALSE(DatabaseBackup(file_, connection_, clock_).isComplete());
}

TEST_F(DatabaseBackupTest, TellsItsProgressAndStopsOnRequest) {
  execute("CREATE TABLE a (x INT)");
  execute("INSERT INTO a SELECT seq FROM seq_1_to_3000");
  int calls = 0;
  report_ = DatabaseBackup(file_, connection_, clock_, {.observe = [&](const TransferProgress& at) {
                             EXPECT_EQ(at.table, "a");
                             EXPECT_GT(at.total, 0);
                             return ++calls < 3;
                           }});
  EXPECT_TRUE(report_.wasInterrupted);
  EXPECT_EQ(calls, 3);
  EXPECT_LT(report_.rows, 3000);
}

}  // namespace
}  // namespace qvn::mysqladmin
