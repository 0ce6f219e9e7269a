#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

const std::string kMemory = "Provider=SQLite;Data Source=:memory:";

// More than the program keeps in memory before it writes.
const std::string kManyRows =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000) SELECT i FROM n";

TEST(Failure, TellsNumberWordsAndNoPassword) {
  struct Row {
    const char* why;
    std::string connection;
    std::string statement;
    std::vector<std::string> said;
  };
  const Row rows[] = {
      {"no such provider", "Provider=Nadie;PWD=s3creto", "SELECT 1", {"«Nadie»", "error 3706", "SQLite"}},
      {"a forgotten semicolon", "Provider=Nadie PWD=s3creto", "SELECT 1", {"falta un «;»", "error -2147217805"}},
      {"an open quote", "MySQL;UID=a;PWD='s3creto;X=1", "SELECT 1", {"error -2147217805", "cadena de conexión"}},
      {"nobody answers", "MySQL;SERVER=127.0.0.1;PORT=1;PWD=s3creto", "SELECT 1", {"«127.0.0.1:1»", "PWD=***"}},
      {"no such file", "Provider=SQLite;Data Source=/no/hay.db", "SELECT 1", {"«/no/hay.db»", "error -2147467259"}},
      {"no such table", kMemory, "SELECT * FROM nada", {"no such table: nada", "42S02", "Qué hacer: "}},
      {"a syntax error", kMemory, "SELEC 1", {"near \"SELEC\": syntax error", "error -2147217900", "SQLite 1"}},
      {"words that steer the terminal", kMemory, "SELECT \x1B[2J", {"\\x1B"}},
      {"a second statement", kMemory, "SELECT 1; SELECT 2", {"más de una sentencia"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const Outcome outcome = runQvn({"sql", "-c", row.connection, row.statement});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("qvn: ")) << outcome.err;
    for (const std::string& piece : row.said) EXPECT_NE(outcome.err.find(piece), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.find("s3creto"), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.find('\x1B'), std::string::npos);
  }
}

TEST(Failure, AWaitMayBeLimited) {
  const std::string endless =
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0";
  const Outcome outcome = runQvn({"sql", "-c", kMemory, "--espera", "1", endless});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("error -2147217871"), std::string::npos) << outcome.err;
}

TEST(Failure, AReaderThatGoesAwayIsNoFailure) {
  for (const char* format : {"tabla", "csv", "json"}) {
    SCOPED_TRACE(format);
    const Outcome outcome = run({.arguments = {"sql", "-c", kMemory, "-f", format, kManyRows}, .hasReader = false});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
  }
}

TEST(Failure, AFullDiskIsOne) {
  for (const std::string& statement : {std::string("SELECT 1"), kManyRows}) {
    const Outcome outcome = run({.arguments = {"sql", "-c", kMemory, statement}, .outputFile = "/dev/full"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.starts_with("qvn: no se pudo escribir la salida: ")) << outcome.err;
  }
}

TEST(Failure, AnErrorInTheMiddleComesAfterTheRowsBeforeIt) {
  // The engine finds the overflow on the third row.
  const Outcome outcome = runQvn({"sql", "-c", kMemory, "-f", "csv",
                                  "SELECT abs(column1) AS n FROM (VALUES (-1), (2), (-9223372036854775807 - 1))"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "n\r\n1\r\n2\r\n");
  EXPECT_NE(outcome.err.find("integer overflow"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace qvn::test
