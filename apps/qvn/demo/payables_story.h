// A payment to a supplier as the shop's payables screen saves it, told step by step.
#pragma once

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

/// Saves kSupplierPayment and its movements, calls the library as the screen does, and shows documents, payment and
/// supplier before and after. Every figure is read from the database.
void tellSupplierPayment(const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli::demo
