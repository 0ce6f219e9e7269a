#include "qvn/ledger/orders.h"

#include <optional>
#include <string>

#include "qvn/core/recordsets.h"
#include "qvn/text/decimal_text.h"

namespace qvn::ledger {
namespace {

enum class OrderState { Closed, PartlySupplied, Pending };

// The first query gives the lines with something left to supply, the second those with something supplied.
OrderState orderState(const std::string& outstanding, const std::string& supplied,
                      const data::ConnectionPtr& connection) {
  if (core::CreaRecordSet(outstanding, connection)->Eof()) return OrderState::Closed;
  return core::CreaRecordSet(supplied, connection)->Eof() ? OrderState::Pending : OrderState::PartlySupplied;
}

std::string customerOrderText(OrderState state, const std::string& order) {
  switch (state) {
    case OrderState::Closed:
      return "UPDATE pedidos SET estado = 'CE' WHERE pedido = " + order;
    case OrderState::PartlySupplied:
      return "UPDATE pedidos SET estado = 'SU' WHERE pedido = " + order;
    default:
      return "UPDATE pedidos SET estado = 'PE' WHERE pedido = " + order;
  }
}

std::string purchaseOrderText(OrderState state, const std::string& order) {
  switch (state) {
    case OrderState::Closed:
      return "UPDATE orden SET estado = 'CE' WHERE orden = " + order;
    case OrderState::PartlySupplied:
      return "UPDATE orden SET estado = 'SU', tipo = 'OR' WHERE orden = " + order;
    default:
      return "UPDATE orden SET estado = 'PE', tipo = 'OR' WHERE orden = " + order;
  }
}

// The order that a line belongs to.
std::optional<std::int32_t> orderOf(const std::string& sql, std::string_view field,
                                    const data::ConnectionPtr& connection) {
  const auto rows = core::CreaRecordSet(sql, connection);
  if (rows->Eof()) return std::nullopt;
  return rows->Fields(field).Value().toLong();
}

}  // namespace

void ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad, std::int32_t nPedido,
                                const host::AmbientePtr& Ambiente, bool bolAfectaArticulos, host::QueryPtr& Query) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  host::provideQuery(Query, connection);
  const std::string line = std::to_string(nPartida);
  const std::string order = std::to_string(nPedido);
  const std::string quantity = text::FormatoDecimal(nCantidad);
  host::runStatement(*Query, "UPDATE pedpar SET surtido = Surtido + " + quantity + " WHERE id_salida = " + line);
  host::runStatement(*Query, "UPDATE pedpar SET por_surt = cantidad - Surtido WHERE id_salida = " + line);
  if (bolAfectaArticulos) {
    host::runStatement(*Query, "UPDATE prods SET Por_surt = Por_surt + " + quantity + " WHERE Articulo = '" +
                                   concatenate(cArticulo, {}) + "'");
  }
  const std::string lines = "SELECT articulo FROM pedpar WHERE pedido = " + order;
  const OrderState state = orderState(lines + " AND por_surt > 0", lines + " AND surtido > 0", connection);
  host::runStatement(*Query, customerOrderText(state, order));
}

void ActualizaPorSurtirEnOrden(const Variant& cArticulo, std::int32_t nPartida, double nCantidad, std::int32_t nPedido,
                               const host::AmbientePtr& Ambiente, bool bolAfectaArticulos) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  const std::string line = std::to_string(nPartida);
  const std::string order = std::to_string(nPedido);
  const std::string quantity = text::FormatoDecimal(nCantidad);
  connection->Execute("UPDATE ordpar SET surtido = surtido + " + quantity + " WHERE Partida = " + line);
  connection->Execute("UPDATE ordpar SET Por_surt = Cantidad - Surtido WHERE Partida = " + line);
  if (bolAfectaArticulos) {
    connection->Execute("UPDATE prods SET Por_recib = Por_recib + " + quantity + " WHERE Articulo = '" +
                        concatenate(cArticulo, {}) + "'");
  }
  const OrderState state =
      orderState("SELECT * FROM ordpar WHERE ORDEN = " + order + " AND por_surt > 0",
                 "SELECT articulo FROM ordpar WHERE orden = " + order + " AND surtido > 0", connection);
  connection->Execute(purchaseOrderText(state, order));
}

void ActualizaPorSurtir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                        double nCantidad, bool bolAfectaArticulos) {
  const auto order = orderOf("SELECT pedido FROM pedpar WHERE id_salida = " + std::to_string(nPartida), "Pedido",
                             host::requireConnection(Ambiente));
  if (!order) return;
  host::QueryPtr none;
  ActualizaPorSurtirEnPedido(cArticulo, nPartida, nCantidad, *order, Ambiente, bolAfectaArticulos, none);
}

void ActualizaPorRecibir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                         double nCantidad, bool bolAfectaArticulos) {
  const auto order = orderOf("SELECT orden FROM ordpar WHERE partida = " + std::to_string(nPartida), "Orden",
                             host::requireConnection(Ambiente));
  if (!order) return;
  ActualizaPorSurtirEnOrden(cArticulo, nPartida, nCantidad, *order, Ambiente, bolAfectaArticulos);
}

}  // namespace qvn::ledger
