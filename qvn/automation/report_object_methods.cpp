#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"

namespace qvn::automation {
namespace {

using reports::Report;
using reports::ReportDefinition;

reports::OnExisting onExisting(bool replaces) {
  return replaces ? reports::OnExisting::Replace : reports::OnExisting::Refuse;
}

// The alignments by their numbers: as the value wants, left, right, centred.
reports::Alignment readAlignment(std::int32_t number) {
  constexpr auto kLast = reports::Alignment::Center;
  if (number < 0 || number > static_cast<int>(kLast)) {
    throw RuntimeError(error_number::kInvalidCall, "Align va de 0 a " + std::to_string(static_cast<int>(kLast)));
  }
  return static_cast<reports::Alignment>(number);
}

reports::ColumnSettings column(std::string field, std::string heading, std::int32_t width, std::string pattern,
                               bool isSummed, std::int32_t alignment) {
  if (width < 0) throw RuntimeError(error_number::kInvalidCall, "Width no puede ser negativo");
  return {.field = std::move(field),
          .heading = std::move(heading),
          .width = static_cast<std::size_t>(width),
          .alignment = readAlignment(alignment),
          .pattern = std::move(pattern),
          .isSummed = isSummed};
}

void addColumn(Report& report, std::string field, std::string heading, std::int32_t width, std::string pattern,
               bool isSummed, std::int32_t alignment) {
  report.addColumn(column(std::move(field), std::move(heading), width, std::move(pattern), isSummed, alignment));
}
void addGroup(Report& report, std::string field, std::string heading, bool hasSubtotals) {
  report.addGroup({.field = std::move(field), .heading = std::move(heading), .hasSubtotals = hasSubtotals});
}
bool saveReport(Report& report, const data::RecordsetPtr& rows, std::string_view path, bool replaces) {
  return report.save(rows, path, {.onExisting = onExisting(replaces)});
}

void setColumn(ReportDefinition& definition, std::string field, std::string heading, std::int32_t width,
               std::string pattern, bool isSummed, std::int32_t alignment) {
  definition.setColumn(column(std::move(field), std::move(heading), width, std::move(pattern), isSummed, alignment));
}
void addDefinedGroup(ReportDefinition& definition, std::string field, std::string heading) {
  definition.addGroup({.field = std::move(field), .heading = std::move(heading)});
}
void saveDefinition(ReportDefinition& definition, std::string_view path, bool replaces) {
  definition.save(path, onExisting(replaces));
}
bool render(ReportDefinition& definition, const data::ConnectionPtr& connection, std::string_view path, bool replaces) {
  return definition.render(connection, path, {.onExisting = onExisting(replaces)});
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> reportObjectSections() {
  using Definition = ReportDefinition;
  return {
      {"Objects: reports",
       {"qvn/reports/report.h", "qvn/reports/definition.h"},
       {
           method<&Report::setTitle>("Informe.SetTitle", "this", "Title"),
           method<&Report::setSubtitle>("Informe.SetSubtitle", "this", "Subtitle"),
           method<&addColumn>("Informe.AddColumn", "this", "Field", "Heading=\"\"", "Width=0", "Pattern=\"\"",
                              "Sum=false", "Align=0"),
           method<&addGroup>("Informe.AddGroup", "this", "Field", "Heading=\"\"", "Subtotals=true"),
           method<&saveReport>("Informe.Save", "this", "Rows", "Path", "Replace=false"),
           method<&Definition::load>("Reporteador.Load", "this", "Path"),
           method<&saveDefinition>("Reporteador.Save", "this", "Path", "Replace=true"),
           method<&Definition::read>("Reporteador.Read", "this", "Text"),
           method<&Definition::text>("Reporteador.Text", "this"),
           method<&Definition::title>("Reporteador.Title", "this"),
           method<&Definition::setTitle>("Reporteador.SetTitle", "this", "Title"),
           method<&Definition::subtitle>("Reporteador.Subtitle", "this"),
           method<&Definition::setSubtitle>("Reporteador.SetSubtitle", "this", "Subtitle"),
           method<&Definition::query>("Reporteador.Query", "this"),
           method<&Definition::setQuery>("Reporteador.SetQuery", "this", "Query"),
           method<&setColumn>("Reporteador.SetColumn", "this", "Field", "Heading=\"\"", "Width=0", "Pattern=\"\"",
                              "Sum=false", "Align=0"),
           method<&Definition::removeColumn>("Reporteador.RemoveColumn", "this", "Field"),
           method<&addDefinedGroup>("Reporteador.AddGroup", "this", "Field", "Heading=\"\""),
           method<&Definition::removeGroup>("Reporteador.RemoveGroup", "this", "Field"),
           method<&Definition::makeReport>("Reporteador.MakeReport", "this"),
           method<&render>("Reporteador.Render", "this", "Connection", "Path", "Replace=false"),
       }},
  };
}

}  // namespace qvn::automation
