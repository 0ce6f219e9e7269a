// A payment as the shop's receivables screen saves it, told step by step.
#pragma once

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

/// Computes the balances of the shop that buildShop made, through the library.
void computeBalances(LumLibreria& library, const data::ConnectionPtr& connection);

/// Saves kNewPayment and its movements, calls the library as the screen does, and shows documents, payment and customer
/// before and after. Every figure is read from the database.
void tellPayment(const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli::demo
