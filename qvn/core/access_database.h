// Access database files.
#pragma once

#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::core {

/// A connection to the Access file at the path `cBase`, with rows on the client side and 30 seconds for a command. It
/// never raises: when the file cannot be opened the connection comes back closed, and the caller looks at its state.
data::ConnectionPtr AbreConnection(std::string_view cBase);

}  // namespace qvn::core
