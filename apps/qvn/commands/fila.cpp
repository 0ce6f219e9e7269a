// qvn fila: rows as record lines, and record lines as rows.
#include <algorithm>
#include <array>
#include <iostream>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/record_lines.h"
#include "apps/qvn/row_writer.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/rowtext/write_record.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Escribe cada registro de una consulta como un renglón de texto, para mandarlo a
otro programa: ¨campo[&&,]valor¨campo[&&,]valor¨. Con --lee hace lo contrario:
toma renglones de la entrada estándar y los muestra como tabla, csv o json.

Los textos van entre comillas, las fechas entre #, los números con punto, un
nulo es Null; nada se escapa, así que un texto con ¨ o [&&,] no se lee de vuelta
como era. Un renglón que no se lee se avisa con su número y se deja fuera; el
estado de salida es entonces 1.
)";

constexpr std::string_view kExamples = R"(
  qvn fila -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' \
           "SELECT * FROM prods" > prods.txt
      los artículos, uno por renglón
  qvn fila --lee --formato json < prods.txt
      los mismos, un objeto de JSON por renglón
)";

constexpr Option kReadOption{"lee", 0, "", "lee renglones de la entrada estándar y los muestra"};
constexpr Option kFormatOption{"formato", 'f', "FORMATO", "con --lee: tabla (la usual), csv o json"};
constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kReadOption, kFormatOption, kTraceOption});

ExitStatus writeLines(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 1) throw UsageError("se espera una sentencia; póngala entre comillas");
  const data::ConnectionPtr connection = connect(arguments, context);
  const data::RecordsetPtr rows = connection->Execute(arguments.operands().front());
  if (rows->State() == data::ObjectState::Closed) {
    throw RuntimeError(error_number::kInvalidCall, "La sentencia se ejecutó pero no devuelve registros");
  }
  std::string line;
  for (; !rows->Eof(); rows->MoveNext()) {
    line.clear();
    rowtext::appendRecord(*rows, line);
    context.out << line.append("\n");
  }
  return ExitStatus::Done;
}

ExitStatus readLines(const Arguments& arguments, Context& context) {
  if (!arguments.operands().empty()) throw UsageError("con --lee los renglones vienen de la entrada estándar");
  if (isInputTerminal()) throw UsageError("faltan los renglones; délos en la entrada estándar");
  const RowFormat& format = rowFormat(arguments.value(kFormatOption.name));
  ExitStatus status = ExitStatus::Done;
  const data::RecordsetPtr rows = recordLines(std::cin, [&](std::int64_t line, const std::string& complaint) {
    context.messages << "qvn: renglón " << std::to_string(line) << ": " << complaint << "\n";
    status = ExitStatus::Failed;
  });
  if (rows) format.create(context.out, kNoLimit)->writeAll(*rows);
  return status;
}

ExitStatus runFila(const Arguments& arguments, Context& context) {
  return arguments.has(kReadOption.name) ? readLines(arguments, context) : writeLines(arguments, context);
}

}  // namespace

constinit const Command kFilaCommand{
    "fila", "escribe registros como renglones de texto, o los lee", "[SENTENCIA]", kDescription, kOptions, kExamples,
    runFila};

}  // namespace qvn::cli
