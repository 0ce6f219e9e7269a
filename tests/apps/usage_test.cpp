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
      {{"barras"}, "code128, code39, ean13 o ean8"}, {{"barras", "qr", "A"}, "«qr»"},
      {{"barras", "ean8"}, "un solo texto"}, {{"barras", "ean8", "1", "--alto=-1"}, "--alto va de 0 a 1000"},
      {{"barras", "ean8", "--lista", "x"}, "--salida"},
      {{"bitacora", "-f", "ayer"}, "no se lee como una fecha"}, {{"calendario", "ayer"}, "AAAA-MM-DD"},
      {{"cifra", "CLAVE"}, "--llave"}, {{"cifra", "--llave=40000", "CLAVE"}, "32767"},
      {{"conexion", "Provider=SQLite"}, "sobra «Provider=SQLite»"},
      {{"ejecuta"}, "falta el comando"}, {{"ejecuta", " "}, "está vacío"},
      {{"fila", "--lee", "-f", "xml"}, "no existe el formato «xml»"}, {{"fila", "--lee", "SELECT 1"}, "entrada estándar"},
      {{"fila", "-c", kMemory}, "se espera una sentencia"}, {{"letra", "doce"}, "doce"},
      {{"movil"}, "falta la operación"}, {{"movil", "version"}, "--biblioteca o la variable QVN_RAPI"},
      {{"movil", "copia", "a", "b"}, "no existe la operación «copia»"},
      {{"movil", "trae", "a"}, "uno de esta máquina"}, {{"movil", "borra"}, "un archivo del dispositivo"},
      {{"movil", "ejecuta", "a", "b", "c"}, "entre comillas"}, {{"movil", "version", "x"}, "nada más"},
      {{"movil", "version", "--carpeta", "a", "--biblioteca", "b"}, "no van juntas"},
      {{"movil", "version", "--carpeta", "/", "--espera", "ya"}, "«ya» no es un número de segundos"},
      {{"ping"}, "se espera un solo host"}, {{"ping", "a", "b"}, "se espera un solo host"},
      {{"ping", std::string(65, 'x')}, "más de 64 caracteres"}, {{"ping", "-n", "x", "a"}, "«x» no es una cuenta"},
      {{"ping", "-n", "-1", "a"}, "la cuenta no puede ser negativa"},
      {{"ping", "-i", "-1", "a"}, "el intervalo va de 0 a 3600 segundos"},
      {{"ping", "-i", "3601", "a"}, "el intervalo va de 0 a 3600 segundos"},
      {{"ping", "-W", "0", "a"}, "la espera es de una milésima"}, {{"ping", "-W", "0,5", "a"}, "con punto decimal"},
      {{"pregunta", "-b", "3", "¿Sigue?"}, "de 1 a 2"},
      {{"puente", "x"}, "entrada estándar"}, {{"puente", "--limite", "0"}, "--limite"},
      {{"recalcula", "-c", kMemory, "1007"}, "no lleva argumentos"}, {{"recalcula"}, "QVN_CONEXION"},
      {{"repara", "-c", kMemory, "nada"}, "no nombra un índice"},
      {{"respalda", "-c", kMemory, "--verifica", "a.sql"}, "--fiel"}, {{"respalda", "-c", kMemory}, "archivo"},
      {{"restaura", "-c", kMemory, "--aqui", "a.sql"}, "--fiel"},
      {{"demo", "--carpeta", "x", "-c", kMemory}, "no van juntas"}, {{"demo", "x"}, "sólo opciones"},
  };
  // clang-format on
  for (const auto& [arguments, said] : rows) {
    EXPECT_EQ(
        expectRun(2, {.arguments = arguments, .input = " \n", .environment = {"QVN_RAPI="}}, {said, "--ayuda»"}).out,
        "");
  }
}

}  // namespace
}  // namespace qvn::test
