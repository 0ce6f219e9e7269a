#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

constexpr const char* kRows =
    "SELECT 'A1' AS articulo, 12.5 AS precio, NULL AS nota UNION ALL SELECT 'dos\nrenglones', -3, 'x'";
const std::string kLines =
    "¨articulo[&&,]\"A1\"¨precio[&&,]12.5¨nota[&&,]Null¨\n"
    "¨articulo[&&,]\"dos\nrenglones\"¨precio[&&,]-3¨nota[&&,]\"x\"¨\n";

TEST(FilaCommand, RowsGoOutAndComeBack) {
  EXPECT_EQ(expectRun(0, {.arguments = {"fila", "-c", kMemory, kRows}}).out, kLines);
  const auto read = [](const std::string& lines, const char* format) {
    return expectRun(
               0, {.arguments = {"fila", "--lee", "-f", format}, .input = lines, .environment = {"LC_ALL=es_ES.UTF-8"}})
        .out;
  };
  EXPECT_EQ(read(kLines, "json"),
            "{\"articulo\":\"A1\",\"precio\":12.5,\"nota\":null}\n"
            "{\"articulo\":\"dos\\nrenglones\",\"precio\":-3,\"nota\":\"x\"}\n");
  EXPECT_EQ(read(kLines, "csv"), "articulo,precio,nota\r\nA1,12.5,\r\n\"dos\nrenglones\",-3,x\r\n");
  EXPECT_EQ(read("¨a[&&,]1¨\r\n\r\n¨A[&&,]2¨\r\n", "csv"), "a\r\n1\r\n2\r\n");
  EXPECT_EQ(read("", "json"), "");
  EXPECT_EQ(read("\n ¨ \n", "json"), "");
}

TEST(FilaCommand, LinesThatDoNotReadAreReportedAndLeftOut) {
  const std::string lines =
      "basura\n¨a[&&,]1¨b[&&,]\"x\"¨\n¨a[&&,]2¨A[&&,]3¨\n¨b[&&,]#¨\n¨b[&&,]\"y\"¨\n¨a[&&,]4¨c[&&,]5¨\n¨a[&&,]6";
  const Outcome outcome = run({.arguments = {"fila", "--lee", "-f", "csv"}, .input = lines});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "a,b\r\n1,x\r\n,y\r\n6,\r\n");
  expectHolds(outcome.err, {"renglón 1: ", "(error 9)", "renglón 3: ", "(error 457)", "renglón 4: ", "(error 5)",
                            "renglón 6: el campo «c» no está en el primer registro"});
  expectRun(1, {.arguments = {"fila", "-c", kMemory, "CREATE TABLE t (i INTEGER)"}}, {"no devuelve registros"});
}

}  // namespace
}  // namespace qvn::test
