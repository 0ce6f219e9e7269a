// The direct way to a stored balance, which is closed: the row is read read-only.
#pragma once

#include <string>

#include "qvn/data/connection.h"

namespace qvn::ledger {

/// Assigns the field Saldo of the first row plus `amount` to that field, which the provider refuses. Never changes a
/// balance and never returns.
/// @throws ProviderError  3251 when there is a row, 3021 when there is none, or what the engine reports
void addToStoredBalance(const std::string& sql, double amount, const data::ConnectionPtr& connection);

}  // namespace qvn::ledger
