#include "qvn/ledger/payables.h"

#include <string>

#include "qvn/core/recordsets.h"
#include "qvn/ledger/document_balance.h"
#include "qvn/ledger/stored_balance.h"
#include "qvn/text/decimal_text.h"
#include "qvn/text/padding.h"

namespace qvn::ledger {
namespace {

// The statements of one way to recompute a document, each up to the key that it ends with.
struct Texts {
  const char* charges;
  const char* credits;
  const char* settled;
  const char* pending;
  const char* document;
  const char* supplierTotal;
  const char* supplier;
};

constexpr Texts kActualizaSaldoPagos = {
    .charges = "SELECT sum(Importe) As Cargos FROM cuenxpdet WHERE cargo_ab = 'C' AND cuenxpag = ",
    .credits = "SELECT sum(Importe) As Abonos FROM cuenxpdet WHERE cargo_ab = 'A' AND cuenxpag = ",
    .settled = ",estado = 'S' WHERE cuenxpag = ",
    .pending = ",estado = 'P' WHERE cuenxpag = ",
    .document = "SELECT * FROM cuenxpag WHERE cuenxpag = ",
    .supplierTotal = "SELECT sum(saldo * tip_cam) As S FROM cuenxpag WHERE proveedor = '",
    .supplier = " WHERE Proveedor = '",
};

constexpr Texts kActualizaCuenxpag = {
    .charges = "SELECT sum(importe) As 'Cargos' FROM cuenxpdet WHERE cargo_ab = 'C' AND cuenxpag = ",
    .credits = "SELECT sum(importe) As 'Abonos' FROM cuenxpdet WHERE cargo_ab = 'A' AND cuenxpag = ",
    .settled = ",ESTADO = 'S' WHERE Cuenxpag = ",
    .pending = ",ESTADO = 'P' WHERE Cuenxpag = ",
    .document = "SELECT * FROM cuenxpag WHERE Cuenxpag = ",
    .supplierTotal = "SELECT sum(saldo * tip_cam) As 'S' FROM cuenxpag WHERE proveedor = '",
    .supplier = " WHERE proveedor = '",
};

double amountOf(const Variant& sum) { return text::Val2(text::cNull(sum)); }

Variant sumMovements(data::Connection& connection, const std::string& sql, std::string_view field) {
  return connection.Execute(sql)->Fields(field).Value();
}

void recompute(const Texts& texts, const Variant& number, const host::AmbientePtr& ambiente) {
  const data::ConnectionPtr connection = host::requireConnection(ambiente);
  const std::string document = concatenate(number, {});
  const Variant charges = sumMovements(*connection, texts.charges + document, "Cargos");
  const Variant credits = sumMovements(*connection, texts.credits + document, "Abonos");
  const DocumentBalance balance = documentBalance(charges, credits, SumRounding::None);
  connection->Execute("UPDATE cuenxpag SET saldo = " + text::FormatoDecimal(balance.amount) +
                      (balance.isSettled() ? texts.settled : texts.pending) + document);

  const auto rows = connection->Execute(texts.document + document);
  if (rows->Eof()) return;
  const std::string supplier = rows->Fields("Proveedor").Value().toText();
  const double total = connection->Execute(texts.supplierTotal + supplier + "'")->Fields("s").Value().toDouble();
  connection->Execute("UPDATE proveed SET saldo = " + text::FormatoDecimal(total) + texts.supplier + supplier + "'");
}

}  // namespace

void ActualizaSaldoPagos(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) {
  recompute(kActualizaSaldoPagos, nCuenxpag, Ambiente);
}

void ActualizaCuenxpag(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente) {
  recompute(kActualizaCuenxpag, nCuenxpag, Ambiente);
}

void ActualizaPorAplicarEnPagos(const Variant& nAbono, const host::AmbientePtr& Ambiente) {
  const data::ConnectionPtr connection = host::requireConnection(Ambiente);
  const std::string number = concatenate(nAbono, {});
  const auto applied =
      core::CreaRecordSet("SELECT Sum(Importe) As 'I' FROM cuenxpdet WHERE abono = " + number, connection);
  const auto payment = core::CreaRecordSet("SELECT * FROM pagos WHERE abono = " + number, connection);
  if (applied->Eof() || payment->Eof()) return;
  const double remainder = payment->Fields("Importe").Value().toDouble() - amountOf(applied->Fields("i").Value());
  connection->Execute("UPDATE pagos SET Por_apli = " + text::FormatoDecimal(remainder) + " WHERE ABONO = " + number);
}

void AfectaSaldoDeProveedor(std::string_view cProveedor, double nCantidad, const data::ConnectionPtr& Connection) {
  addToStoredBalance("SELECT * FROM proveed WHERE proveedor = '" + std::string(cProveedor) + "'", nCantidad,
                     Connection);
}

}  // namespace qvn::ledger
