// The history of price changes, table histcamb.
#pragma once

#include <array>
#include <string_view>

#include "qvn/base/clock.h"
#include "qvn/host/ambiente.h"

namespace qvn::ledger {

/// The prices 1 to 10 of a product.
using Prices = std::array<double, 10>;

/// Records a change of a product's prices: the new prices, stock and prices as they stand in prods, branch and user of
/// the environment, date and time. An unknown product writes nothing.
///
/// @param Articulo  product code; blanks around it do not count
/// @param prices    the new prices; those that were not given are 0
/// @throws ProviderError  a statement failed
/// @throws RuntimeError   91 without a connection
void SalvaHistCamb(std::string_view Articulo, const Prices& prices, const host::AmbientePtr& Ambiente,
                   const ClockPtr& clock = systemClock());

}  // namespace qvn::ledger
