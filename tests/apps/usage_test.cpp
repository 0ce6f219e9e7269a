#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(Usage, AWrongCallIsToldWhatIsWrong) {
  // clang-format off
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{}, "falta el comando"}, {{"saldos"}, "no existe el comando «saldos»"}, {{"\x1B[2J"}, "«\\x1B[2J»"},
      {{"--traza", "sql"}, "el comando va antes"}, {{"sql", "--nada"}, "no existe la opción «--nada»"},
      {{"sql", "SELECT 1"}, "-c CADENA o en la variable QVN_CONEXION"}, {{"saldo", "1"}, "QVN_CONEXION"},
      {{"sql", "-c", kMemory, "SELECT", "1"}, "entre comillas"},
      {{"sql", "-c", kMemory, " \n"}, "la sentencia está vacía"},
      {{"sql", "-c", kMemory, "-"}, "la sentencia está vacía"},  // read from the standard input
      {{"sql", "-c", kMemory, "-f", "xml", "SELECT 1"}, "hay tabla, csv y json"},
      {{"sql", "-c", kMemory, "--espera", "-1", "SELECT 1"}, "no es un número de segundos"},
      {{"saldo", "-c", kMemory}, "falta un número de documento"},
      {{"saldo", "-c", kMemory, "1003", "1x"}, "«1x» no es un número de documento"},
      {{"saldo", "-c", kMemory, "1 OR 1=1"}, "se espera un número entero"},
      {{"saldo", "-c", kMemory, ""}, "se espera un número entero"},
      {{"saldo", "-c", kMemory, "9223372036854775808"}, "se espera un número entero"},
      {{"por-aplicar", "-c", kMemory, "0x10"}, "«0x10» no es un número de abono"},
      {{"formato", "1"}, "un valor y un patrón"}, {{"formato", "--tipo", "entero", "1", "0"}, "hay numero, fecha y texto"},
      {{"formato", "--tipo", "fecha", "abc", "0"}, "«abc» no se lee como fecha"},
      {{"demo", "--carpeta", "x", "-c", kMemory}, "no van juntas"}, {{"demo", "x"}, "sólo opciones"},
  };
  // clang-format on
  for (const auto& [arguments, said] : rows) {
    EXPECT_EQ(expectRun(2, {.arguments = arguments, .input = " \n"}, {said, "--ayuda»"}).out, "");
  }
}

}  // namespace
}  // namespace qvn::test
