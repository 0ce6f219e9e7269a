// The lot movements of a stock exit put back, and a change of prices, told step by step.
#pragma once

#include "apps/qvn/command.h"
#include "qvn/data/connection.h"

namespace qvn::cli::demo {

/// Shows lots and movements before and after. Every figure is read from the database.
void tellLotReturn(const data::ConnectionPtr& connection, Context& context);

/// Records the change, then makes it, and shows the product before and after and what was recorded.
void tellPriceChange(const data::ConnectionPtr& connection, Context& context);

}  // namespace qvn::cli::demo
