#include "bench/ledger/ledger_methods.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <utility>

#include "qvn/data/provider_error.h"

namespace qvn::bench {
namespace {

std::string owner(int number) { return std::to_string(number % kOwners); }
int orderOf(int line) { return line % 250; }

// Methods whose failure is their outcome.
template <typename Call>
void refused(Call call) {
  try {
    call();
  } catch (const data::ProviderError& error) {
    benchmark::DoNotOptimize(error.number());
  }
}

constexpr auto kMethods = std::to_array<LedgerMethod>({
    {"ActualizaSaldo", &receivables, [](Station& s, int i) { s.library.ActualizaSaldo(i, s.ambiente, s.query); }},
    {"ActualizaPorAplicar", &receivables,
     [](Station& s, int i) { s.library.ActualizaPorAplicar(i, s.ambiente, s.query); }},
    {"AfectaSaldoDeCliente", &receivables,
     [](Station& s, int i) { refused([&] { s.library.AfectaSaldoDeCliente(owner(i), 5.5, s.connection); }); }, true},
    {"ActualizaSaldoPagos", &payables, [](Station& s, int i) { s.library.ActualizaSaldoPagos(i, s.ambiente); }},
    {"ActualizaCuenxpag", &payables, [](Station& s, int i) { s.library.ActualizaCuenxpag(i, s.ambiente); }},
    {"ActualizaPorAplicarEnPagos", &payables,
     [](Station& s, int i) { s.library.ActualizaPorAplicarEnPagos(i, s.ambiente); }},
    {"AfectaSaldoDeProveedor", &payables,
     [](Station& s, int i) { refused([&] { s.library.AfectaSaldoDeProveedor(owner(i), 5.5, s.connection); }); }, true},
    {"ActualizaPorSurtirEnPedido", &customerOrders,
     [](Station& s, int i) {
       s.library.ActualizaPorSurtirEnPedido(owner(i), i, 2.5, orderOf(i), s.ambiente, true, s.query);
     }},
    {"ActualizaPorSurtirEnOrden", &purchaseOrders,
     [](Station& s, int i) { s.library.ActualizaPorSurtirEnOrden(owner(i), i, 2.5, orderOf(i), s.ambiente, true); }},
    {"ActualizaPorSurtir", &customerOrders,
     [](Station& s, int i) { s.library.ActualizaPorSurtir(s.ambiente, owner(i), i, 2.5, true); }},
    {"ActualizaPorRecibir", &purchaseOrders,
     [](Station& s, int i) { s.library.ActualizaPorRecibir(s.ambiente, owner(i), i, 2.5, true); }},
    {"ActualizaApartadosPorVenta", &stock,
     [](Station& s, int i) { s.library.ActualizaApartadosPorVenta(owner(i), 2.5, s.ambiente); }},
    {"EnVenta", &stock,
     [](Station& s, int i) { benchmark::DoNotOptimize(s.library.EnVenta(owner(i), i, 1, s.connection)); }},
    {"PorSurtir", &customerOrders,
     [](Station& s, int i) { benchmark::DoNotOptimize(s.library.PorSurtir(owner(i), s.connection, orderOf(i))); }},
    {"VerificaInventarioFisico", &stock,
     [](Station& s, int i) {
       const auto warehouse = static_cast<std::int16_t>(i);
       benchmark::DoNotOptimize(s.library.VerificaInventarioFisico(owner(i), warehouse, s.connection));
     }},
    {"RegresaLotes", &lots, [](Station& s, int i) { s.library.RegresaLotes(i, s.ambiente); }},
    {"SalvaHistCamb", &prices,
     [](Station& s, int i) { s.library.SalvaHistCamb(owner(i), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10.5, s.ambiente); }},
    {"TraeSiguiente", &counters,
     [](Station& s, int) { s.library.TraeSiguiente("VENTAS", s.connection, Variant(), s.query); }},
    {"TraeSiguienteConfig", &counters, [](Station& s, int) { s.library.TraeSiguienteConfig("VENTAS", s.connection); }},
    {"TraePosibleSiguiente", &counters,
     [](Station& s, int) { s.library.TraePosibleSiguiente("VENTAS", s.connection); }},
    {"TraeSiguienteSeguro", &counters, [](Station& s, int) { s.library.TraeSiguienteSeguro("VENTAS", s.connection); }},
});

}  // namespace

Station::Station(data::ConnectionPtr opened) : connection(std::move(opened)) {
  auto environment = std::make_shared<host::SimpleAmbiente>(connection);
  environment->setSucursal(1);
  environment->setUsuario("CAJA");
  ambiente = std::move(environment);
}

std::span<const LedgerMethod> ledgerMethods() { return kMethods; }

}  // namespace qvn::bench
