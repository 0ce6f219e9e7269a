#include "apps/qvn/demo/stock_story.h"

#include <memory>
#include <string>

#include "apps/qvn/demo/stock_data.h"
#include "apps/qvn/demo/telling.h"
#include "qvn/text/decimal_text.h"

namespace qvn::cli::demo {
namespace {

void showLots(const data::ConnectionPtr& connection, Context& context) {
  showRows("SELECT id, lote, articulo, cantidad, cantsal FROM lotes ORDER BY id", connection, context);
}

void showMovements(const data::ConnectionPtr& connection, Context& context) {
  showRows("SELECT id, id_salida, lote, cantidad FROM slotes ORDER BY id", connection, context);
}

std::string changedProduct() { return " WHERE articulo = '" + std::string(kPriceChange.product) + "'"; }

void showProduct(const data::ConnectionPtr& connection, Context& context) {
  showRows("SELECT articulo, descrip, existencia, precio1, precio2 FROM prods" + changedProduct(), connection, context);
}

}  // namespace

void tellLotReturn(const data::ConnectionPtr& connection, Context& context) {
  const std::string stockExit = std::to_string(kReturnedExit);
  context.out << "\n10. Los lotes, lo que ha salido de ellos (cantsal) y los movimientos de las\n"
                 "    salidas de almacén\n\n";
  showLots(connection, context);
  context.out << "\n";
  showMovements(connection, context);
  context.out << "\n11. La biblioteca aplica otra vez a sus lotes los movimientos de la\n    salida " << stockExit
              << " y los borra\n\n   RegresaLotes(" << stockExit << ")\n\n";
  context.library.RegresaLotes(kReturnedExit, std::make_shared<host::SimpleAmbiente>(connection));
  showLots(connection, context);
  context.out << "\n";
  showMovements(connection, context);
}

void tellPriceChange(const data::ConnectionPtr& connection, Context& context) {
  const std::string price1 = text::FormatoDecimal(kPriceChange.price1);
  const std::string price2 = text::FormatoDecimal(kPriceChange.price2);
  context.out << "\n12. Un artículo antes de cambiar sus precios\n\n";
  showProduct(connection, context);
  context.out << "\n13. La biblioteca registra el cambio y la pantalla escribe los precios nuevos\n\n"
                 "   SalvaHistCamb(\""
              << kPriceChange.product << "\", " << price1 << ", " << price2 << ")\n\n";
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  ambiente->setUsuario(std::string(kUser));
  ambiente->setSucursal(kBranch);
  context.library.SalvaHistCamb(kPriceChange.product, kPriceChange.price1, kPriceChange.price2, 0, 0, 0, 0, 0, 0, 0, 0,
                                ambiente);
  connection->Execute("UPDATE prods SET precio1 = " + price1 + ", precio2 = " + price2 + changedProduct());
  showProduct(connection, context);
  context.out << "\n";
  showRows("SELECT id, usuario, existencia, precioold1, precio1, precioold2, precio2 FROM histcamb" + changedProduct() +
               " ORDER BY id",
           connection, context);
}

}  // namespace qvn::cli::demo
