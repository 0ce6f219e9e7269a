#include "tests/apps/demo_shop.h"

namespace qvn::test {
namespace {

class ConsecutivoCommand : public DemoShop {};
INSTANTIATE_TEST_SUITE_P(Engines, ConsecutivoCommand, testing::ValuesIn(shopEngines()), engineName);

TEST_P(ConsecutivoCommand, WritesTheNumberAlone) {
  // The shop's last VENTAS is 1042. Each row sees what those before it drew.
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"--ver", "VENTAS"}, "1043\n"},
      {{"--ver", "VENTAS"}, "1043\n"},
      {{"VENTAS"}, "1043\n"},
      {{"--seguro", "VENTAS"}, "1044\n"},
      {{"VENTAS"}, "1045\n"},
      {{"--ver", "VENTAS"}, "1046\n"},
      {{"NUEVO"}, "1\n"},
      {{"NUEVO"}, "2\n"},
      {{"--seguro", "OTRO"}, "1\n"},
      {{"--seguro", "OTRO"}, "2\n"},
      {{"--ver", "NADIE"}, "1\n"},
      {{"Ñandú 1"}, "1\n"},
  };
  for (const auto& [words, number] : rows) {
    std::vector<std::string> arguments{"consecutivo"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    EXPECT_EQ(expectRun(0, call(arguments)).out, number) << testing::PrintToString(arguments);
  }
  EXPECT_EQ(valuesOf("SELECT consec FROM consec WHERE dato IN ('VENTAS', 'PEDIDOS', 'NADIE') ORDER BY dato"),
            "2002 1045");
}

TEST_P(ConsecutivoCommand, OnlyThePlainDrawLocksTheTable) {
  const bool isMySql = database_->connectionString().starts_with("MySQL");
  const std::pair<std::vector<std::string>, bool> rows[] = {
      {{"consecutivo", "--traza", "VENTAS"}, isMySql},
      {{"consecutivo", "--traza", "VENTAS", "--seguro"}, false},
      {{"consecutivo", "--traza", "VENTAS", "--ver"}, false},
  };
  for (const auto& [arguments, locks] : rows) {
    const Outcome outcome = run(call(arguments));
    EXPECT_EQ(outcome.status, 0);
    expectHolds(outcome.err, {"consec"});
    EXPECT_EQ(outcome.err.find("LOCK TABLES consec WRITE") != std::string::npos, locks) << outcome.err;
  }
}

TEST_P(ConsecutivoCommand, SaysWhyItGivesNoNumber) {
  execute("INSERT INTO consec VALUES ('NULO', NULL), ('LLENO', 2147483647)");
  for (const std::string option : {"--ver", "--seguro", "--traza"}) {
    const Outcome full = run(call({"consecutivo", option, "LLENO"}));
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.out, "");
    expectHolds(full.err, {"error 6"});
  }
  EXPECT_EQ(expectRun(1, call({"consecutivo", "NULO"}), {"error 94"}).out, "");
  execute("DROP TABLE consec");
  for (const std::string option : {"--ver", "--seguro"}) {
    EXPECT_EQ(expectRun(1, call({"consecutivo", option, "VENTAS"}), {"error -2147217865", "consec"}).out, "");
  }
}

}  // namespace
}  // namespace qvn::test
