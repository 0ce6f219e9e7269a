// The ODBC drivers of this machine.
#pragma once

#include <string>
#include <string_view>

namespace qvn::data::odbc {

/// The name under which a driver whose name contains `word` is registered; `library`, by which the driver manager finds
/// one that is not registered, when there is none.
std::string registeredDriver(std::string_view word, std::string_view library);

/// Names of all registered drivers with commas between them, for messages.
std::string registeredDrivers();

}  // namespace qvn::data::odbc
