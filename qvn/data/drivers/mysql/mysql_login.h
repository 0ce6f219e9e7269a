// Logging in to one server.
#pragma once

#include <chrono>
#include <string>

#include "qvn/data/drivers/mysql/handles.h"
#include "qvn/data/drivers/mysql/server_address.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {

/// A handle without a connection. Throws std::bad_alloc.
ConnectionHandle newHandle();

/// Connects `handle` and logs in, with `database` as the current one ("" for none); each step on the way takes
/// `timeout` at most, zero waits for ever. False when the handle reports an error.
[[nodiscard]] bool logIn(MYSQL* handle, const ServerAddress& address, const std::string& database,
                         std::chrono::seconds timeout) noexcept;

/// What logIn met: kLoginRefused where the server refused this user, else kUnspecified.
ProviderError loginError(MYSQL* handle, const ServerAddress& address);

}  // namespace qvn::data::mysql
