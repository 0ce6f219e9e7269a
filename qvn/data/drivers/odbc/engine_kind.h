// The engines behind ODBC drivers whose ways this driver knows.
#pragma once

#include <string_view>

namespace qvn::data::odbc {

enum class EngineKind { SqlServer, MySql, Sqlite, Access, Other };

/// By the name that an ODBC driver gives its engine, such as "Microsoft SQL Server" or "MariaDB".
EngineKind engineKind(std::string_view engineName);

}  // namespace qvn::data::odbc
