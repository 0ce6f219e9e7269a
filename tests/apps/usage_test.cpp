#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

const std::string kMemory = "Provider=SQLite;Data Source=:memory:";

TEST(Usage, AWrongCallIsToldWhatIsWrong) {
  struct Row {
    const char* why;
    std::vector<std::string> arguments;
    std::string input;
    std::string said;
  };
  const Row rows[] = {
      {"no command", {}, "", "falta el comando"},
      {"unknown command", {"saldos"}, "", "no existe el comando «saldos»"},
      {"a command that steers the terminal", {"\x1B[2J"}, "", "«\\x1B[2J»"},
      {"options before the command", {"--traza", "sql"}, "", "el comando va antes"},
      {"unknown option", {"sql", "--nada"}, "", "no existe la opción «--nada»"},
      {"no connection", {"sql", "SELECT 1"}, "", "-c CADENA o en la variable QVN_CONEXION"},
      {"no connection for a document", {"saldo", "1"}, "", "QVN_CONEXION"},
      {"two statements as words", {"sql", "-c", kMemory, "SELECT", "1"}, "", "entre comillas"},
      {"an empty statement", {"sql", "-c", kMemory, " \n"}, "", "la sentencia está vacía"},
      {"nothing on standard input", {"sql", "-c", kMemory, "-"}, " \n", "la sentencia está vacía"},
      {"unknown output format", {"sql", "-c", kMemory, "-f", "xml", "SELECT 1"}, "", "hay tabla, csv y json"},
      {"a wait that is none", {"sql", "-c", kMemory, "--espera", "-1", "SELECT 1"}, "", "no es un número de segundos"},
      {"no document", {"saldo", "-c", kMemory}, "", "falta un número de documento"},
      {"a document that is none", {"saldo", "-c", kMemory, "1003", "1x"}, "", "«1x» no es un número de documento"},
      {"more than a number", {"saldo", "-c", kMemory, "1 OR 1=1"}, "", "se espera un número entero"},
      {"not whole", {"saldo", "-c", kMemory, "1.5"}, "", "se espera un número entero"},
      {"an empty number", {"saldo", "-c", kMemory, ""}, "", "se espera un número entero"},
      {"beyond 64 bits", {"saldo", "-c", kMemory, "9223372036854775808"}, "", "se espera un número entero"},
      {"a payment that is none", {"por-aplicar", "-c", kMemory, "0x10"}, "", "«0x10» no es un número de abono"},
      {"a value without pattern", {"formato", "1"}, "", "un valor y un patrón"},
      {"no such type", {"formato", "--tipo", "entero", "1", "0"}, "", "hay numero, fecha y texto"},
      {"not of that type", {"formato", "--tipo", "fecha", "abc", "0"}, "", "«abc» no se lee como fecha"},
      {"two places for the shop", {"demo", "--carpeta", "x", "-c", kMemory}, "", "no van juntas"},
      {"operands of the demonstration", {"demo", "x"}, "", "sólo opciones"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const Outcome outcome = run({.arguments = row.arguments, .input = row.input});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("qvn: ")) << outcome.err;
    EXPECT_NE(outcome.err.find(row.said), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("--ayuda»"), std::string::npos) << outcome.err;
  }
}

}  // namespace
}  // namespace qvn::test
