#include "apps/qvn/demo/payables_story.h"

#include <memory>
#include <string>

#include "apps/qvn/demo/payables_data.h"
#include "apps/qvn/demo/shop_database.h"
#include "apps/qvn/demo/telling.h"

namespace qvn::cli::demo {
namespace {

void showAccount(const data::ConnectionPtr& connection, Context& context) {
  const std::string which = " WHERE proveedor = '" + std::string(kSupplierPayment.party) + "'";
  showRows("SELECT cuenxpag, moneda, tip_cam, saldo, estado FROM cuenxpag" + which + " ORDER BY cuenxpag", connection,
           context);
  context.out << "\n";
  showRows("SELECT proveedor, nombre, saldo FROM proveed" + which, connection, context);
}

}  // namespace

void tellSupplierPayment(const data::ConnectionPtr& connection, Context& context) {
  const std::string payment = std::to_string(kSupplierPayment.number);
  context.out << "\n14. Lo que se debe a un proveedor\n\n";
  showAccount(connection, context);
  context.out << "\n15. Se le paga. La pantalla guarda el pago en «pagos» y en «cuenxpdet» los abonos,\n"
                 "    y pide a la biblioteca los saldos\n\n";
  insertSupplierPayment(connection, kSupplierPayment);
  insertPayableMovements(connection, kSupplierPaymentMovements);
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  context.out << "   ActualizaPorAplicarEnPagos(" << payment << ")\n";
  context.library.ActualizaPorAplicarEnPagos(kSupplierPayment.number, ambiente);
  for (const Movement& movement : kSupplierPaymentMovements) {
    context.out << "   ActualizaSaldoPagos(" << std::to_string(movement.document) << ")\n";
    context.library.ActualizaSaldoPagos(movement.document, ambiente);
  }
  context.out << "\n";
  showAccount(connection, context);
  context.out << "\n";
  showRows("SELECT abono, importe, por_apli FROM pagos WHERE abono = " + payment, connection, context);
}

}  // namespace qvn::cli::demo
