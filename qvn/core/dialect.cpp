#include "qvn/core/dialect.h"

#include <array>

#include "qvn/text/search.h"

namespace qvn::core {

bool hasMarker(const data::Connection& connection, std::string_view marker) {
  return text::findIgnoringCase(marker, connection.ConnectionString()) != std::string_view::npos;
}

std::string_view dialectName(const data::Connection& connection) {
  struct Dialect {
    std::string_view marker;
    std::string_view name;
  };
  // In the order in which FechaSQL looks for them.
  static constexpr auto kDialects = std::to_array<Dialect>({
      {marker::kSqlServer, "SQL Server"},
      {marker::kMySql, "MySQL"},
      {marker::kInterBase, "InterBase"},
      {marker::kAccess, "Access"},
  });
  for (const Dialect& dialect : kDialects) {
    if (hasMarker(connection, dialect.marker)) return dialect.name;
  }
  return "MySQL";
}

}  // namespace qvn::core
