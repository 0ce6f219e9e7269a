// Customer receivables: document balances, unapplied payments and customer totals, recomputed from the host's tables
// after a document or payment was saved.
//
//   ledger::ActualizaPorAplicar(payment, ambiente, query);
//   ledger::ActualizaSaldo(document, ambiente, query);
#pragma once

#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/connection.h"
#include "qvn/host/ambiente.h"
#include "qvn/host/query.h"

namespace qvn::ledger {

/// Recomputes the balance and state of one receivable document, then its customer's total.
///
/// Balance = charges - credits, each sum rounded to 2 decimals first; 'S' when the difference is exactly zero, else
/// 'P'. The customer's total is in base currency: the sum of balance x exchange rate over all of the customer's
/// documents. A document that does not exist changes nothing.
///
/// @param nCobranza  document number; its text enters the statements unquoted
/// @param Ambiente   gives the open connection
/// @param Query      statement runner; when null, one is created on that connection and stored here
/// @throws ProviderError  a statement failed; those already run stay in force (there is no transaction)
/// @throws RuntimeError   94 when the customer's total is Null, 91 without a connection
void ActualizaSaldo(const Variant& nCobranza, const host::AmbientePtr& Ambiente, host::QueryPtr& Query);

/// Recomputes how much of one customer payment is still unapplied: its amount less all movements that it produced. A
/// payment with nothing left is marked as applied; the mark is never taken away here.
///
/// Parameters and errors are those of ActualizaSaldo; `nAbono` is the payment number.
void ActualizaPorAplicar(const Variant& nAbono, const host::AmbientePtr& Ambiente, host::QueryPtr& Query);

/// Always fails, and so never changes a stored balance: the amount is assigned to a row that was read read-only. Hosts
/// keep balances right through ActualizaSaldo.
///
/// @throws ProviderError  3251 for an existing customer, 3021 for a missing one, or what the engine reports
void AfectaSaldoDeCliente(std::string_view cCliente, double nCantidad, const data::ConnectionPtr& Connection);

}  // namespace qvn::ledger
