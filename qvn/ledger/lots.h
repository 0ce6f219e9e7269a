// Lots: the movements of a stock exit put back into the lots that they came from.
#pragma once

#include <cstdint>

#include "qvn/host/ambiente.h"

namespace qvn::ledger {

/// Re-applies the lot movements of one stock exit to the lots, newest lot first, and then deletes the movements.
///
/// A movement that fits a lot (quantity gone out + movement <= quantity of the lot, compared exactly) is added to the
/// quantity gone out. One that does not fit fills the lot and goes on to the next older one, less the quantity that had
/// gone out of the filled lot before: a lot of 10 with 2 gone out takes 9 and leaves 7. What remains after the oldest
/// lot is dropped.
///
/// @param nSalida  the stock exit
/// @throws ProviderError  a statement failed; lots already written stay so, and the movements are still there
/// @throws RuntimeError   94 for a movement without quantity or a full lot whose quantity gone out is Null, 91 without
///                        a connection
void RegresaLotes(std::int32_t nSalida, const host::AmbientePtr& Ambiente);

}  // namespace qvn::ledger
