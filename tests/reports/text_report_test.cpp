// Reports as plain text, compared whole.
#include <gtest/gtest.h>

#include "tests/exports/shop_rows.h"
#include "tests/reports/written_report.h"
#include "tests/support/error_of.h"

namespace qvn::reports {
namespace {

constexpr TextPage kEndless{.lines = 0};

std::string text(const data::RecordsetPtr& rows, const ReportSettings& settings, const TextPage& page = kEndless) {
  return test::writtenReport(rows, settings, ".txt", page);
}

const std::string kSales =
    "SELECT 'Norte' AS zona, 'Muñoz e Hijos' AS cliente, 'Jabón de tocador con avena' AS articulo, 2 AS piezas, 1160.5 "
    "AS importe UNION ALL SELECT 'Norte', 'Muñoz e Hijos', 'Piñata', 1, -50.25 UNION ALL "
    "SELECT 'Norte', 'Ríos', NULL, NULL, 0.1 UNION ALL SELECT 'Sur', 'Ríos', 'Té', 12, 0.2 UNION ALL "
    "SELECT NULL, NULL, 'Café', 1, NULL";

ReportSettings salesSettings() {
  return {.title = "Ventas de enero",
          .subtitle = "Todas las zonas",
          .columns = {{.field = "articulo", .heading = "Artículo", .width = 22},
                      {.field = "piezas", .heading = "Pzas", .width = 5, .isSummed = true},
                      {.field = "importe", .heading = "Importe", .width = 10, .pattern = "#,##0.00", .isSummed = true}},
          .groups = {{.field = "zona", .heading = "Zona"}, {.field = "CLIENTE", .heading = "Cliente"}}};
}

// Two characters between columns; the second Ríos is in another zone, and so a group of its own.
TEST(TextReport, ShowsTwoLevelsOfGroups) {
  EXPECT_EQ(text(test::rowsOf(kSales), salesSettings()),
            "Ventas de enero\n"
            "Todas las zonas\n"
            "\n"
            "Artículo                 Pzas     Importe\n"
            "----------------------  -----  ----------\n"
            "Zona: Norte\n"
            "  Cliente: Muñoz e Hijos\n"
            "Jabón de tocador con …      2    1,160.50\n"
            "Piñata                      1      -50.25\n"
            "  Total Cliente: Muñoz e Hijos\n"
            "                        -----  ----------\n"
            "                            3    1,110.25\n"
            "\n"
            "  Cliente: Ríos\n"
            "                                     0.10\n"
            "                        -----  ----------\n"
            "  Total Cliente: Ríos       0        0.10\n"
            "                        -----  ----------\n"
            "Total Zona: Norte           3    1,110.35\n"
            "\n"
            "Zona: Sur\n"
            "  Cliente: Ríos\n"
            "Té                         12        0.20\n"
            "                        -----  ----------\n"
            "  Total Cliente: Ríos      12        0.20\n"
            "                        -----  ----------\n"
            "Total Zona: Sur            12        0.20\n"
            "\n"
            "Zona:\n"
            "  Cliente:\n"
            "Café                        1\n"
            "                        -----  ----------\n"
            "  Total Cliente:            1        0.00\n"
            "                        -----  ----------\n"
            "Total Zona:                 1        0.00\n"
            "                        =====  ==========\n"
            "Total general              16    1,110.55\n");
}

// Ten lines a page, of which four are titles and headings; neither a group's caption nor a sum stands alone.
TEST(TextReport, BreaksPagesBetweenWhatBelongsTogether) {
  const auto rows = test::rowsOf(
      "SELECT 'a' AS g, 1 AS n UNION ALL SELECT 'a', 2 UNION ALL SELECT 'a', 3 UNION ALL SELECT 'a', 4 UNION ALL "
      "SELECT 'b', 5 UNION ALL SELECT 'c', 6");
  const ReportSettings settings{.title = "Números",
                                .columns = {{.field = "g", .width = 13}, {.field = "n", .width = 4, .isSummed = true}},
                                .groups = {{.field = "g", .heading = "G"}}};
  const auto head = [](int page) {
    return "Números                        Página " + std::to_string(page) +
           "\n\ng                 n\n-------------  ----\n";
  };
  EXPECT_EQ(text(rows, settings, {.columns = 39, .lines = 10}),
            head(1) + "G: a\na                 1\na                 2\na                 3\na                 4\n\f" +
                head(2) + "               ----\nTotal G: a       10\n\nG: b\nb                 5\n\f" + head(3) +
                "               ----\nTotal G: b        5\n\nG: c\nc                 6\n\f" + head(4) +
                "               ----\nTotal G: c        6\n               ====\nTotal general    21\n");
}

TEST(TextReport, WithoutRowsSaysSo) {
  EXPECT_EQ(
      text(test::noRows(),
           {.title = "Nada", .columns = {{.field = "n", .width = 10, .isSummed = true}}, .groups = {{.field = "n"}}}),
      "Nada\n\n         n\n----------\nNo hay registros\n");
}

TEST(TextReport, ShowsValuesOnOneLineEach) {
  struct Row {
    const char* why;
    std::string expression;
    ColumnSettings column;
    std::string shown;
  };
  const Row rows[] = {
      {"a text that just fits", "'ñandú'", {.field = "v", .width = 5}, "ñandú"},
      {"a text that is too long", "'ñandúes'", {.field = "v", .width = 5}, "ñand…"},
      {"a text in one column", "'ab'", {.field = "v", .width = 1}, "…"},
      {"a number is not cut", "123456", {.field = "v", .width = 5}, "#####"},
      {"line ends and tabs", "'a'||char(13)||char(10)||'b'||char(9)||'c'", {.field = "v", .width = 9}, "a b c    "},
      {"a form feed", "'a'||char(12)", {.field = "v", .width = 3}, "a  "},
      {"bytes that are no text", "CAST(x'FF41' AS TEXT)", {.field = "v", .width = 3}, "\uFFFDA "},
      {"bytes", "x'FF41'", {.field = "v", .width = 7}, "2 bytes"},
      {"Null", "NULL", {.field = "v", .width = 3, .pattern = "0.00"}, "   "},
      {"Null in words of the pattern", "NULL", {.field = "v", .width = 5, .pattern = "0;-0;0;nada"}, "nada "},
      {"a date", "'2026-02-09'", {.field = "v", .width = 10, .pattern = "dd/mm/yyyy"}, "09/02/2026"},
      {"a number to the left", "7", {.field = "v", .width = 3, .alignment = Alignment::Left}, "7  "},
      {"a text to the right", "'a'", {.field = "v", .width = 3, .alignment = Alignment::Right}, "  a"},
      {"in the middle", "'a'", {.field = "v", .width = 4, .alignment = Alignment::Center}, " a  "},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    // A second column keeps the blanks at the end.
    const auto recordset = test::rowsOf("SELECT " + row.expression + " AS v, '|' AS fin");
    const std::string page = text(recordset, {.columns = {row.column, {.field = "fin", .heading = "f", .width = 1}}});
    EXPECT_EQ(page.substr(page.rfind('\n', page.size() - 2) + 1), row.shown + "  |\n");
  }
}

TEST(TextReport, WithoutColumnsShowsAllFieldsThatMakeNoGroup) {
  EXPECT_EQ(text(test::rowsOf("SELECT 'x' AS a, 'y' AS b, 'z' AS c"), {.groups = {{.field = "B"}}}),
            "\n\na                     c\n--------------------  --------------------\nb: y\n"
            "x                     z\n");
}

TEST(TextReport, RefusesWhatNoPageHolds) {
  struct Row {
    const char* why;
    ReportSettings settings;
    TextPage page;
    std::int32_t number;
  };
  const Row rows[] = {
      {"columns wider than the page",
       {.columns = {{.field = "a", .width = 9}, {.field = "b", .width = 9}}},
       {19, 60},
       5},
      {"a page too short", {}, {0, 7}, 5},
      {"a column wider than any", {.columns = {{.field = "a", .width = 501}}}, {}, 5},
      {"a column of no field", {.columns = {{.field = "c"}}}, {}, 3265},
      {"a group of no field", {.groups = {{.field = "c"}}}, {}, 3265},
      {"nothing to show", {.groups = {{.field = "a"}, {.field = "b"}}}, {}, 5},
      {"a sum of words", {.columns = {{.field = "b", .isSummed = true}}}, {}, 13},
  };
  const test::ScratchFolder folder;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const auto recordset = test::rowsOf("SELECT 1 AS a, 'x' AS b");
    EXPECT_EQ(
        test::errorNumber([&] { Report(row.settings).save(recordset, folder.path("i.txt"), {.textPage = row.page}); }),
        row.number);
    EXPECT_EQ(folder.fileCount(), 0);
  }
}

}  // namespace
}  // namespace qvn::reports
