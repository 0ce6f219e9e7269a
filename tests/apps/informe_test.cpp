// qvn informe: definitions made, changed by hand and rendered.
#include "tests/apps/run_program.h"
#include "tests/support/file_size_limit.h"

namespace qvn::test {
namespace {

const std::string kTwoRows = "SELECT 'Muñoz' AS cliente, 1160.5 AS saldo_actual UNION ALL SELECT 'Ríos', -0.25";

class InformeCommand : public CommandInFolder {
 protected:
  InformeCommand() : CommandInFolder("informe") {}
  [[nodiscard]] std::string file(const char* name) const { return bytesOf(folder_.folder() / name); }
  void define(const std::string& text) const { putBytes(folder_.folder() / "v.informe", text); }
};

TEST_F(InformeCommand, MakesADefinitionThatIsChangedAndRendered) {
  EXPECT_EQ(expectRun(0, call({"--nuevo", "v.informe", kTwoRows})).out, "Definición «v.informe»: 2 columnas\n");
  std::string definition = file("v.informe");
  expectHolds(definition, {"\nconsulta = " + kTwoRows + "\n", "\n[columna]\ncampo = cliente\ntitulo = Cliente\n",
                           "\n[columna]\ncampo = saldo_actual\ntitulo = Saldo actual\n"});
  definition += "suma = si\nformato = 0.00\n";
  // The type of an expression is not always known to the engine, and so a format may be there.
  const std::size_t given = definition.find("formato = #,##0.00\n");
  if (given != definition.npos) definition.erase(given, 19);
  define(definition);
  EXPECT_EQ(expectRun(0, call({"v.informe", "v.txt"})).out, "Informe «v.txt»: 2 registros\n");
  expectHolds(file("v.txt"), {"Página 1\n", "1160.50\n", "-0.25\n", "Total general", "1160.25\n"});
  expectRun(0, call({"v.informe", "v.html"}));
  expectHolds(file("v.html"), {"<td>Muñoz</td>"});
  expectRun(0, call({"v.informe", "v.pdf"}));
  EXPECT_EQ(file("v.pdf").substr(0, 5), "%PDF-");
}

TEST_F(InformeCommand, ReadsTheStatementAndLeavesExistingFiles) {
  define("otro");
  expectRun(1, call({"-n", "v.informe"}, kTwoRows), {"error 58", "«v.informe»"});
  EXPECT_EQ(file("v.informe"), "otro");
  expectRun(0, call({"-n", "--reemplaza", "v.informe"}, kTwoRows));
  putBytes(folder_.folder() / "v.txt", "otro");
  expectRun(1, call({"v.informe", "v.txt"}), {"error 58"});
  expectRun(0, call({"v.informe", "v.txt", "--reemplaza"}));
  expectHolds(file("v.txt"), {"Ríos"});
}

TEST_F(InformeCommand, FailuresLeaveNothing) {
  struct Row {
    const char* why;
    std::vector<std::string> arguments;
    int status;
    std::string said;
  };
  define("[informe]\nconsulta = SELECT 1 AS a FROM nada\n");
  putBytes(folder_.folder() / "malo.informe", "[informe]\nconsulta = SELECT 1\n[columna]\nancho = x\n");
  const Row rows[] = {
      {"no definition", {}, 2, "falta el nombre de la definición"},
      {"no file", {"v.informe"}, 2, "falta el nombre del archivo"},
      {"too many operands", {"v.informe", "a.txt", "b.txt"}, 2, "sobra «b.txt»"},
      {"an unquoted statement", {"-n", "n.informe", "SELECT", "1"}, 2, "entre comillas"},
      {"an empty statement", {"-n", "n.informe", " "}, 2, "vacía"},
      {"a definition that is not there", {"nada.informe", "a.txt"}, 1, "error 53"},
      {"a bad definition", {"malo.informe", "a.txt"}, 1, "«malo.informe»: Línea 4: «x» no es un ancho"},
      {"a query that fails", {"v.informe", "a.txt"}, 1, "nada"},
      {"an unknown ending", {"v.informe", "a.doc"}, 1, ".txt, .html o .pdf"},
      {"no rows to show", {"-n", "n.informe", "CREATE TABLE t (a)"}, 1, "no devuelve registros"},
      {"a field without a name", {"-n", "n.informe", "SELECT 1 AS \"\""}, 1, "Falta el campo"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    expectRun(row.status, call(row.arguments), {row.said});
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.folder()), {}), 2);
  }
}

}  // namespace
}  // namespace qvn::test
