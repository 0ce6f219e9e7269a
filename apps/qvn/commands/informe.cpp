// qvn informe: a report by its definition, and a definition to begin with.
#include <array>
#include <cstdint>
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
#include "qvn/reports/definition.h"
#include "qvn/reports/first_definition.h"

namespace qvn::cli {
namespace {

using reports::OnExisting;

constexpr std::string_view kDescription = R"(
Escribe en ARCHIVO el informe que describe DEFINICION: encabezados, grupos con
subtotales y totales, con la consulta que está en la definición. El final del
nombre dice cómo: .txt es texto por páginas, .html una página que no necesita
otros archivos y .pdf va a la impresora.

Con --nuevo escribe en DEFINICION una primera definición con las columnas que
devuelve la sentencia, que es un argumento entre comillas o se lee de la entrada
estándar cuando falta o es «-». La definición es un archivo de texto que se
cambia con cualquier editor; sus comentarios dicen cómo.

Un archivo que ya existe no se toca sin --reemplaza, y en ambos casos el nuevo
aparece cuando está completo; si algo falla o se interrumpe con Ctrl-C no queda
nada.
)";

constexpr std::string_view kExamples = R"(
  qvn informe --nuevo saldos.informe \
              -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' \
              "SELECT cliente, cobranza, saldo FROM cobranza ORDER BY cliente"
      la primera definición, con los documentos de la tienda de «qvn demo»
  qvn informe saldos.informe saldos.pdf \
              -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      el informe, para imprimir
)";

constexpr Option kNewOption{"nuevo", 'n', "", "escribe una primera definición con la sentencia"};
constexpr Option kReplaceOption{"reemplaza", 0, "", "reemplaza el archivo si existe"};
constexpr auto kOptions =
    std::to_array<Option>({kConnectionOption, kNewOption, kReplaceOption, kWaitOption, kTraceOption});

OnExisting onExisting(const Arguments& arguments) {
  return arguments.has(kReplaceOption.name) ? OnExisting::Replace : OnExisting::Refuse;
}

data::ConnectionPtr connectWithWait(const Arguments& arguments, Context& context) {
  const auto wait = secondsOf(arguments, kWaitOption);
  data::ConnectionPtr connection = connect(arguments, context);
  if (wait) connection->setCommandTimeout(*wait);
  return connection;
}

ExitStatus writeDefinition(const Arguments& arguments, Context& context) {
  const std::vector<std::string_view>& operands = arguments.operands();
  if (operands.size() > 2) throw UsageError("la sentencia es un solo argumento; póngala entre comillas");
  const std::string statement = readStatement(operands.size() == 2 ? std::optional(operands.back()) : std::nullopt);
  const data::RecordsetPtr rows = connectWithWait(arguments, context)->Execute(statement);
  if (rows->State() != data::ObjectState::Open) {
    throw RuntimeError(error_number::kInvalidCall, "La sentencia se ejecutó, pero no devuelve registros que mostrar");
  }
  const reports::ReportDefinitionPtr definition = reports::firstDefinition(statement, rows);
  definition->save(operands.front(), onExisting(arguments));
  const auto columns = static_cast<std::int64_t>(definition->columns().size());
  context.out << "Definición «" << safeText(operands.front()) << "»: " << countText(columns, context)
              << (columns == 1 ? " columna\n" : " columnas\n");
  return ExitStatus::Done;
}

ExitStatus writeReport(const Arguments& arguments, Context& context) {
  const std::vector<std::string_view>& operands = arguments.operands();
  if (operands.size() < 2) throw UsageError("falta el nombre del archivo");
  if (operands.size() > 2) throw UsageError("sobra «" + safeText(operands[2]) + "»");
  reports::ReportDefinition definition;
  definition.load(operands.front());
  const data::ConnectionPtr connection = connectWithWait(arguments, context);

  const Interruption interruption;
  ProgressBar bar(context.messages, !arguments.has(kTraceOption.name));
  std::int64_t count = 0;
  const auto observe = [&count, show = rowObserver(bar, context)](std::int64_t rows) {
    count = rows;
    return show(rows);
  };
  const bool isComplete =
      definition.render(connection, operands.back(), {.onExisting = onExisting(arguments), .observe = observe});
  bar.clear();
  if (!isComplete) {
    context.messages << "qvn: se interrumpió a petición suya; no se escribió nada\n";
    return ExitStatus::Failed;
  }
  context.out << "Informe «" << safeText(operands.back()) << "»: " << countText(count, context)
              << (count == 1 ? " registro\n" : " registros\n");
  return ExitStatus::Done;
}

ExitStatus runInforme(const Arguments& arguments, Context& context) {
  if (arguments.operands().empty()) throw UsageError("falta el nombre de la definición");
  return arguments.has(kNewOption.name) ? writeDefinition(arguments, context) : writeReport(arguments, context);
}

}  // namespace

constinit const Command kInformeCommand{"informe",
                                        "escribe un informe con grupos y totales: texto, HTML o PDF",
                                        "DEFINICION ARCHIVO | --nuevo DEFINICION [SENTENCIA]",
                                        kDescription,
                                        kOptions,
                                        kExamples,
                                        runInforme};

}  // namespace qvn::cli
