// The SQL dialect of a connection, told by the marker words of its connection string. Nothing is kept: the string is
// read at every question, in the order that each operation needs.
#pragma once

#include <string_view>

#include "qvn/data/connection.h"

namespace qvn::core {

namespace marker {
inline constexpr std::string_view kMySql = "MySQL";
inline constexpr std::string_view kSqlServer = "SQLNCLI";
inline constexpr std::string_view kInterBase = "IbOleDb";
inline constexpr std::string_view kAccess = "Jet";
}  // namespace marker

/// True when the marker word stands anywhere in the connection string, in any case.
bool hasMarker(const data::Connection& connection, std::string_view marker);

/// The dialect that dates are written in, for people: "SQL Server", "MySQL", "InterBase" or "Access"; "MySQL" too when
/// no marker word is there.
std::string_view dialectName(const data::Connection& connection);

}  // namespace qvn::core
