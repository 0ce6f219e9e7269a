// Reports as HTML.
#include <gtest/gtest.h>

#include "tests/exports/shop_rows.h"
#include "tests/reports/written_report.h"

namespace qvn::reports {
namespace {

// What stands between the style sheet and the end of the file, and the title.
std::string body(const std::string& html) {
  const std::size_t begin = html.find("<body>\n") + 7;
  return html.substr(begin, html.find("</body>") - begin);
}

TEST(HtmlReport, ShowsGroupsAndSums) {
  const auto rows = test::rowsOf(
      "SELECT 'Sur' AS zona, 'Ríos' AS cliente, 'Té' AS articulo, 1.5 AS importe UNION ALL SELECT 'Sur', 'Ríos', NULL, "
      "-2");
  const ReportSettings settings{
      .title = "Ventas",
      .subtitle = "Enero",
      .columns = {{.field = "articulo"},
                  {.field = "zona", .alignment = Alignment::Center},
                  {.field = "importe", .heading = "Importe", .pattern = "0.00", .isSummed = true}},
      .groups = {{.field = "zona", .heading = "Zona", .hasSubtotals = false}, {.field = "cliente"}}};
  EXPECT_EQ(body(test::writtenReport(rows, settings, ".html")),
            "<h1>Ventas</h1>\n<p>Enero</p>\n<table>\n<thead>\n"
            "<tr><th scope=\"col\">articulo</th><th scope=\"col\" class=\"c\">zona</th>"
            "<th scope=\"col\" class=\"r\">Importe</th></tr>\n</thead>\n<tbody>\n"
            "<tr class=\"g\"><th colspan=\"3\">Zona: Sur</th></tr>\n"
            "<tr class=\"g\"><th colspan=\"3\" style=\"padding-left:2em\">cliente: Ríos</th></tr>\n"
            "<tr><td>Té</td><td class=\"c\">Sur</td><td class=\"r\">1.50</td></tr>\n"
            "<tr><td></td><td class=\"c\">Sur</td><td class=\"r\">-2.00</td></tr>\n"
            "<tr class=\"s\"><td colspan=\"2\" style=\"padding-left:2em\">Total cliente: Ríos</td>"
            "<td class=\"r\">-0.50</td></tr>\n"
            "<tr class=\"t\"><td colspan=\"2\">Total general</td><td class=\"r\">-0.50</td></tr>\n"
            "</tbody>\n</table>\n");
}

TEST(HtmlReport, EscapesEveryText) {
  const std::string hostile = R"(<script>"&'</script>)";
  const std::string escaped = "&lt;script&gt;&quot;&amp;&#39;&lt;/script&gt;";
  const auto rows = test::rowsOf("SELECT '" + std::string(R"(<script>"&''</script>)") + "' AS v");
  const std::string html = test::writtenReport(rows,
                                               {.title = hostile,
                                                .subtitle = hostile,
                                                .columns = {{.field = "v", .heading = hostile}},
                                                .groups = {{.field = "v"}}},
                                               ".html");
  EXPECT_EQ(html.find("<script"), std::string::npos) << html;
  EXPECT_NE(html.find("<title>" + escaped + "</title>"), std::string::npos);
  EXPECT_EQ(body(html), "<h1>" + escaped + "</h1>\n<p>" + escaped + "</p>\n<table>\n<thead>\n<tr><th scope=\"col\">" +
                            escaped + "</th></tr>\n</thead>\n<tbody>\n<tr class=\"g\"><th>v: " + escaped +
                            "</th></tr>\n<tr><td>" + escaped + "</td></tr>\n</tbody>\n</table>\n");
}

// The caption of a sum has no column before the first one to stand in.
TEST(HtmlReport, ASumInTheFirstColumnHasItsCaptionAbove) {
  const std::string html =
      test::writtenReport(test::numbersTo(2), {.columns = {{.field = "n", .isSummed = true}}}, ".htm");
  EXPECT_NE(html.find("<tr class=\"t\"><td>Total general</td></tr>\n<tr class=\"t\"><td class=\"r\">3</td></tr>\n"),
            std::string::npos)
      << html;
}

}  // namespace
}  // namespace qvn::reports
