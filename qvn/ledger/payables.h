// Supplier payables: document balances, unapplied payments and supplier totals, recomputed from the host's tables after
// a document or payment was saved. Every statement runs directly on the environment's connection.
//
//   ledger::ActualizaPorAplicarEnPagos(payment, ambiente);
//   ledger::ActualizaSaldoPagos(document, ambiente);
#pragma once

#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/ambiente.h"

namespace qvn::ledger {

/// Recomputes the balance and state of one payable document, then its supplier's total.
///
/// Balance = charges - credits; 'S' when the difference is exactly zero, else 'P'. Unlike those of a customer the sums
/// are not rounded: 0.1 + 0.2 - 0.3 is pending, with a balance that is written as 0. The supplier's total is in base
/// currency: the sum of balance x exchange rate over all of the supplier's documents. A document that does not exist
/// changes nothing.
///
/// @param nCuenxpag  document number; its text enters the statements unquoted
/// @param Ambiente   gives the open connection
/// @throws ProviderError  a statement failed; those already run stay in force (there is no transaction)
/// @throws RuntimeError   94 when the supplier's total is Null, 91 without a connection
void ActualizaSaldoPagos(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente);

/// The same with other statement texts, two of whose column names stand in quotes, which Firebird refuses.
void ActualizaCuenxpag(const Variant& nCuenxpag, const host::AmbientePtr& Ambiente);

/// Recomputes how much of one payment to a supplier is still unapplied: its amount less all movements that it produced,
/// subtracted here and not by the engine. No mark is set. A payment that does not exist changes nothing.
///
/// Errors are those of ActualizaSaldoPagos; 94 when the payment's amount is Null. Firebird refuses the quoted column
/// name.
void ActualizaPorAplicarEnPagos(const Variant& nAbono, const host::AmbientePtr& Ambiente);

/// Always fails, and so never changes a stored balance, as AfectaSaldoDeCliente does.
///
/// @throws ProviderError  3251 for an existing supplier, 3021 for a missing one, or what the engine reports
void AfectaSaldoDeProveedor(std::string_view cProveedor, double nCantidad, const data::ConnectionPtr& Connection);

}  // namespace qvn::ledger
