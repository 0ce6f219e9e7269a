// qvn saldo: recomputes receivable documents and their customers.
#include <array>
#include <vector>

#include "apps/qvn/commands.h"
#include "apps/qvn/connect.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/key_operands.h"
#include "apps/qvn/recompute.h"

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

data::RecordsetPtr readDocument(const LumLibreria& library, const data::ConnectionPtr& connection,
                                std::int64_t document) {
  return library.CreaRecordSet(
      "SELECT cobranza.cliente, cobranza.saldo, cobranza.estado, clients.saldo AS saldo_cliente FROM cobranza "
      "LEFT JOIN clients ON clients.cliente = cobranza.cliente WHERE cobranza.cobranza = " +
          std::to_string(document),
      connection);
}

// After all of them were recomputed, since documents of one customer change the same total.
void showDocuments(const std::vector<Recomputed>& documents, const data::ConnectionPtr& connection, Context& context) {
  if (documents.empty()) return;
  TableWriter table(context.out, {"cobranza", "cliente", "saldo antes", "saldo", "estado", "saldo del cliente"});
  for (const Recomputed& document : documents) {
    const auto rows = readDocument(context.library, connection, document.number);
    table.add({numberCell(std::to_string(document.number)), fieldCell(rows->Fields("cliente")), document.balanceBefore,
               amountCell(rows->Fields("saldo").Value()), fieldCell(rows->Fields("estado")),
               amountCell(rows->Fields("saldo_cliente").Value())});
  }
  table.end();
}

ExitStatus runSaldo(const Arguments& arguments, Context& context) {
  const std::vector<std::int64_t> numbers = keyOperands(arguments, "un número de documento");
  const data::ConnectionPtr connection = connect(arguments, context);
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  host::QueryPtr query;
  const Recomputation recomputation{
      "el documento", "cobranza", "saldo",
      [&](std::int64_t number) { return readDocument(context.library, connection, number); },
      [&](std::int64_t number) { context.library.ActualizaSaldo(number, ambiente, query); }};
  const std::vector<Recomputed> documents = recomputeEach(numbers, recomputation, context);
  showDocuments(documents, connection, context);
  return documents.size() == numbers.size() ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace

constinit const Command kSaldoCommand{
    "saldo",        "recalcula el saldo de documentos por cobrar y el de sus clientes",
    "DOCUMENTO...", kDescription,
    kOptions,       kExamples,
    runSaldo};

}  // namespace qvn::cli
