// Which engine's SQL a connection takes, for the few statements that no common form exists for.
#pragma once

#include "qvn/data/connection.h"

namespace qvn::data {

enum class EngineFamily { Sqlite, MySql, Firebird, SqlServer, Other };

/// The engine behind an open connection, whatever driver it is reached through; MySql is MariaDB as well. Runs no
/// statement. Throws ProviderError kObjectClosed.
EngineFamily engineFamily(Connection& connection);

}  // namespace qvn::data
