#include "apps/qvn/demo/order_story.h"

#include <memory>
#include <span>
#include <string>

#include "apps/qvn/demo/stock_data.h"
#include "apps/qvn/demo/telling.h"
#include "qvn/text/decimal_text.h"

namespace qvn::cli::demo {
namespace {

void showOrder(const data::ConnectionPtr& connection, Context& context) {
  const std::string which = " WHERE pedido = " + std::to_string(kSuppliedOrder);
  showRows("SELECT pedido, cliente, estado FROM pedidos" + which, connection, context);
  context.out << "\n";
  showRows("SELECT id_salida, articulo, cantidad, surtido, por_surt FROM pedpar" + which + " ORDER BY id_salida",
           connection, context);
}

void showPurchaseOrder(const data::ConnectionPtr& connection, Context& context) {
  const std::string which = " WHERE orden = " + std::to_string(kReceivedOrder);
  showRows("SELECT orden, proveedor, estado FROM orden" + which, connection, context);
  context.out << "\n";
  showRows("SELECT partida, articulo, cantidad, surtido, por_surt FROM ordpar" + which + " ORDER BY partida",
           connection, context);
}

void announceCall(std::string_view method, const LineStep& step, Context& context) {
  context.out << "   " << method << "(\"" << step.product << "\", " << std::to_string(step.line) << ", "
              << text::FormatoDecimal(step.quantity) << ")\n";
}

// The products' counters stay as they are: the quantity would be added to them.
constexpr bool kChangesProducts = false;

void supply(std::span<const LineStep> steps, const data::ConnectionPtr& connection, Context& context) {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  for (const LineStep& step : steps) {
    announceCall("ActualizaPorSurtir", step, context);
    context.library.ActualizaPorSurtir(ambiente, step.product, step.line, step.quantity, kChangesProducts);
  }
  context.out << "\n";
  showOrder(connection, context);
}

void receive(const data::ConnectionPtr& connection, Context& context) {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  for (const LineStep& step : kReceipt) {
    announceCall("ActualizaPorRecibir", step, context);
    context.library.ActualizaPorRecibir(ambiente, step.product, step.line, step.quantity, kChangesProducts);
  }
  context.out << "\n";
  showPurchaseOrder(connection, context);
}

}  // namespace

void tellSupply(const data::ConnectionPtr& connection, Context& context) {
  context.out << "\n5. Un pedido del mismo cliente, pendiente (PE) de surtir\n\n";
  showOrder(connection, context);
  context.out << "\n6. El almacén surte lo que hay; la biblioteca pone al día cada partida y el\n"
                 "   estado del pedido, que queda surtido en parte (SU)\n\n";
  supply(kFirstSupply, connection, context);
  context.out << "\n7. Llega lo que faltaba; al surtirlo el pedido queda cerrado (CE)\n\n";
  supply(kSecondSupply, connection, context);
}

void tellReceipt(const data::ConnectionPtr& connection, Context& context) {
  context.out << "\n8. Una orden de compra a un proveedor, pendiente (PE) de recibir\n\n";
  showPurchaseOrder(connection, context);
  context.out << "\n9. Se recibe completa y queda cerrada (CE)\n\n";
  receive(connection, context);
}

}  // namespace qvn::cli::demo
