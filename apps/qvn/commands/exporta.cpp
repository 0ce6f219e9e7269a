// qvn exporta: the rows of a statement as a workbook.
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/dump_reports.h"
#include "apps/qvn/given_statement.h"
#include "apps/qvn/interruption.h"
#include "apps/qvn/row_progress.h"
#include "apps/qvn/seconds_option.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/exports/spreadsheet.h"

namespace qvn::cli {
namespace {

using exports::SpreadsheetExport;

constexpr std::string_view kDescription = R"(
Guarda los registros que devuelve una sentencia SQL en ARCHIVO, un libro de hoja
de cálculo (.xlsx), con encabezados que no se mueven, un filtro y las columnas
de buen ancho. La sentencia es un argumento entre comillas, o se lee de la
entrada estándar cuando falta o es «-».

Las fechas y los números lo son también en la hoja; los textos se quedan como
textos, aunque parezcan números o fórmulas. Las hojas guardan 15 cifras y fechas
desde 1900: los números más largos y las fechas anteriores se escriben como
textos. Los registros que no caben en una hoja (1 048 575) siguen en otra.

--totales agrega al final la suma de esos campos. Un archivo que ya existe no se
toca sin --reemplaza, y en ambos casos el nuevo aparece cuando está completo; si
algo falla o se interrumpe con Ctrl-C no queda nada.
)";

constexpr std::string_view kExamples = R"(
  qvn exporta saldos.xlsx --totales saldo --titulos Documento,Cliente,Saldo \
              -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' \
              "SELECT cobranza, cliente, saldo FROM cobranza WHERE estado = 'P'"
      los documentos pendientes de la tienda que deja «qvn demo»
  qvn exporta ventas.xlsx --hoja Ventas --reemplaza < ventas.sql
      la sentencia de un archivo, en la base de QVN_CONEXION
)";

constexpr Option kTitlesOption{"titulos", 't', "TITULOS", "encabezados en lugar de los campos, entre comas"};
constexpr Option kTotalsOption{"totales", 's', "CAMPOS", "campos que se suman, entre comas"};
constexpr Option kSheetOption{"hoja", 0, "NOMBRE", "nombre de la hoja (Hoja1)"};
constexpr Option kReplaceOption{"reemplaza", 0, "", "reemplaza el archivo si existe"};
constexpr auto kOptions = std::to_array<Option>(
    {kConnectionOption, kTitlesOption, kTotalsOption, kSheetOption, kReplaceOption, kWaitOption, kTraceOption});

std::vector<std::string> commaList(std::string_view text) {
  std::vector<std::string> items;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    items.emplace_back(utf8::trimBlanks(text.substr(at, end - at)));
    at = end + 1;
  }
  return items;
}

void addTitles(exports::SheetSettings& settings, data::Recordset& rows, std::string_view list) {
  const std::vector<std::string> titles = commaList(list);
  if (titles.size() > rows.FieldCount()) {
    throw UsageError("hay " + std::to_string(titles.size()) + " títulos y " + std::to_string(rows.FieldCount()) +
                     " campos");
  }
  for (std::size_t i = 0; i < titles.size(); ++i) {
    settings.columns.push_back({.field = rows.Fields(i).Name(), .title = titles[i]});
  }
}

void addTotals(exports::SheetSettings& settings, std::string_view list) {
  for (std::string& field : commaList(list)) {
    const auto found = std::ranges::find_if(settings.columns, [&field](const exports::ColumnSettings& column) {
      return equalIgnoringCase(column.field, field);
    });
    if (found != settings.columns.end()) {
      found->isTotalled = true;
    } else {
      settings.columns.push_back({.field = std::move(field), .isTotalled = true});
    }
  }
}

exports::SheetSettings sheetSettings(const Arguments& arguments, data::Recordset& rows) {
  exports::SheetSettings settings;
  settings.name = arguments.value(kSheetOption.name).value_or("");
  if (const auto list = arguments.value(kTitlesOption.name)) addTitles(settings, rows, *list);
  if (const auto list = arguments.value(kTotalsOption.name)) addTotals(settings, *list);
  return settings;
}

data::RecordsetPtr openRows(const data::ConnectionPtr& connection, const std::string& statement) {
  data::RecordsetPtr rows = connection->Execute(statement);
  if (rows->State() == data::ObjectState::Open) return rows;
  throw RuntimeError(error_number::kInvalidCall, "La sentencia se ejecutó, pero no devuelve registros que exportar");
}

void tell(const exports::ExportReport& report, std::string_view path, Context& context) {
  context.out << "Libro «" << safeText(path) << "»: " << countText(report.rows, context) << " registros en "
              << countText(report.sheets, context) << (report.sheets == 1 ? " hoja\n" : " hojas\n");
  if (report.forcedTexts > 0) {
    context.messages << "qvn: " << countText(report.forcedTexts, context)
                     << " números o fechas no caben en una celda y quedaron como textos\n";
  }
  if (report.cutTexts > 0) {
    context.messages << "qvn: " << countText(report.cutTexts, context)
                     << " textos tienen más de 32767 caracteres y quedaron cortados\n";
  }
}

ExitStatus runExporta(const Arguments& arguments, Context& context) {
  const std::vector<std::string_view>& operands = arguments.operands();
  if (operands.empty()) throw UsageError("falta el nombre del archivo");
  if (operands.size() > 2) throw UsageError("la sentencia es un solo argumento; póngala entre comillas");
  const auto wait = secondsOf(arguments, kWaitOption);
  const std::string statement = readStatement(operands.size() == 2 ? std::optional(operands.back()) : std::nullopt);
  const data::ConnectionPtr connection = connect(arguments, context);
  if (wait) connection->setCommandTimeout(*wait);

  SpreadsheetExport workbook;
  workbook.Open(operands.front(), arguments.has(kReplaceOption.name) ? SpreadsheetExport::OnExisting::Replace
                                                                     : SpreadsheetExport::OnExisting::Refuse);
  const data::RecordsetPtr rows = openRows(connection, statement);
  const Interruption interruption;
  ProgressBar bar(context.messages, !arguments.has(kTraceOption.name));
  if (!workbook.AddSheet(rows, sheetSettings(arguments, *rows), rowObserver(bar, context))) {
    bar.clear();
    context.messages << "qvn: se interrumpió a petición suya; no se escribió nada\n";
    return ExitStatus::Failed;
  }
  workbook.Close();
  bar.clear();
  tell(workbook.Report(), operands.front(), context);
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kExportaCommand{"exporta",
                                        "guarda los registros de una sentencia en una hoja de cálculo",
                                        "ARCHIVO.xlsx [SENTENCIA|-]",
                                        kDescription,
                                        kOptions,
                                        kExamples,
                                        runExporta};

}  // namespace qvn::cli
