#include "apps/qvn/demo/order_story.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "apps/qvn/demo/stock_data.h"
#include "apps/qvn/demo/telling.h"
#include "apps/qvn/order_line.h"
#include "qvn/text/decimal_text.h"

namespace qvn::cli::demo {
namespace {

// An order with its lines, and what a quantity of a line is applied with.
struct ToldOrder {
  std::string order;  // statements that show it
  std::string lines;
  std::string_view name;
  LineMethod apply;
};

ToldOrder suppliedOrder() {
  const std::string which = " WHERE pedido = " + std::to_string(kSuppliedOrder);
  return {"SELECT pedido, cliente, estado FROM pedidos" + which,
          "SELECT id_salida, articulo, cantidad, surtido, por_surt FROM pedpar" + which + " ORDER BY id_salida",
          "ActualizaPorSurtir", &LumLibreria::ActualizaPorSurtir};
}

ToldOrder receivedOrder() {
  const std::string which = " WHERE orden = " + std::to_string(kReceivedOrder);
  return {"SELECT orden, proveedor, estado FROM orden" + which,
          "SELECT partida, articulo, cantidad, surtido, por_surt FROM ordpar" + which + " ORDER BY partida",
          "ActualizaPorRecibir", &LumLibreria::ActualizaPorRecibir};
}

void showOrder(const ToldOrder& told, const data::ConnectionPtr& connection, Context& context) {
  showRows(told.order, connection, context);
  context.out << "\n";
  showRows(told.lines, connection, context);
}

// The products' counters stay as they are: the quantity would be added to them.
constexpr bool kChangesProducts = false;

void applySteps(const ToldOrder& told, std::span<const LineStep> steps, const data::ConnectionPtr& connection,
                Context& context) {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  for (const LineStep& step : steps) {
    context.out << "   " << told.name << "(\"" << step.product << "\", " << std::to_string(step.line) << ", "
                << text::FormatoDecimal(step.quantity) << ")\n";
    (context.library.*told.apply)(ambiente, step.product, step.line, step.quantity, kChangesProducts);
  }
  context.out << "\n";
  showOrder(told, connection, context);
}

}  // namespace

void tellSupply(const data::ConnectionPtr& connection, Context& context) {
  const ToldOrder order = suppliedOrder();
  context.out << "\n5. Un pedido del mismo cliente, pendiente (PE) de surtir\n\n";
  showOrder(order, connection, context);
  context.out << "\n6. El almacén surte lo que hay; la biblioteca pone al día cada partida y el\n"
                 "   estado del pedido, que queda surtido en parte (SU)\n\n";
  applySteps(order, kFirstSupply, connection, context);
  context.out << "\n7. Llega lo que faltaba; al surtirlo el pedido queda cerrado (CE)\n\n";
  applySteps(order, kSecondSupply, connection, context);
}

void tellReceipt(const data::ConnectionPtr& connection, Context& context) {
  const ToldOrder order = receivedOrder();
  context.out << "\n8. Una orden de compra a un proveedor, pendiente (PE) de recibir\n\n";
  showOrder(order, connection, context);
  context.out << "\n9. Se recibe completa y queda cerrada (CE)\n\n";
  applySteps(order, kReceipt, connection, context);
}

}  // namespace qvn::cli::demo
