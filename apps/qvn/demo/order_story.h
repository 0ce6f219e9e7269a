// A customer's order supplied in two steps and a purchase order received, told step by step.
#pragma once

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

/// Shows the order before, between and after its two steps. Every figure is read from the database.
void tellSupply(const data::ConnectionPtr& connection, Context& context);

/// Receives all lines of the purchase order.
void tellReceipt(const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli::demo
