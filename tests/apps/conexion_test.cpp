#include <gtest/gtest.h>

#include "qvn/data/drivers/built_in.h"
#include "tests/apps/run_program.h"
#include "tests/support/test_database.h"

namespace qvn::test {
namespace {

TEST(ConexionCommand, ShowsWhatAConnectionStringStandsFor) {
  data::registerBuiltInDrivers();
  const auto memory = data::Connection::create();
  memory->Open("Provider=SQLite;Data Source=:memory:");
  const Outcome outcome =
      expectRun(0, {.arguments = {"conexion", "-c", "Provider=SQLite;Data Source=:memory:;PWD=x1"}});
  EXPECT_EQ(outcome.out,
            "conexión     Provider=SQLite;Data Source=:memory:;PWD=***\n"
            "───────────  ────────────────────────────────────────────\n"
            "controlador  SQLite\n"
            "motor        " +
                memory->EngineVersion() +
                "\n"
                "dialecto     MySQL\n");
  expectRun(1, {.arguments = {"conexion", "-c", "Provider=Nada;PWD=x1"}}, {"3706", "Provider=Nada;PWD=***"});
}

class ConexionOnEngine : public testing::TestWithParam<Engine> {};

TEST_P(ConexionOnEngine, NamesTheDriverAndTheEngine) {
  const auto database = GetParam().create();
  const Outcome outcome = expectRun(0, {.arguments = {"conexion", "-c", database->connectionString()}});
  expectHolds(outcome.out, {"controlador  " + GetParam().driver + "\n", "\nmotor        ", "\ndialecto     "});
  EXPECT_EQ(outcome.out.find("of the tests"), std::string::npos) << outcome.out;
}

INSTANTIATE_TEST_SUITE_P(Engines, ConexionOnEngine, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
