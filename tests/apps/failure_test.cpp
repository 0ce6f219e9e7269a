#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

// More than the program keeps in memory before it writes.
const std::string kManyRows =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000) SELECT i FROM n";

TEST(Failure, TellsNumberWordsAndNoPassword) {
  struct Row {
    std::string connection;
    std::string statement;
    std::vector<std::string> said;
  };
  // clang-format off
  const Row rows[] = {
      {"Provider=Nadie;PWD=s3creto", "SELECT 1", {"«Nadie»", "error 3706", "SQLite"}},
      {"Provider=Nadie PWD=s3creto", "SELECT 1", {"falta un «;»", "error -2147217805"}},
      {"MySQL;UID=a;PWD='s3creto;X=1", "SELECT 1", {"error -2147217805", "cadena de conexión"}},
      {"MySQL;SERVER=127.0.0.1;PORT=1;PWD=s3creto", "SELECT 1", {"«127.0.0.1:1»", "PWD=***"}},
      {"Provider=SQLite;Data Source=/no/hay.db", "SELECT 1", {"«/no/hay.db»", "error -2147467259"}},
      {kMemory, "SELECT * FROM nada", {"no such table: nada", "42S02", "Qué hacer: "}},
      {kMemory, "SELEC 1", {"near \"SELEC\": syntax error", "error -2147217900", "SQLite 1"}},
      {kMemory, "SELECT \x1B[2J", {"\\x1B"}},
      {kMemory, "SELECT 1; SELECT 2", {"más de una sentencia"}},
  };
  // clang-format on
  for (const Row& row : rows) {
    const Outcome outcome = expectRun(1, {.arguments = {"sql", "-c", row.connection, row.statement}}, row.said);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.find("s3creto"), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.find('\x1B'), std::string::npos);
  }
}

TEST(Failure, AWaitMayBeLimited) {
  const std::string endless =
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0";
  expectRun(1, {.arguments = {"sql", "-c", kMemory, "--espera", "1", endless}}, {"error -2147217871"});
}

TEST(Failure, AReaderThatGoesAwayIsNoneButAFullDiskIs) {
  for (const char* format : {"tabla", "csv", "json"}) {
    expectRun(0, {.arguments = {"sql", "-c", kMemory, "-f", format, kManyRows}, .hasReader = false});
  }
  for (const std::string& statement : {std::string("SELECT 1"), kManyRows}) {
    expectRun(1, {.arguments = {"sql", "-c", kMemory, statement}, .outputFile = "/dev/full"},
              {"qvn: no se pudo escribir la salida: "});
  }
}

TEST(Failure, AnErrorInTheMiddleComesAfterTheRowsBeforeIt) {
  // The engine finds the overflow on the third row.
  const std::string statement = "SELECT abs(column1) AS n FROM (VALUES (-1), (2), (-9223372036854775807 - 1))";
  EXPECT_EQ(expectRun(1, {.arguments = {"sql", "-c", kMemory, "-f", "csv", statement}}, {"integer overflow"}).out,
            "n\r\n1\r\n2\r\n");
}

}  // namespace
}  // namespace qvn::test
