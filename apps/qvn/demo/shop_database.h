// The tables of the demonstration's shop in a database: made, filled and, on a second run, made anew. Tables that the
// demonstration did not make are never touched: the table "qvn_demo" marks a database in which it made them.
#pragma once

#include <span>

#include "apps/qvn/demo/payables_data.h"
#include "apps/qvn/demo/shop_data.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

enum class Ownership {
  Vacant,   ///< none of the tables is there
  Ours,     ///< an earlier run of the demonstration made them
  Foreign,  ///< a table of one of their names is there that somebody else made
};

/// Looks whose tables there are. Throws ProviderError.
Ownership findOwnership(const data::ConnectionPtr& connection);

/// Drops what an earlier run made, which must be Ours or Vacant, and makes the tables with the shop's rows. All
/// balances are 0 still. The mark comes first, so that a run that is cut off can be made anew. Throws ProviderError.
void buildShop(const data::ConnectionPtr& connection);

void insertPayment(const data::ConnectionPtr& connection, const Payment& payment);
void insertMovements(const data::ConnectionPtr& connection, std::span<const Movement> movements);
void insertSupplierPayment(const data::ConnectionPtr& connection, const SupplierPayment& payment);
void insertPayableMovements(const data::ConnectionPtr& connection, std::span<const Movement> movements);

}  // namespace qvn::cli::demo
