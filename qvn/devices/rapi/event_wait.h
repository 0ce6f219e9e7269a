// Waiting for the event by which a library tells that a session is up.
#pragma once

#include <chrono>

namespace qvn::devices::rapi {

/// Whether the descriptor becomes readable within `wait`. False at once for one that never can.
bool waitUntilReadable(int descriptor, std::chrono::milliseconds wait);

}  // namespace qvn::devices::rapi
