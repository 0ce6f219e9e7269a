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
      {{"saldo-proveedor", "-c", kMemory}, "falta un número de documento"},
      {{"saldo-proveedor", "-c", kMemory, "3.5"}, "«3.5» no es un número de documento"},
      {{"consecutivo", "-c", kMemory}, "el nombre de un consecutivo"},
      {{"consecutivo", "-c", kMemory, "A", "B"}, "el nombre de un consecutivo"},
      {{"consecutivo", "-c", kMemory, ""}, "falta el nombre de un consecutivo"},
      {{"consecutivo", "-c", kMemory, "A' OR 'A'='A"}, "sin comillas sencillas"},
      {{"consecutivo", "-c", kMemory, "A\\"}, "ni diagonales invertidas"},
      {{"consecutivo", "-c", kMemory, "--ver", "--seguro", "A"}, "no van juntas"},
      {{"surtir", "-c", kMemory, "71"}, "una partida y una cantidad"},
      {{"surtir", "-c", kMemory, "71", "1", "2"}, "una partida y una cantidad"},
      {{"surtir", "-c", kMemory, "x", "1"}, "«x» no es un número de partida"},
      {{"surtir", "-c", kMemory, "2147483648", "1"}, "no mayor que 2147483647"},
      {{"surtir", "-c", kMemory, "71", "dos"}, "«dos» no es una cantidad"},
      {{"surtir", "-c", kMemory, "71", "1,5"}, "con punto decimal"},
      {{"surtir", "-c", kMemory, "71", "1e3"}, "con punto decimal"},
      {{"recibir", "-c", kMemory, "83", "inf"}, "«inf» no es una cantidad"},
      {{"recibir", "-c", kMemory, "83", ""}, "«» no es una cantidad"},
      {{"lotes", "-c", kMemory}, "el número de una salida"}, {{"lotes", "-c", kMemory, "9 OR 1"}, "«9 OR 1» no es"},
      {{"precios", "-c", kMemory}, "falta un código de artículo"},
      {{"precios", "-c", kMemory, "  "}, "falta un código de artículo"},
      {{"precios", "-c", kMemory, "A'B"}, "«A'B» no es un código de artículo"},
      {{"precios", "-c", kMemory, "A", "caro"}, "«caro» no es un precio"},
      {{"precios", "-c", kMemory, "A", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}, "a lo más diez"},
      {{"precios", "-c", kMemory, "A", "-u", "MARIA"}, "faltan los precios"},
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
