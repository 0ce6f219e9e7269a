// qvn exporta, its workbooks read back by an independent reader.
#include "tests/apps/run_program.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/read_workbook.h"

namespace qvn::test {
namespace {

const std::string kTwoRows = "SELECT 'Muñoz' AS cliente, 1160.5 AS saldo UNION ALL SELECT 'Ríos', 0.25";

class ExportaCommand : public CommandInFolder {
 protected:
  ExportaCommand() : CommandInFolder("exporta") {}
  [[nodiscard]] std::string workbook() const { return readWorkbook((folder_.folder() / "v.xlsx").string()); }
  [[nodiscard]] bool isFolderEmpty() const { return std::filesystem::is_empty(folder_.folder()); }
};

TEST_F(ExportaCommand, WritesRowsWithTitlesAndTotals) {
  const Outcome outcome =
      expectRun(0, call({"v.xlsx", "--titulos", "Cliente, Debe", "--totales=SALDO", "--hoja", "Saldos", kTwoRows}));
  EXPECT_EQ(outcome.out, "Libro «v.xlsx»: 2 registros en 1 hoja\n");
  EXPECT_EQ(workbook(),
            "sheet Saldos frozen=1 filter=A1:B3 widths=12.3,10.3\n"
            "A1|text|@ bold|Cliente\nB1|text|@ bold|Debe\n"
            "A2|text|@|Muñoz\nB2|number|#,##0.00##|1160.5\n"
            "A3|text|@|Ríos\nB3|number|#,##0.00##|0.25\n"
            "A4|text|@ bold|Total\nB4|=SUM(B2:B3)|#,##0.00## bold|1160.75\n");
}

TEST_F(ExportaCommand, ReadsTheStatementAndTellsWhatBecameText) {
  expectRun(0, call({"v.xlsx"}, "SELECT 1234567890123456 AS n, printf('%.*c', 40000, 'x') AS t"),
            {"1 números o fechas", "1 textos tienen más de 32767"});
  expectHolds(workbook(), {"A2|text|@|1234567890123456\n", "xxx…\n"});
}

TEST_F(ExportaCommand, LeavesAnExistingFileUnlessToldOtherwise) {
  putBytes(folder_.folder() / "v.xlsx", "otro");
  expectRun(1, call({"v.xlsx", kTwoRows}), {"error 58", "«v.xlsx»"});
  EXPECT_EQ(bytesOf(folder_.folder() / "v.xlsx"), "otro");
  expectRun(0, call({"--reemplaza", "v.xlsx", kTwoRows}));
  expectHolds(workbook(), {"A3|text|@|Ríos\n"});
}

TEST_F(ExportaCommand, FailuresLeaveNothing) {
  struct Row {
    const char* why;
    std::vector<std::string> arguments;
    int status;
    std::string said;
  };
  const Row rows[] = {
      {"no rows to export", {"v.xlsx", "CREATE TABLE t (a)"}, 1, "no devuelve registros"},
      {"a statement that fails", {"v.xlsx", "SELECT 1 FROM nada"}, 1, "nada"},
      {"a total of no field", {"v.xlsx", "-s", "otro", kTwoRows}, 1, "otro"},
      {"a name that no sheet has", {"v.xlsx", "--hoja", "a/b", kTwoRows}, 1, "a/b"},
      {"more titles than fields", {"v.xlsx", "-t", "a,b,c", kTwoRows}, 2, "3 títulos y 2 campos"},
      {"no such folder", {"nada/v.xlsx", kTwoRows}, 1, "error 76"},
      {"no file name", {}, 2, "falta el nombre"},
      {"an empty statement", {"v.xlsx", " "}, 2, "vacía"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    expectRun(row.status, call(row.arguments), {row.said});
    EXPECT_TRUE(isFolderEmpty());
  }
}

// The program that runs has the limits of the one that starts it.
TEST_F(ExportaCommand, AFullDiskLeavesNothing) {
  const Call rows = call({"v.xlsx",
                          "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c WHERE n < 9000) SELECT n, "
                          "hex(randomblob(9)) FROM c"});
  Outcome outcome;
  {
    const FileSizeLimit guard(200'000);
    outcome = run(rows);
  }
  EXPECT_EQ(outcome.status, 1) << outcome.err;
  expectHolds(outcome.err, {"error 61", "«v.xlsx»"});
  EXPECT_TRUE(isFolderEmpty());
}

}  // namespace
}  // namespace qvn::test
