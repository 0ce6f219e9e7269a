// A quantity of one line of an order, supplied to a customer or received from a supplier, as `surtir` and `recibir` do
// it.
#pragma once

#include <cstdint>
#include <string_view>

#include "apps/qvn/command.h"
#include "qvn/host/ambiente.h"

namespace qvn::cli {

inline constexpr Option kWithoutProductsOption{"sin-articulos", 0, "", "no cambia el contador del artículo"};

/// ActualizaPorSurtir or ActualizaPorRecibir.
using LineMethod = void (LumLibreria::*)(const host::AmbientePtr& Ambiente, std::string_view cArticulo,
                                         std::int32_t nPartida, double nCantidad, bool bolAfectaArticulos) const;

/// Where the lines of one kind of order stand, and what a quantity of one is applied with. The key of an order is the
/// field `order` of both tables.
struct OrderKind {
  std::string_view lines;           ///< table
  std::string_view lineKey;         ///< its key
  std::string_view orders;          ///< table
  std::string_view order;           ///< key
  std::string_view productCounter;  ///< field of «prods»
  LineMethod apply;
};

/// Reads the operands PARTIDA and CANTIDAD, runs the method on the line's own product, and shows line, order and
/// product before and after; Failed when there is no such line. Throws UsageError, and what the method throws.
ExitStatus applyToLine(const OrderKind& kind, const Arguments& arguments, Context& context);

}  // namespace qvn::cli
