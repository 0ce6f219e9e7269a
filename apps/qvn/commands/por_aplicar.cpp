// qvn por-aplicar: recomputes what is left to apply of customer payments.
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
Recalcula cada pago con ActualizaPorAplicar: suma los movimientos de «cobdet»
que nacieron del pago, escribe en «caja» lo que queda por aplicar (por_apli), y
lo marca como aplicado cuando no queda nada. La marca nunca se quita. Después
muestra cómo quedaron.

Un pago que no existe se avisa y no detiene a los demás. No hay transacción: lo
que se escribió antes de una falla queda escrito.
)";

constexpr std::string_view kExamples = R"(
  qvn por-aplicar -c 'Provider=SQLite;Data Source=demo-qvn/tienda.db' 506
      recalcula un pago de la tienda que deja «qvn demo»
  qvn por-aplicar --traza 501 502 503
      tres pagos de la base de QVN_CONEXION, con las sentencias que ejecuta
)";

constexpr auto kOptions = std::to_array<Option>({kConnectionOption, kTraceOption});

data::RecordsetPtr readPayment(const LumLibreria& library, const data::ConnectionPtr& connection,
                               std::int64_t payment) {
  return library.CreaRecordSet("SELECT importe, por_apli, aplicado FROM caja WHERE abono = " + std::to_string(payment),
                               connection);
}

Cell appliedCell(const Variant& mark) {
  if (mark.isNull()) return nullCell();
  return textCell(mark.toBoolean() ? "Sí" : "No");
}

void showPayments(const std::vector<Recomputed>& payments, const data::ConnectionPtr& connection, Context& context) {
  if (payments.empty()) return;
  TableWriter table(context.out, {"abono", "importe", "por aplicar antes", "por aplicar", "aplicado"});
  for (const Recomputed& payment : payments) {
    const auto rows = readPayment(context.library, connection, payment.number);
    table.add({numberCell(std::to_string(payment.number)), amountCell(rows->Fields("importe").Value()),
               payment.balanceBefore, amountCell(rows->Fields("por_apli").Value()),
               appliedCell(rows->Fields("aplicado").Value())});
  }
  table.end();
}

ExitStatus runPorAplicar(const Arguments& arguments, Context& context) {
  const std::vector<std::int64_t> numbers = keyOperands(arguments, "un número de abono");
  const data::ConnectionPtr connection = connect(arguments, context);
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  host::QueryPtr query;
  const Recomputation recomputation{
      "el abono", "caja", "por_apli",
      [&](std::int64_t number) { return readPayment(context.library, connection, number); },
      [&](std::int64_t number) { context.library.ActualizaPorAplicar(number, ambiente, query); }};
  const std::vector<Recomputed> payments = recomputeEach(numbers, recomputation, context);
  showPayments(payments, connection, context);
  return payments.size() == numbers.size() ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace

constinit const Command kPorAplicarCommand{"por-aplicar", "recalcula lo que queda por aplicar de pagos de clientes",
                                           "ABONO...",    kDescription,
                                           kOptions,      kExamples,
                                           runPorAplicar};

}  // namespace qvn::cli
