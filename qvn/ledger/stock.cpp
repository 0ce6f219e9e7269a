#include "qvn/ledger/stock.h"

#include <string>

#include "qvn/base/utf8.h"
#include "qvn/core/recordsets.h"
#include "qvn/host/require.h"
#include "qvn/host/statement_builder.h"

namespace qvn::ledger {
namespace {

// The column suma of the first row; Null counts as 0.
double sumOf(const std::string& sql, const data::ConnectionPtr& connection) {
  const auto rows = host::required(connection)->Execute(sql);
  const Variant& sum = rows->Fields("suma").Value();
  return sum.isNull() ? 0 : sum.toDouble();
}

}  // namespace

void ActualizaApartadosPorVenta(const Variant& cArticulo, const Variant& nCantidad, const host::AmbientePtr& Ambiente) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  const std::string product = concatenate(cArticulo, {});
  host::StatementBuilder builder;
  const auto rows =
      core::CreaRecordSet("SELECT articulo, en_venta FROM prods WHERE articulo = '" + product + "'", connection);
  builder.Conexion(connection);
  if (rows->Eof()) return;
  const Variant reserved = rows->Fields("En_venta").Value();
  builder.Limpia();
  if (reserved.isNull()) builder.AgregaCampo("PRODS", "en_venta", 0);
  // Null spreads: the field is then given twice, and its last value counts.
  builder.AgregaCampo("PRODS", "en_venta", reserved + nCantidad);
  builder.Condicion("articulo = '" + product + "'");
  builder.Accion("UPDATE");
  builder.Arma();
  builder.Ejecuta();
}

double EnVenta(std::string_view strArticulo, std::int32_t nVenta, const Variant& nAlmacen,
               const data::ConnectionPtr& Connection) {
  return sumOf("SELECT Sum( Cantidad ) AS Suma FROM partvta WHERE estado = 'PE' AND articulo = '" +
                   std::string(utf8::trimBlanks(strArticulo)) + "' AND almacen = " + concatenate(nAlmacen, {}) +
                   " AND venta <> " + std::to_string(nVenta),
               Connection);
}

double PorSurtir(std::string_view strArticulo, const data::ConnectionPtr& Connection, std::int32_t nPedido) {
  return sumOf(
      "SELECT SUM( pedpar.cantidad - pedpar.surtido ) AS Suma FROM pedpar INNER JOIN pedidos ON  pedpar.pedido = "
      "pedidos.pedido WHERE pedidos.pedido <> " +
          std::to_string(nPedido) + " AND pedidos.estado <> 'CE' AND pedidos.tipo = 'PE' AND pedpar.articulo = '" +
          std::string(strArticulo) + "'",
      Connection);
}

bool VerificaInventarioFisico(std::string_view cUbicacion, std::int16_t nAlmacen,
                              const data::ConnectionPtr& Connection) {
  const auto rows = core::CreaRecordSet("SELECT ubicacion, porubicacion, ubicacion FROM invfis WHERE almacen = " +
                                            std::to_string(nAlmacen) + " AND estado = 'PE'",
                                        Connection);
  if (rows->Eof()) return false;
  // Null is neither 0 nor anything else.
  const auto coverage = compare(rows->Fields("porubicacion").Value(), 0);
  const bool coversOneLocation = coverage && *coverage != 0;
  return !coversOneLocation ||
         compare(rows->Fields("ubicacion").Value(), std::string(cUbicacion)) == std::weak_ordering::equivalent;
}

bool VerificaFisico(const host::AmbientePtr& /*Ambiente*/) { return false; }

}  // namespace qvn::ledger
