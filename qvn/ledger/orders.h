// Customer and purchase orders: quantities supplied and received per line, the state of the order, and the product's
// counters.
//
//   ledger::ActualizaPorSurtirEnPedido("A-100", line, 3, order, ambiente, true, query);
//
// The state of an order: 'CE' when no line has anything left to supply, else 'SU' when some line has something
// supplied, else 'PE'.
//
// Errors of all: ProviderError when a statement failed, those already run stay in force (there is no transaction);
// RuntimeError 91 without a connection.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/query.h"

namespace qvn::ledger {

/// A quantity of one line of a customer order was supplied: adds it to the line, recomputes what the line still has to
/// supply and sets the order's state.
///
/// @param cArticulo           product code; enters the statement between quotes as it is
/// @param nPartida            the line
/// @param nCantidad           quantity; added to the product's Por_surt with the sign that it is given with
/// @param nPedido             the order
/// @param bolAfectaArticulos  false leaves the product alone
/// @param Query               statement runner; when null, one is created on the connection and stored here
void ActualizaPorSurtirEnPedido(const Variant& cArticulo, std::int32_t nPartida, double nCantidad, std::int32_t nPedido,
                                const host::AmbientePtr& Ambiente, bool bolAfectaArticulos, host::QueryPtr& Query);

/// The same for a line of the purchase order `nPedido` that was received, directly on the connection. The product's
/// counter is Por_recib; a state that is not 'CE' also sets the order's kind to 'OR'.
void ActualizaPorSurtirEnOrden(const Variant& cArticulo, std::int32_t nPartida, double nCantidad, std::int32_t nPedido,
                               const host::AmbientePtr& Ambiente, bool bolAfectaArticulos = true);

/// ActualizaPorSurtirEnPedido for the order that the line belongs to; an unknown line changes nothing.
void ActualizaPorSurtir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                        double nCantidad, bool bolAfectaArticulos = true);

/// ActualizaPorSurtirEnOrden for the purchase order that the line belongs to; an unknown line changes nothing.
void ActualizaPorRecibir(const host::AmbientePtr& Ambiente, std::string_view cArticulo, std::int32_t nPartida,
                         double nCantidad, bool bolAfectaArticulos = true);

}  // namespace qvn::ledger
