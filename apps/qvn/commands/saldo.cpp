// qvn saldo: recomputes receivable documents and their customers.
#include <array>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/document_balances.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kDescription = R"(
Recalcula cada documento por cobrar con ActualizaSaldo: suma sus cargos y sus
abonos en «cobdet», escribe en «cobranza» el saldo y el estado (S saldado, P
pendiente), y en «clients» el saldo del cliente, que es la suma de los saldos de
todos sus documentos por su tipo de cambio. Después muestra cómo quedaron.

Un documento que no existe se avisa y no detiene a los demás. No hay
transacción: lo que se escribió antes de una falla queda escrito.
)";

constexpr std::string_view kExamples = R"(
  qvn saldo -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' 1007
      recalcula un documento de la tienda que deja «qvn demo»
  qvn saldo --traza 1003 1007 1009
      tres documentos de la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kTraceOption});

constexpr DocumentSide kReceivables{"cobranza", "cliente", "clients", "saldo del cliente"};

ExitStatus runSaldo(const Arguments& arguments, Context& context) {
  host::QueryPtr query;
  const auto recompute = [&](std::int64_t number, const host::AmbientePtr& ambiente) {
    context.library.ActualizaSaldo(number, ambiente, query);
  };
  return recomputeDocuments(kReceivables, recompute, arguments, context);
}

}  // namespace

constinit const Command kSaldoCommand{"saldo",        "recalcula documentos por cobrar y el saldo de sus clientes",
                                      "DOCUMENTO...", kDescription,
                                      kOptions,       kExamples,
                                      runSaldo};

}  // namespace qvn::cli
