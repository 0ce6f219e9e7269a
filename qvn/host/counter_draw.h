// Numbers of the counters in the table consec, drawn so that no two stations ever get the same one.
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::host {

/// Draws the next number of a counter in one atomic statement or short transaction; a counter without a row starts
/// with 1. On a cluster the table needs a unique key on `dato`. Nothing stays locked. A station that meets another one
/// tries again for as long as a statement may take (Connection::CommandTimeout).
///
/// Not for use inside a transaction of the caller's own: to the end of it all other stations would wait, and an engine
/// that breaks a deadlock takes the transaction back.
///
/// @param name  of the counter; may hold any characters
/// @throws RuntimeError   6 when the counter has reached 2,147,483,647, 94 when it is Null; the row stays as it is
/// @throws ProviderError  kNotSupported on an engine whose rows this cannot guard, or what the engine reports
/// @throws UnknownOutcome on a cluster, when the connection was lost at the end: the number is given to nobody
std::int32_t drawCounter(data::Connection& connection, std::string_view name);

/// Makes sure that drawCounter gives a number above `number`: for rows that were numbered in another way. Throws as
/// drawCounter does.
void raiseCounter(data::Connection& connection, std::string_view name, std::int32_t number);

}  // namespace qvn::host
