// The engine's errors in the numbers that hosts test for.
#pragma once

#include <string>
#include <string_view>

#include "qvn/data/drivers/firebird/client_library.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::firebird {

/// Name of the driver and source of its errors.
inline constexpr std::string_view kSource = "Firebird";

/// True when the failed call found that there is no connection any more.
bool isConnectionLost(const Status& status);

/// True when the database's file could not be opened, as when there is none.
bool isFileMissing(const Status& status);

/// The error of a statement that failed; `database` names the database in a text about a lost connection.
ProviderError statementError(const Status& status, const std::string& database);

/// The error of a connection that could not be made: kLoginRefused or kUnspecified.
ProviderError connectError(const Status& status, const std::string& database);

/// An error that the driver finds by itself.
ProviderError ownError(std::int32_t number, std::string_view sqlState, const std::string& text);

}  // namespace qvn::data::firebird
