// qvn sql: runs one statement and shows its rows.
#include <array>
#include <optional>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/given_statement.h"
#include "apps/qvn/row_writer.h"
#include "apps/qvn/seconds_option.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Ejecuta una sentencia SQL tal como se escribe y muestra los registros que
devuelve, o cuántos registros cambió. La sentencia es un argumento entre
comillas, o se lee de la entrada estándar cuando falta o es «-».

En la tabla los números llevan el separador decimal de su configuración
regional, un nulo es <NULL>, los caracteres de control se ven como \n o \x1B y
los textos de más de 40 columnas terminan en «…». En csv y json los números
llevan punto, las fechas son AAAA-MM-DD y los textos van completos; en csv, que
sigue el RFC 4180, un nulo no es nada y un texto vacío es "". En json hay un
objeto por línea.
)";

constexpr std::string_view kExamples = R"(
  qvn sql -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' \
          "SELECT cobranza, saldo FROM cobranza WHERE estado = 'P'"
      los documentos pendientes de la tienda que deja «qvn demo»
  qvn sql --formato csv < consulta.sql > saldos.csv
      la sentencia de un archivo, en la base de QVN_CONEXION, para otro programa
)";

constexpr Option kFormatOption{"formato", 'f', "FORMATO", "tabla (la usual), csv o json"};
constexpr Option kWholeOption{"completo", 0, "", "muestra en la tabla los textos completos"};
constexpr auto kOptions =
    std::to_array<Option>({kConnectionOption, kFormatOption, kWholeOption, kWaitOption, kTraceOption});

constexpr std::size_t kWidestText = 40;

std::optional<std::string_view> statementOperand(const Arguments& arguments) {
  if (arguments.operands().size() > 1) throw UsageError("la sentencia es un solo argumento; póngala entre comillas");
  if (arguments.operands().empty()) return std::nullopt;
  return arguments.operands().front();
}

std::string rowCount(std::int64_t count) { return std::to_string(count) + (count == 1 ? " registro" : " registros"); }

ExitStatus runSql(const Arguments& arguments, Context& context) {
  const RowFormat& format = rowFormat(arguments.value(kFormatOption.name));
  const bool isTable = &format == &rowFormats().front();
  const auto wait = secondsOf(arguments, kWaitOption);
  const std::string statement = readStatement(statementOperand(arguments));
  const data::ConnectionPtr connection = connect(arguments, context);
  if (wait) connection->setCommandTimeout(*wait);

  std::int64_t affected = 0;
  const data::RecordsetPtr rows = connection->Execute(statement, affected);
  if (rows->State() == data::ObjectState::Closed) {
    // Programs that read csv or json want nothing else there.
    (isTable ? context.out : context.messages)
        << rowCount(affected) << (affected == 1 ? " afectado\n" : " afectados\n");
    return ExitStatus::Done;
  }
  const auto writer = format.create(context.out, arguments.has(kWholeOption.name) ? kNoLimit : kWidestText);
  const std::int64_t count = writer->writeAll(*rows);
  if (isTable) context.out << "(" << rowCount(count) << ")\n";
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kSqlCommand{
    "sql", "ejecuta una sentencia SQL y muestra sus registros", "[SENTENCIA|-]", kDescription, kOptions, kExamples,
    runSql};

}  // namespace qvn::cli
