// qvn recalcula: recomputes all documents and totals of customers and suppliers.
#include <array>
#include <vector>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/recalculation_run.h"

namespace qvn::cli {
namespace {

using ledger::LedgerSide;

constexpr std::string_view kDescription = R"(
Recalcula el saldo y el estado de todos los documentos por cobrar y por pagar,
y después el saldo de cada cliente y proveedor, con los resultados que darían
ActualizaSaldo y ActualizaSaldoPagos documento por documento, pero en mucho
menos tiempo. Sólo escribe los registros que no están bien. Sirve después de
importar movimientos, de corregirlos a mano o de restaurar un respaldo.

Lee «cobdet» y «cuenxpdet»; escribe saldo y estado en «cobranza» y «cuenxpag»,
y saldo en «clients» y «proveed». Escribe por lotes de 500, cada uno en una
transacción. Si falla o se interrumpe con Ctrl-C, los lotes terminados quedan,
y al repetir el comando sigue con lo que falta. Conviene hacerlo cuando nadie
guarda pagos.

Con --simula no escribe nada. Los totales salen de los saldos de los documentos,
y por eso sólo se comparan cuando todos los documentos están bien.

Un cliente o proveedor cuyos documentos no tienen tipo de cambio se avisa, queda
como está y no detiene a los demás; el estado de salida es entonces 1.
)";

constexpr std::string_view kExamples = R"(
  qvn recalcula --clientes --simula --detalle \
          -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db'
      lo que cambiaría en la tienda de «qvn demo», que no tiene proveedores
  qvn recalcula
      clientes y proveedores de la base de QVN_CONEXION
)";

constexpr Option kSimulateOption{"simula", 0, "", "no escribe nada; dice lo que cambiaría"};
constexpr Option kCustomersOption{"clientes", 0, "", "sólo documentos por cobrar"};
constexpr Option kSuppliersOption{"proveedores", 0, "", "sólo documentos por pagar"};
constexpr Option kDetailOption{"detalle", 0, "", "muestra cada cambio, antes y después"};
constexpr auto kOptions = std::to_array<Option>(
    {kConnectionOption, kSimulateOption, kCustomersOption, kSuppliersOption, kDetailOption, kTraceOption});

std::vector<LedgerSide> chosenSides(const Arguments& arguments) {
  const bool hasCustomers = arguments.has(kCustomersOption.name);
  const bool hasSuppliers = arguments.has(kSuppliersOption.name);
  std::vector<LedgerSide> sides;
  if (hasCustomers || !hasSuppliers) sides.push_back(LedgerSide::Customers);
  if (hasSuppliers || !hasCustomers) sides.push_back(LedgerSide::Suppliers);
  return sides;
}

ExitStatus runRecalcula(const Arguments& arguments, Context& context) {
  if (!arguments.operands().empty()) throw UsageError("recalcula todos los documentos y no lleva argumentos");
  const std::vector<LedgerSide> sides = chosenSides(arguments);
  const data::ConnectionPtr connection = connect(arguments, context);
  const RecalculationWishes wishes{.isSimulated = arguments.has(kSimulateOption.name),
                                   .hasDetail = arguments.has(kDetailOption.name),
                                   .hasTrace = arguments.has(kTraceOption.name)};
  return recalculateSides(sides, wishes, connection, context);
}

}  // namespace

constinit const Command kRecalculaCommand{
    "recalcula", "recalcula los saldos de todos los clientes y proveedores", "", kDescription, kOptions, kExamples,
    runRecalcula};

}  // namespace qvn::cli
