#include "qvn/ledger/receivables.h"

#include "qvn/core/recordsets.h"
#include "qvn/ledger/document_balance.h"
#include "qvn/ledger/stored_balance.h"
#include "qvn/text/decimal_text.h"

namespace qvn::ledger {
namespace {

// One sum over a document's movements; Null without movements.
Variant sumMovements(const std::string& sql, const data::ConnectionPtr& connection, std::string_view field) {
  return core::CreaRecordSet(sql, connection)->Fields(field).Value();
}

DocumentBalance readBalance(const std::string& document, const data::ConnectionPtr& connection) {
  const Variant charges =
      sumMovements("SELECT sum(importe) As cargos FROM cobdet WHERE cargo_ab = 'C' AND cobranza = " + document,
                   connection, "Cargos");
  const Variant credits =
      sumMovements("SELECT sum(importe) As abonos FROM cobdet WHERE cargo_ab = 'A' AND cobranza = " + document,
                   connection, "Abonos");
  return documentBalance(charges, credits, SumRounding::ToCents);
}

void writeDocument(host::Query& query, const std::string& document, const DocumentBalance& balance) {
  const char* state = balance.isSettled() ? ",estado = 'S' WHERE cobranza = " : ",estado = 'P' WHERE cobranza = ";
  host::runStatement(query, "UPDATE cobranza SET saldo = " + text::FormatoDecimal(balance.amount) + state + document);
}

// In base currency, over every document of the customer.
double customerTotal(const std::string& customer, const data::ConnectionPtr& connection) {
  const auto rows = core::CreaRecordSet(
      "SELECT sum(saldo * tip_cam) As S FROM cobranza WHERE cliente = '" + customer + "'", connection);
  return rows->Fields("s").Value().toDouble();
}

}  // namespace

void ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente, host::QueryPtr& Query) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  host::provideQuery(Query, connection);
  const std::string document = concatenate(nCobranza, {});
  writeDocument(*Query, document, readBalance(document, connection));

  const auto rows = core::CreaRecordSet("SELECT * FROM cobranza WHERE cobranza = " + document, connection);
  if (rows->Eof()) return;
  const std::string customer = rows->Fields("Cliente").Value().toText();
  const double total = customerTotal(customer, connection);
  host::runStatement(
      *Query, "UPDATE clients SET saldo = " + text::FormatoDecimal(total) + " WHERE CLIENTE = '" + customer + "'");
}

void ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente, host::QueryPtr& Query) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  host::provideQuery(Query, connection);
  const std::string payment = concatenate(nAbono, {});
  const auto rows = core::CreaRecordSet("SELECT SUM(importe) FROM cobdet WHERE abono = " + payment, connection);
  if (!rows->Eof()) {
    const std::string applied = text::FormatoDecimal(text::Val2(rows->Fields(0).Value()));
    host::runStatement(*Query, "UPDATE caja SET por_apli = importe - " + applied + " WHERE abono = " + payment);
  }
  host::runStatement(*Query, "UPDATE caja SET aplicado = 1 WHERE por_apli = 0 AND abono = " + payment);
}

void AfectaSaldoDeCliente(std::string_view cCliente, double nCantidad, const data::ConnectionPtr& Connection) {
  addToStoredBalance("SELECT * FROM clients WHERE cliente = '" + std::string(cCliente) + "'", nCantidad, Connection);
}

}  // namespace qvn::ledger
