// What the driver manager and its drivers report, in the data-access platform's numbers.
#pragma once

#include <sql.h>

#include <string>
#include <string_view>

#include "qvn/data/drivers/odbc/engine_kind.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::odbc {

/// Source of every error of this driver.
inline constexpr const char* kSource = "ODBC";

/// The error of the last call on a handle, with all its records; `doing` says in Spanish what was tried.
ProviderError lastError(SQLSMALLINT handleType, SQLHANDLE handle, EngineKind engine, std::string_view doing);

/// An error of our own under one of the platform's numbers.
ProviderError ownError(std::int32_t number, const char* sqlState, const std::string& text);

/// The words of a driver without the brackets in front that name who passed them on: "[unixODBC][FreeTDS]x" is "x".
std::string_view withoutSenders(std::string_view words);

}  // namespace qvn::data::odbc
