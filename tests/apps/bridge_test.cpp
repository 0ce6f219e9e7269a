// The bridge as a program: its example clients, its limits and its end.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(Bridge, ExampleClientsSettleADocument) {
  const ScratchFolder folder;
  ASSERT_EQ(run({.arguments = {"demo"}, .folder = folder.folder()}).status, 0);
  const std::string shop = (folder.folder() / "demo-qvn" / "tienda.db").string();
  for (const auto& [interpreter, file] : {std::pair("python3", "cobranza.py"), std::pair("node", "cobranza.mjs")}) {
    SCOPED_TRACE(file);
    const std::string client = std::string(QVN_EXAMPLES "/puente/") + file;
    const Outcome outcome = run({.arguments = {interpreter, client, shop, QVN_PROGRAM},
                                 .environment = {"PYTHONIOENCODING=utf-8"},
                                 .program = "/usr/bin/env"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "pregunta: ¿Recalcular el documento 1007?\n"
              "saldo: 3220 P\n"
              "letra: TRES MIL DOSCIENTOS VEINTE PESOS 00/100 M.N.\n"
              "salida: listo\n"
              "error: -2147217865\n");
  }
}

TEST(Bridge, AnswersEachLineInOrder) {
  std::string input;
  std::string expected;
  for (int i = 1; i <= 5000; ++i) {
    input += "{\"id\":" + std::to_string(i) + ",\"op\":\"MesSiguiente\",\"in\":{\"nMes\":12}}\n";
    expected += "{\"id\":" + std::to_string(i) + ",\"out\":{\"result\":1}}\n";
  }
  input.pop_back();  // the last line may lack its end
  EXPECT_EQ(expectRun(0, {.arguments = {"puente"}, .input = input}).out, expected);
}

TEST(Bridge, LineBeyondTheLimitIsAnsweredAndPassedOver) {
  const std::string input = "{\"op\":\"clEmpty\",\"in\":{\"cDato\":\"" + std::string(100'000'000, ' ') + "\"}}\r\n" +
                            "{\"op\":\"Mes\",\"in\":{\"nMes\":3}}\r\n";
  const Outcome outcome = expectRun(0, {.arguments = {"puente"}, .input = input});
  expectHolds(outcome.out,
              {"{\"id\":null,\"error\":{\"number\":5,", "\n{\"id\":null,\"out\":{\"result\":\"Marzo\"}}\n"});
  expectHolds(expectRun(0, {.arguments = {"puente", "--limite=128"}, .input = input}).out, {"{\"result\":true}"});
}

TEST(Bridge, WrongCallsSayWhatIsWrong) { expectRun(1, {.arguments = {"metodos", "noexiste"}}, {"noexiste"}); }

TEST(Methods, ReferencePageIsTheOneInTheDocuments) {
  EXPECT_EQ(runQvn({"metodos", "--markdown"}).out, bytesOf(QVN_EXAMPLES "/../docs/methods.md"))
      << "write it anew: qvn metodos --markdown > docs/methods.md";
}

TEST(Methods, AreFoundByAPartOfTheirName) {
  EXPECT_EQ(runQvn({"metodos", "PONLETRA"}).out,
            "PonLetra(Numero Double*, Leyenda String*, bolDecimales Boolean, [strMoneda String = \"\"]) -> String\n");
  expectHolds(runQvn({"metodos", "--json", "bolint"}).out,
              {R"({"name":"bolInt","parameters":[{"name":"bolValue","type":"Boolean","optional":false,)",
               R"("writtenBack":false}],"result":"Integer"})"});
}

}  // namespace
}  // namespace qvn::test
