#include "qvn/data/drivers/odbc/engine_kind.h"

#include <algorithm>
#include <array>
#include <string>

#include "qvn/base/letter_case.h"

namespace qvn::data::odbc {
namespace {

struct NameRule {
  std::string_view word;
  EngineKind kind;
};

constexpr auto kNameRules = std::to_array<NameRule>({
    {"SQL SERVER", EngineKind::SqlServer},
    {"TDS", EngineKind::SqlServer},
    {"MARIADB", EngineKind::MySql},
    {"MYSQL", EngineKind::MySql},
    {"SQLITE", EngineKind::Sqlite},
    {"MDB", EngineKind::Access},
    {"ACCESS", EngineKind::Access},
});

}  // namespace

EngineKind engineKind(std::string_view engineName) {
  const std::string name = upperCase(engineName);
  const auto* rule =
      std::ranges::find_if(kNameRules, [&](const NameRule& row) { return name.find(row.word) != std::string::npos; });
  return rule == kNameRules.end() ? EngineKind::Other : rule->kind;
}

}  // namespace qvn::data::odbc
