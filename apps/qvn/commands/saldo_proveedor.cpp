// qvn saldo-proveedor: recomputes payable documents and their suppliers.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/document_balances.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Recalcula cada documento por pagar con ActualizaSaldoPagos: suma sus cargos y
sus abonos en «cuenxpdet», escribe en «cuenxpag» el saldo y el estado (S
saldado, P pendiente), y en «proveed» el saldo del proveedor, que es la suma de
los saldos de todos sus documentos por su tipo de cambio. Después muestra cómo
quedaron.

A diferencia de los documentos por cobrar, las sumas no se redondean: si los
importes no se guardan como decimales exactos, un documento ya pagado puede
quedar pendiente con saldo 0.

Un documento que no existe se avisa y no detiene a los demás. No hay
transacción: lo que se escribió antes de una falla queda escrito.
)";

constexpr std::string_view kExamples = R"(
  qvn saldo-proveedor -c 'Provider=SQLite;Data Source=tienda.db' 310
      recalcula un documento
  qvn saldo-proveedor --traza 310 311
      dos documentos de la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kTraceOption});
constexpr DocumentSide kPayables{"cuenxpag", "proveedor", "proveed", "saldo del proveedor"};

ExitStatus runSaldoProveedor(const Arguments& arguments, Context& context) {
  const auto recompute = [&](std::int64_t number, const host::AmbientePtr& ambiente) {
    context.library.ActualizaSaldoPagos(number, ambiente);
  };
  return recomputeDocuments(kPayables, recompute, arguments, context);
}

}  // namespace

constinit const Command kSaldoProveedorCommand{
    "saldo-proveedor", "recalcula documentos por pagar y el saldo de sus proveedores",
    "DOCUMENTO...",    kDescription,
    kOptions,          kExamples,
    runSaldoProveedor};

}  // namespace qvn::cli
