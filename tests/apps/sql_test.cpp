#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

struct Row {
  const char* why;
  std::vector<std::string> arguments;
  std::string out;
  std::string input = {};
};

void expectRows(const std::vector<Row>& rows, const std::string& locale = "C") {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    std::vector<std::string> arguments{"sql", "-c", kMemory};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Call call{.arguments = arguments, .input = row.input, .environment = {"LC_ALL=" + locale}};
    EXPECT_EQ(expectRun(0, call).out, row.out);
  }
}

// clang-format off
TEST(SqlCommand, TablesAreForPeople) {
  expectRows({
      {"numbers to the right, texts to the left, NULL marked",
       {"SELECT 'Muñoz' AS nombre, 1160.5 AS saldo UNION ALL SELECT NULL, 3 UNION ALL SELECT 'NULL', -1"},
       "nombre   saldo\n"
       "──────  ──────\n"
       "Muñoz   1160.5\n"
       "<NULL>       3\n"
       "NULL        -1\n"
       "(3 registros)\n"},
      {"nothing steers the terminal", {"SELECT 'a' || char(27, 10, 8238) AS t, CAST(X'41F1' AS TEXT) AS u"},
       "t              u\n─────────────  ─────\na\\x1B\\n\\u202E  A\\xF1\n(1 registro)\n"},
      {"bytes are hexadecimal", {"SELECT X'00FF' AS b"}, "b\n──────\n0x00FF\n(1 registro)\n"},
      {"long texts are cut", {"SELECT printf('%.*c', 41, 'x') AS t"},
       "t\n────────────────────────────────────────\nxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx…\n(1 registro)\n"},
      {"unless they are asked for", {"--completo", "SELECT printf('%.*c', 41, 'x') AS t"},
       "t\n─────────────────────────────────────────\nxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\n(1 registro)\n"},
      {"no rows", {"SELECT 1 AS a WHERE 1 = 0"}, "a\n─\n(0 registros)\n"},
      {"a statement without rows", {"CREATE TABLE t (a)"}, "0 registros afectados\n"},
  });
}

TEST(SqlCommand, CsvAndJsonAreForPrograms) {
  const std::string values =
      "SELECT 1.5 AS n, 'a,\"b\"' AS q, 'x' || char(13, 10) || 'y' AS l, NULL AS z, '' AS e, X'0A' AS b";
  expectRows({
      {"RFC 4180 quotes", {"-f", "csv", values}, "n,q,l,z,e,b\r\n1.5,\"a,\"\"b\"\"\",\"x\r\ny\",,\"\",0x0A\r\n"},
      {"JSON escapes", {"--formato=json", values},
       "{\"n\":1.5,\"q\":\"a,\\\"b\\\"\",\"l\":\"x\\r\\ny\",\"z\":null,\"e\":\"\",\"b\":\"0x0A\"}\n"},
      {"controls and broken UTF-8", {"-f", "json", "SELECT char(27, 1) AS c, CAST(X'41F1' AS TEXT) AS u"},
       "{\"c\":\"\\u001b\\u0001\",\"u\":\"A\xEF\xBF\xBD\"}\n"},
      {"bytes pass through csv", {"-f", "csv", "SELECT CAST(X'41F1' AS TEXT) AS u"}, "u\r\nA\xF1\r\n"},
      {"numbers at the ends of their ranges",
       {"-f", "json", "SELECT -9223372036854775807 - 1 AS l, 1e300 AS d, 9e999 AS i, 0.1 + 0.2 AS s"},
       "{\"l\":-9223372036854775808,\"d\":1E+300,\"i\":\"INF\",\"s\":0.30000000000000004}\n"},
      {"columns of one name keep their values", {"-f", "json", "SELECT 1 AS a, 2 AS a, 3 AS a_2"},
       "{\"a\":1,\"a_2\":2,\"a_2_2\":3}\n"},
      {"no rows", {"-f", "csv", "SELECT 1 AS a WHERE 1 = 0"}, "a\r\n"},
      {"nor here", {"-f", "json", "SELECT 1 AS a WHERE 1 = 0"}, ""},
      {"a statement on standard input", {"-f", "csv"}, "a\r\n1\r\n", "SELECT 1 AS a;\n"},
      {"for a dash, over several lines", {"-f", "csv", "-"}, "a\r\nñ\r\n", "SELECT 'ñ'\n  AS a -- fin"},
      {"with an editor's byte order mark", {"-f", "csv"}, "a\r\n1\r\n", "\xEF\xBB\xBFSELECT 1 AS a"},
  });
}

TEST(SqlCommand, RegionalSettingsAreForPeopleAlone) {
  expectRows({
      {"decimal comma in tables", {"SELECT 1234.5 AS n"}, "     n\n──────\n1234,5\n(1 registro)\n"},
      {"not in csv", {"-f", "csv", "SELECT 1234.5 AS n"}, "n\r\n1234.5\r\n"},
      {"not in json", {"-f", "json", "SELECT 1234.5 AS n"}, "{\"n\":1234.5}\n"},
  }, "es_ES.UTF-8");
}
// clang-format on

TEST(SqlCommand, ColumnTypesDecideHowValuesAreShown) {
  const ScratchFolder folder;
  const std::string connection =
      "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + (folder.folder() / "t.db").string();
  const auto runHere = [&](const std::string& format, const std::string& statement) {
    return run(
        {.arguments = {"sql", "-c", connection, "-f", format, statement}, .environment = {"LC_ALL=es_MX.UTF-8"}});
  };
  runHere("csv", "CREATE TABLE t (importe DECIMAL(12,2), dia DATE, hora DATETIME, activo BIT)");
  const Outcome insert = runHere("json", "INSERT INTO t VALUES (1160, '2012-03-07', '2012-03-07 10:42:07', 1)");
  EXPECT_EQ(insert.out, "");
  EXPECT_EQ(insert.err, "1 registro afectado\n");
  const std::string all = "SELECT * FROM t";
  EXPECT_EQ(runHere("csv", all).out, "importe,dia,hora,activo\r\n1160.00,2012-03-07,2012-03-07T10:42:07,true\r\n");
  EXPECT_EQ(runHere("json", all).out,
            "{\"importe\":1160.00,\"dia\":\"2012-03-07\",\"hora\":\"2012-03-07T10:42:07\",\"activo\":true}\n");
  expectHolds(runHere("tabla", all).out, {"1160.00  07/03/2012  07/03/2012 10:42:07"});
}

TEST(SqlCommand, TheTraceShowsTheStatementOnOneLine) {
  const Outcome outcome = runQvn({"sql", "-c", kMemory, "--traza", "-f", "csv", "SELECT\n1 AS a"});
  EXPECT_EQ(outcome.out, "a\r\n1\r\n");
  EXPECT_EQ(outcome.err, "SELECT\\n1 AS a\n");
}

TEST(SqlCommand, TheOptionGoesBeforeTheEnvironment) {
  expectRun(0, {.arguments = {"sql", "SELECT 1"}, .environment = {"QVN_CONEXION=" + kMemory}});
  expectRun(0, {.arguments = {"sql", "-c", kMemory, "SELECT 1"}, .environment = {"QVN_CONEXION=Provider=Nadie"}});
}

}  // namespace
}  // namespace qvn::test
