#include "apps/qvn/demo/payment_story.h"

#include <memory>
#include <string>

#include "apps/qvn/demo/payables_data.h"
#include "apps/qvn/demo/shop_data.h"
#include "apps/qvn/demo/shop_database.h"
#include "apps/qvn/demo/telling.h"
#include "apps/qvn/field_text.h"
#include "apps/qvn/terminal_text.h"

namespace qvn::cli::demo {
namespace {

std::string customerTotal(const data::ConnectionPtr& connection, Context& context) {
  const std::string sql = "SELECT saldo FROM clients WHERE cliente = '" + std::string(kNewPayment.party) + "'";
  return amountCell(readValue(context.library, connection, sql)).text;
}

void showDocuments(const data::ConnectionPtr& connection, Context& context) {
  const auto rows = context.library.CreaRecordSet(
      "SELECT cobranza, fecha, moneda, tip_cam, saldo, estado FROM cobranza WHERE cliente = '" +
          std::string(kNewPayment.party) + "' ORDER BY cobranza",
      connection);
  TableWriter table(context.out, {"cobranza", "fecha", "moneda", "tip_cam", "saldo", "estado"}, kIndent);
  for (; !rows->Eof(); rows->MoveNext()) {
    const Variant date = context.library.Formato(rows->Fields("fecha").Value(), "dd/mm/yyyy");
    table.add({fieldCell(rows->Fields("cobranza")), textCell(safeText(date.toText())),
               fieldCell(rows->Fields("moneda")), fieldCell(rows->Fields("tip_cam")),
               amountCell(rows->Fields("saldo").Value()), fieldCell(rows->Fields("estado"))});
  }
  table.end();
  context.out << "   Saldo del cliente en moneda base: " << customerTotal(connection, context) << "\n";
}

void showPayment(const data::ConnectionPtr& connection, Context& context) {
  const auto rows = context.library.CreaRecordSet(
      "SELECT abono, importe, por_apli, aplicado FROM caja WHERE abono = " + std::to_string(kNewPayment.number),
      connection);
  TableWriter table(context.out, {"abono", "importe", "por_apli", "aplicado"}, kIndent);
  table.add({fieldCell(rows->Fields("abono")), amountCell(rows->Fields("importe").Value()),
             amountCell(rows->Fields("por_apli").Value()), fieldCell(rows->Fields("aplicado"))});
  table.end();
}

void showMovements(const data::ConnectionPtr& connection, Context& context) {
  const auto rows =
      context.library.CreaRecordSet("SELECT cobdet, cobranza, cargo_ab, importe, abono FROM cobdet WHERE abono = " +
                                        std::to_string(kNewPayment.number) + " ORDER BY cobdet",
                                    connection);
  TableWriter table(context.out, {"cobdet", "cobranza", "cargo_ab", "importe", "abono"}, kIndent);
  for (; !rows->Eof(); rows->MoveNext()) {
    table.add({fieldCell(rows->Fields("cobdet")), fieldCell(rows->Fields("cobranza")),
               fieldCell(rows->Fields("cargo_ab")), amountCell(rows->Fields("importe").Value()),
               fieldCell(rows->Fields("abono"))});
  }
  table.end();
}

// What a receivables screen does after it saved a payment.
void callLibrary(const data::ConnectionPtr& connection, Context& context) {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  host::QueryPtr query;
  context.out << "   ActualizaPorAplicar(" << std::to_string(kNewPayment.number) << ")\n";
  context.library.ActualizaPorAplicar(kNewPayment.number, ambiente, query);
  for (const Movement& movement : kNewMovements) {
    context.out << "   ActualizaSaldo(" << std::to_string(movement.document) << ")\n";
    context.library.ActualizaSaldo(movement.document, ambiente, query);
  }
}

// The outcome in three sentences.
void tellOutcome(const data::ConnectionPtr& connection, Context& context) {
  for (const Movement& movement : kNewMovements) {
    const std::string number = std::to_string(movement.document);
    const auto rows =
        context.library.CreaRecordSet("SELECT saldo, estado FROM cobranza WHERE cobranza = " + number, connection);
    const bool isSettled = rows->Fields("estado").Value().toText() == "S";
    context.out << "   Documento " << number << (isSettled ? ": saldado (S), saldo " : ": pendiente (P), saldo ")
                << amountCell(rows->Fields("saldo").Value()).text << "\n";
  }
  const std::string number = std::to_string(kNewPayment.number);
  const Variant remainder = readValue(context.library, connection, "SELECT por_apli FROM caja WHERE abono = " + number);
  context.out << "   Pago " << number << ": quedan por aplicar " << amountCell(remainder).text << "\n"
              << "   Cliente " << kNewPayment.party << ": saldo " << customerTotal(connection, context) << "\n";
}

}  // namespace

void computeBalances(LumLibreria& library, const data::ConnectionPtr& connection) {
  const auto ambiente = std::make_shared<host::SimpleAmbiente>(connection);
  host::QueryPtr query;
  for (const Payment& payment : kPayments) library.ActualizaPorAplicar(payment.number, ambiente, query);
  for (const Document& document : kDocuments) library.ActualizaSaldo(document.number, ambiente, query);
  for (const Document& document : kPayableDocuments) library.ActualizaSaldoPagos(document.number, ambiente);
}

void tellPayment(const data::ConnectionPtr& connection, Context& context) {
  const Variant name = readValue(context.library, connection,
                                 "SELECT nombre FROM clients WHERE cliente = '" + std::string(kNewPayment.party) + "'");
  context.out << "\n1. La cuenta de " << safeText(name.toText()) << " (" << kNewPayment.party << ") antes de pagar\n\n";
  showDocuments(connection, context);

  context.out << "\n2. El cliente paga. La pantalla de cobranza guarda el pago en «caja» y en\n"
                 "   «cobdet» los abonos a los documentos que él escoge\n\n";
  insertPayment(connection, kNewPayment);
  insertMovements(connection, kNewMovements);
  showPayment(connection, context);
  context.out << "\n";
  showMovements(connection, context);

  context.out << "\n3. La pantalla pide a la biblioteca que ponga al día lo que queda del pago y\n"
                 "   el saldo de cada documento (y con él el del cliente)\n\n";
  callLibrary(connection, context);

  context.out << "\n4. La cuenta después de pagar\n\n";
  showDocuments(connection, context);
  context.out << "\n";
  showPayment(connection, context);
  context.out << "\n";
  tellOutcome(connection, context);
}

}  // namespace qvn::cli::demo
