#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(LetraCommand, WritesOperandsAndLines) {
  EXPECT_EQ(expectRun(0, {.arguments = {"letra", "1234.56", "0", "--moneda", "PESOS", "--leyenda", " M.N."}}).out,
            "UN MIL DOSCIENTOS TREINTA Y CUATRO PESOS 56 /100 M.N.\nCERO PESOS 00/100 M.N.\n");
  EXPECT_EQ(expectRun(0, {.arguments = {"letra", "--sin-decimales"}, .input = "5\r\n-1"}).out, "    CINCO\n    \n");
  expectRun(1, {.arguments = {"letra", "12.999"}}, {"error 5"});
}

TEST(LetraCommand, ReportsBadLinesAndGoesOn) {
  const Call call{.arguments = {"letra", "-"}, .input = "1\nx\n12.999\n3000000000000000\n\n2\n"};
  EXPECT_EQ(expectRun(1, call, {"renglón 2: ", "renglón 3: ", "renglón 4: ", "renglón 5: ", "2.8E15"}).out,
            "UNO 00/100 \nDOS 00/100 \n");
}

TEST(CifraCommand, ThereAndBack) {
  EXPECT_EQ(expectRun(0, {.arguments = {"cifra", "--llave", "64", "CLAVE", "ñ"}}).out, "DMBWF\nò\n");
  EXPECT_EQ(expectRun(0, {.arguments = {"descifra", "--llave=64"}, .input = "DMBWF\n ò \n"}).out, "CLAVE\nñ\n");
  EXPECT_EQ(expectRun(1, {.arguments = {"descifra", "--llave=128"}, .input = "\x01\nD\n"}, {"renglón 1: "}).out, "B\n");
}

TEST(CalendarioCommand, TellsOfADate) {
  const Call call{.arguments = {"calendario", "--hora", "13:30", "2024-12-31"}, .environment = {"LC_ALL=es_MX.UTF-8"}};
  const std::string shown = expectRun(0, call).out;
  expectHolds(shown, {"fecha               31/12/2024 Martes       Dia\n", "Diciembre", "Noviembre", "Enero",
                      "01/12/2024 Domingo", "un mes después      31/01/2025 Viernes      ElSiguienteMes\n",
                      "bisiesto            sí", "13149450", "PrimerDiaDelaSemana\n"});
  expectHolds(expectRun(0, {.arguments = {"calendario"}}).out, {"fecha", "DateTimeSerial"});
}

}  // namespace
}  // namespace qvn::test
