#include "qvn/data/engine_family.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace qvn::data {
namespace {

struct Naming {
  std::string_view words;  // in the driver's name, or in the product's name for a driver that serves many
  EngineFamily family;
};

constexpr auto kNamings = std::to_array<Naming>({
    {"SQLite", EngineFamily::Sqlite},
    {"MySQL", EngineFamily::MySql},
    {"MariaDB", EngineFamily::MySql},
    {"Firebird", EngineFamily::Firebird},
    {"SQL Server", EngineFamily::SqlServer},
});

}  // namespace

EngineFamily engineFamily(Connection& connection) {
  const std::string name = connection.DriverName() == "ODBC" || connection.State() == ObjectState::Closed
                               ? connection.EngineVersion()
                               : connection.DriverName();
  const auto* naming =
      std::ranges::find_if(kNamings, [&](const Naming& row) { return name.find(row.words) != std::string::npos; });
  return naming == kNamings.end() ? EngineFamily::Other : naming->family;
}

}  // namespace qvn::data
