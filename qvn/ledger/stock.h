// Stock: the quantity that sales in progress reserve, what orders still have to supply, and physical inventories.
//
//   const double reserved = ledger::EnVenta("A-100", sale, warehouse, connection);
//
// Errors of all: ProviderError when a statement failed, RuntimeError 91 without a connection.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/ambiente.h"

namespace qvn::ledger {

/// Adds a sold quantity to the reserved quantity (en_venta) of a product; an unknown product changes nothing. A
/// reserved quantity that is Null stays Null.
void ActualizaApartadosPorVenta(const Variant& cArticulo, const Variant& nCantidad, const host::AmbientePtr& Ambiente);

/// Quantity of a product in the lines of sales in progress of a warehouse, other than those of the sale `nVenta`.
/// Blanks around the product code do not count.
double EnVenta(std::string_view strArticulo, std::int32_t nVenta, const Variant& nAlmacen,
               const data::ConnectionPtr& Connection);

/// Quantity of a product that open customer orders still have to supply, other than the order `nPedido`.
double PorSurtir(std::string_view strArticulo, const data::ConnectionPtr& Connection, std::int32_t nPedido = 0);

/// Whether a physical inventory in progress blocks movements of a location. Only the first inventory that the engine
/// returns for the warehouse is looked at: one that covers a single location blocks that one, in the same case of
/// letters; any other blocks the whole warehouse.
bool VerificaInventarioFisico(std::string_view cUbicacion, std::int16_t nAlmacen,
                              const data::ConnectionPtr& Connection);

/// Always false, without reading anything: the check for the whole shop is switched off.
bool VerificaFisico(const host::AmbientePtr& Ambiente);

/// The texts of that check, for the day that it is switched on.
namespace physical_inventory {
inline constexpr std::string_view kQuery = "SELECT inventario, almacen, ubicacion FROM invfis WHERE estado = 'PE'";
inline constexpr std::string_view kMessage =
    "Como medida de precaución no se pueden realizar movimientos de inventario mientras se realiza un inventarió "
    "físico ";
inline constexpr std::string_view kPrefix = "El inventario físico que se esta llevando a cabo: ";
inline constexpr std::string_view kField = "inventario";
}  // namespace physical_inventory

}  // namespace qvn::ledger
