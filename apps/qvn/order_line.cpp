#include "apps/qvn/order_line.h"

#include <memory>
#include <string>
#include <vector>

#include "apps/qvn/connect.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/data/provider_error.h"

namespace qvn::cli {
namespace {

struct LineQuantity {
  std::string product;
  std::int32_t line;
  double quantity;
  bool changesProducts;
};

struct Place {
  const OrderKind& kind;
  const data::ConnectionPtr& connection;
  const LumLibreria& library;
};

data::RecordsetPtr readLine(const Place& place, std::int32_t line) {
  const std::string lines(place.kind.lines);
  const std::string orders(place.kind.orders);
  const std::string order(place.kind.order);
  return place.library.CreaRecordSet("SELECT " + lines + ".articulo, " + lines + "." + order + ", " + lines +
                                         ".cantidad, " + lines + ".surtido, " + lines + ".por_surt, " + orders +
                                         ".estado FROM " + lines + " LEFT JOIN " + orders + " ON " + orders + "." +
                                         order + " = " + lines + "." + order + " WHERE " + lines + "." +
                                         std::string(place.kind.lineKey) + " = " + std::to_string(line),
                                     place.connection);
}

Cell productCounterCell(const Place& place, const std::string& product) {
  const auto rows =
      place.library.CreaRecordSet("SELECT " + std::string(place.kind.productCounter) +
                                      " FROM prods WHERE articulo = " + place.connection->Literal(product),
                                  place.connection);
  return rows->Eof() ? textCell("(no existe)") : fieldCell(rows->Fields(0));
}

std::vector<Cell> lineCells(std::string_view when, const Place& place, const LineQuantity& given) {
  const auto rows = readLine(place, given.line);
  std::vector<Cell> cells{textCell(std::string(when))};
  for (const std::string_view field :
       {place.kind.order, std::string_view("articulo"), std::string_view("cantidad"), std::string_view("surtido"),
        std::string_view("por_surt"), std::string_view("estado")}) {
    cells.push_back(fieldCell(rows->Fields(field)));
  }
  if (given.changesProducts) cells.push_back(productCounterCell(place, given.product));
  return cells;
}

std::vector<std::string> titles(const OrderKind& kind, const LineQuantity& given) {
  std::vector<std::string> titles{"partida " + std::to_string(given.line),
                                  std::string(kind.order),
                                  "artículo",
                                  "cantidad",
                                  "surtido",
                                  "por surtir",
                                  "estado"};
  if (given.changesProducts) titles.push_back(std::string(kind.productCounter) + " del artículo");
  return titles;
}

// The code enters the library's statement between quotes as it is, when two statements have run already.
void requireQuotable(const LineQuantity& given) {
  if (!given.changesProducts || isQuotable(given.product)) return;
  throw RuntimeError(error_number::kInvalidCall,
                     "El artículo «" + given.product +
                         "» de la partida lleva comillas o diagonales invertidas y no se buscaría bien; no se cambió "
                         "nada. Use --sin-articulos");
}

}  // namespace

ExitStatus applyToLine(const OrderKind& kind, const Arguments& arguments, Context& context) {
  if (arguments.operands().size() != 2) throw UsageError("se esperan una partida y una cantidad");
  LineQuantity given{"", keyOperand(arguments.operands()[0], "un número de partida"),
                     decimalOperand(arguments.operands()[1], "una cantidad"),
                     !arguments.has(kWithoutProductsOption.name)};
  const data::ConnectionPtr connection = connect(arguments, context);
  const Place place{kind, connection, context.library};
  {
    const auto rows = readLine(place, given.line);
    if (rows->Eof()) {
      context.messages << "qvn: no existe la partida " << std::to_string(given.line) << " en «" << kind.lines << "»\n";
      return ExitStatus::Failed;
    }
    given.product = rows->Fields("articulo").Value().toText();
  }
  requireQuotable(given);

  TableWriter table(context.out, titles(kind, given));
  table.add(lineCells("antes", place, given));
  try {
    const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
    (context.library.*kind.apply)(ambiente, given.product, given.line, given.quantity, given.changesProducts);
  } catch (const RuntimeError&) {
    context.messages << "qvn: falló la partida " << std::to_string(given.line)
                     << "; lo que se escribió antes de la falla queda escrito\n";
    throw;
  }
  table.add(lineCells("después", place, given));
  table.end();
  return ExitStatus::Done;
}

}  // namespace qvn::cli
