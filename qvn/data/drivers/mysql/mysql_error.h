// The engine's errors in the numbers that hosts test for.
#pragma once

#include <mysql.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

/// Name of the driver and source of its errors.
inline constexpr std::string_view kSource = "MySQL";

/// The platform's number for an error of a statement.
std::int32_t numberForStatement(unsigned code, const std::string& sqlState);

/// The platform's number for an error of a log-in: kLoginRefused where the server refused this user, else kUnspecified.
std::int32_t numberForLogin(unsigned code);

/// What the library or the server reported last on `handle`, as "lead-in: engine's words", with `advice` after "; "
/// where there is one. Texts that are not UTF-8 are cleaned.
ErrorItem reportedError(MYSQL* handle, std::int32_t platformNumber, const std::string& leadIn,
                        std::string_view advice = {});

/// The error of a statement that failed on `handle`; `server` names the server in a text about a lost connection.
ProviderError statementError(MYSQL* handle, const std::string& server);

}  // namespace qvn::data::mysql
