// qvn lotes: puts the lot movements of a stock exit back into their lots.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/key_operands.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Aplica otra vez a «lotes» los movimientos que una salida de almacén dejó en
«slotes» y los borra (RegresaLotes). De cada movimiento, empezando por el lote
más nuevo: si cabe (lo salido más el movimiento no pasa de la cantidad del lote)
se suma a lo salido (cantsal); si no cabe, el lote queda lleno y el movimiento,
menos lo que ya había salido de ese lote, sigue con el lote anterior. Lo que
sobra después del más viejo se pierde. Muestra los lotes antes y después.

Una salida sin movimientos se avisa y no cambia nada, así que repetir el comando
no los aplica dos veces. No hay transacción: si falla, los lotes escritos quedan
y los movimientos siguen ahí; corrija los lotes antes de repetir.
)";

constexpr std::string_view kExamples = R"(
  qvn lotes 906 -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      en la tienda que deja «qvn demo»
  qvn lotes --traza 905
      en la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kTraceOption});

// A lot before its movements were put back.
struct Lot {
  std::string id;
  std::vector<Cell> cells;
};

std::vector<Lot> readLots(std::int32_t stockExit, const data::ConnectionPtr& connection, const LumLibreria& library) {
  std::vector<Lot> lots;
  const auto rows = library.CreaRecordSet(
      "SELECT id, lote, cantidad, cantsal FROM lotes WHERE lote IN (SELECT lote FROM slotes WHERE id_salida = " +
          std::to_string(stockExit) + ") ORDER BY lote, id DESC",
      connection);
  for (; !rows->Eof(); rows->MoveNext()) {
    Lot lot{connection->Literal(rows->Fields("id").Value()), {}};
    for (std::size_t i = 0; i < rows->FieldCount(); ++i) lot.cells.push_back(fieldCell(rows->Fields(i)));
    lots.push_back(std::move(lot));
  }
  return lots;
}

std::int32_t countMovements(std::int32_t stockExit, const data::ConnectionPtr& connection, const LumLibreria& library) {
  const auto rows =
      library.CreaRecordSet("SELECT COUNT(*) FROM slotes WHERE id_salida = " + std::to_string(stockExit), connection);
  return rows->Fields(0).Value().toLong();
}

void showLots(std::vector<Lot> lots, const data::ConnectionPtr& connection, Context& context) {
  TableWriter table(context.out, {"id", "lote", "cantidad", "cantsal antes", "cantsal"});
  for (Lot& lot : lots) {
    const auto rows = context.library.CreaRecordSet("SELECT cantsal FROM lotes WHERE id = " + lot.id, connection);
    lot.cells.push_back(rows->Eof() ? nullCell() : fieldCell(rows->Fields(0)));
    table.add(std::move(lot.cells));
  }
  table.end();
}

ExitStatus runLotes(const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 1) throw UsageError("se espera el número de una salida");
  const std::int32_t stockExit = keyOperand(arguments.operands().front(), "un número de salida");
  const data::ConnectionPtr connection = connect(arguments, context);
  const std::int32_t movements = countMovements(stockExit, connection, context.library);
  if (movements == 0) {
    context.messages << "qvn: la salida " << std::to_string(stockExit) << " no tiene movimientos en «slotes»\n";
    return ExitStatus::Failed;
  }
  std::vector<Lot> lots = readLots(stockExit, connection, context.library);
  context.library.RegresaLotes(stockExit, std::make_shared<host::SimpleAmbiente>(connection));
  showLots(std::move(lots), connection, context);
  context.out << "(" << std::to_string(movements) << (movements == 1 ? " movimiento)\n" : " movimientos)\n");
  return ExitStatus::Done;
}

}  // namespace

constinit const Command kLotesCommand{
    "lotes", "regresa a sus lotes los movimientos de una salida", "SALIDA", kDescription, kOptions, kExamples,
    runLotes};

}  // namespace qvn::cli
