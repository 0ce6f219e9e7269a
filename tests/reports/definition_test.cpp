// Definitions of reports: read, changed, saved and rendered.
#include "qvn/reports/definition.h"

#include <gtest/gtest.h>

#include "qvn/data/drivers/built_in.h"
#include "tests/reports/written_report.h"
#include "tests/support/error_of.h"

namespace qvn::reports {
namespace {

const std::string kSales =
    "# Ventas por cliente\n"
    "[informe]\n"
    "titulo = Ventas = todas\n"
    "consulta = SELECT 'Ríos' AS cliente, 1.5 AS importe\n"
    "   UNION ALL SELECT 'Ríos', 2\n"
    "Papel=A4 Horizontal\n"
    "\n"
    "; el grupo\n"
    "[Grupo]\n"
    "campo = cliente\n"
    "  titulo = Cliente\n"
    "\n"
    "[columna]\n"
    "campo = cliente\n"
    "[ columna ]\n"
    "campo = importe\n"
    "titulo = Importe\n"
    "ancho = 12\n"
    "formato = #,##0.00;(#,##0.00)\n"
    "alinea = derecha\n"
    "suma = sí\n"
    "# fin\n";

ReportDefinition read(std::string_view text) {
  ReportDefinition definition;
  definition.read(text);
  return definition;
}

TEST(ReportDefinition, SaysWhatWasWritten) {
  const ReportDefinition definition = read(kSales);
  EXPECT_EQ(definition.title(), "Ventas = todas");
  EXPECT_EQ(definition.subtitle(), "");
  EXPECT_EQ(definition.query(), "SELECT 'Ríos' AS cliente, 1.5 AS importe\nUNION ALL SELECT 'Ríos', 2");
  EXPECT_EQ(definition.paper(), Paper::A4Landscape);
  EXPECT_EQ(definition.groups(), (std::vector<GroupSettings>{{.field = "cliente", .heading = "Cliente"}}));
  EXPECT_EQ(definition.columns(), (std::vector<ColumnSettings>{{.field = "cliente"},
                                                               {.field = "importe",
                                                                .heading = "Importe",
                                                                .width = 12,
                                                                .alignment = Alignment::Right,
                                                                .pattern = "#,##0.00;(#,##0.00)",
                                                                .isSummed = true}}));
}

TEST(ReportDefinition, KeepsWhatIsNotChanged) {
  EXPECT_EQ(read(kSales).text(), kSales);
  EXPECT_EQ(read("\xEF\xBB\xBF[informe]\r\nconsulta = x\r\n").text(), "\xEF\xBB\xBF[informe]\r\nconsulta = x\r\n");
  ReportDefinition definition = read(kSales);
  for (const ColumnSettings& column : definition.columns()) definition.setColumn(column);
  definition.setTitle(definition.title());
  definition.setQuery(definition.query());
  definition.setPaper(Paper::A4Landscape);
  EXPECT_EQ(definition.text(),
            std::string(kSales).replace(kSales.find("Papel=A4 Horizontal"), 19, "papel = a4 horizontal"));
}

TEST(ReportDefinition, ChangesAreReadAgain) {
  ReportDefinition definition = read(kSales);
  definition.setTitle("");
  definition.setSubtitle("Enero");
  definition.setQuery("SELECT 1 AS a,\n\n\t2 AS b\r\n");
  definition.setPaper(Paper::Letter);
  definition.removeColumn("IMPORTE");
  definition.removeColumn("nada");
  definition.setColumn({.field = "Cliente", .width = 9, .alignment = Alignment::Center});
  definition.removeGroup("cliente");
  definition.addGroup({.field = "a"});
  const std::string expected =
      "# Ventas por cliente\n[informe]\nconsulta = SELECT 1 AS a,\n  2 AS b\npapel = carta\nsubtitulo = Enero\n\n"
      "; el grupo\n\n[columna]\ncampo = cliente\nancho = 9\nalinea = centro\n# fin\n\n[grupo]\ncampo = a\n";
  EXPECT_EQ(definition.text(), expected);
  EXPECT_EQ(read(expected).text(), expected);
}

TEST(ReportDefinition, RefusesChangesThatCannotBeReadAgain) {
  ReportDefinition definition = read(kSales);
  EXPECT_EQ(test::errorNumber([&] { definition.setTitle("dos\nlíneas"); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.setSubtitle(" blanco"); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.setQuery("\xFF"); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.setColumn({.field = "x", .pattern = "0\n"}); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.setColumn({.field = "importe", .width = 501}); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.setColumn({.field = ""}); }), 5);
  EXPECT_EQ(test::errorNumber([&] { definition.addGroup({.field = "CLIENTE"}); }), 457);
  EXPECT_EQ(definition.text(), kSales);
}

TEST(ReportDefinition, BadLinesAreTold) {
  struct Row {
    std::string text;
    std::string words;
  };
  const std::string head = "[informe]\nconsulta = SELECT 1\n";
  const std::string column = head + "[columna]\ncampo = a\n";
  const Row rows[] = {
      {"", "Línea 1: falta la sección [informe]"},
      {"[columna]\ncampo = a\n", "Línea 1: falta la sección [informe]"},
      {"# x\n[informe]\ntitulo = a\n", "Línea 2: a [informe] le falta «consulta»"},
      {"[informe]\nconsulta =\n", "Línea 2: falta el valor de «consulta»"},
      {head + head, "Línea 3: [informe] ya está en la línea 1"},
      {head + "[pie]\n", "Línea 3: «pie» no es una sección; son informe, grupo y columna"},
      {head + "[grupo\n", "Línea 3: falta «]» al final de «[grupo»"},
      {column + "anchura = 7\n", "Línea 5: «anchura» no es una clave de [columna]"},
      {head + "[grupo]\ncampo = a\nancho = 7\n", "Línea 5: «ancho» no es una clave de [grupo]"},
      {head + "titulo = a\nTITULO = b\n", "Línea 4: «titulo» ya está en la línea 3"},
      {"titulo = a\n" + head, "Línea 1: «titulo» está antes de la primera sección"},
      {head + "= a\n", "Línea 3: falta la clave antes de «=»"},
      {head + "titulo\n", "Línea 3: «titulo» no es una sección, una clave con «=» ni un comentario"},
      {column + "[columna]\ntitulo = b\ncampo = A\n", "Línea 7: columna «A» ya está en la línea 4"},
      {head + "[grupo]\ncampo = a\n[grupo]\ncampo = a\n", "Línea 6: grupo «a» ya está en la línea 4"},
      {head + "[columna]\ntitulo = a\n", "Línea 3: a [columna] le falta «campo»"},
      {column + "ancho = 7x\n", "Línea 5: «7x» no es un ancho de 1 a 500"},
      {column + "ancho = 0\n", "Línea 5: «0» no es un ancho de 1 a 500"},
      {column + "ancho = 501\n", "Línea 5: «501» no es un ancho de 1 a 500"},
      {column + "ancho = -1\n", "Línea 5: «-1» no es un ancho de 1 a 500"},
      {column + "alinea = der\n", "Línea 5: «der» no es izquierda, derecha ni centro"},
      {column + "suma = 1\n", "Línea 5: «1» no es si ni no"},
      {head + "papel = oficio\n", "Línea 3: «oficio» no es carta, a4, carta horizontal ni a4 horizontal"},
      {head + "titulo = \xF1\n", "Línea 3: el texto no es UTF-8"},
  };
  ReportDefinition definition = read(kSales);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.words);
    EXPECT_EQ(test::errorNumber([&] { definition.read(row.text); }), 321);
    EXPECT_EQ(test::errorText([&] { definition.read(row.text); }), row.words);
    EXPECT_EQ(definition.text(), kSales);
  }
}

