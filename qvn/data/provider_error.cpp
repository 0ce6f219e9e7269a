#include "qvn/data/provider_error.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

namespace qvn::data {
namespace {

struct StateRule {
  std::string_view prefix;
  std::int32_t number;
};

// The longest prefix comes first. Source: the classes of ISO/IEC 9075-2; 42S02, HYT and 08 as ODBC uses them.
constexpr auto kStateRules = std::to_array<StateRule>({
    {"42S02", provider_number::kNoSuchTable},
    {"28000", provider_number::kLoginRefused},
    {"HYT", provider_number::kTimeout},
    {"08", provider_number::kUnspecified},
    {"23", provider_number::kIntegrityViolation},
});
static_assert(std::ranges::is_sorted(kStateRules, std::greater{}, [](const StateRule& r) { return r.prefix.size(); }));

}  // namespace

std::int32_t numberForSqlState(const std::string& sqlState) {
  const auto* rule =
      std::ranges::find_if(kStateRules, [&](const StateRule& row) { return sqlState.starts_with(row.prefix); });
  return rule == kStateRules.end() ? provider_number::kStatementRefused : rule->number;
}

}  // namespace qvn::data