TEST(ReportDefinition, IsSavedLoadedAndRendered) {
  data::registerBuiltInDrivers();
  const auto connection = data::Connection::create();
  connection->Open("Provider=SQLite;Data Source=:memory:");
  const test::ScratchFolder folder;
  read(kSales).save(folder.path("v.informe"));
  ReportDefinition definition;
  definition.load(folder.path("v.informe"));
  EXPECT_EQ(definition.text(), kSales);
  EXPECT_TRUE(definition.render(connection, folder.path("v.txt")));
  const std::string page = folder.bytes("v.txt");
  EXPECT_NE(page.find("Ventas = todas                  Página 1\n"), std::string::npos) << page;
  EXPECT_NE(page.find("Total Cliente: Ríos           3.50\n"), std::string::npos) << page;
  EXPECT_EQ(test::errorNumber([&] { definition.render(connection, folder.path("v.txt")); }), 58);
  definition.setQuery("CREATE TABLE t (a)");
  EXPECT_EQ(test::errorNumber([&] { definition.render(connection, folder.path("w.txt")); }), 5);
  EXPECT_EQ(folder.fileCount(), 2);
}

TEST(ReportDefinition, FilesThatCannotBeAreTold) {
  const test::ScratchFolder folder;
  ReportDefinition definition;
  EXPECT_EQ(test::errorNumber([&] { definition.load(folder.path("nada")); }), 53);
  EXPECT_EQ(test::errorNumber([&] { definition.save(folder.path("v")); }), 5);
  folder.put("[informe]\n");
  EXPECT_EQ(test::errorText([&] { definition.load(folder.path()); }),
            "«" + folder.path() + "»: Línea 1: a [informe] le falta «consulta»");
  EXPECT_EQ(folder.fileCount(), 1);
}

}  // namespace
}  // namespace qvn::reports
