#include "qvn/data/drivers/firebird/firebird_error.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "qvn/base/utf8.h"

namespace qvn::data::firebird {
namespace {

namespace number = provider_number;

struct CodeRule {
  ISC_STATUS code;
  std::int32_t number;
  std::string_view sqlState;  // empty: the engine's own
  bool isLockConflict;
};

// Codes whose SQLSTATE says too little for numberForSqlState. The first rule that matches any code of a failure counts:
// a lost connection explains all the rest. Source: the engine's list of codes (ibase.h).
constexpr auto kCodeRules = std::to_array<CodeRule>({
    {isc_att_shutdown, number::kUnspecified, "08003", false},
    {isc_shutdown, number::kUnspecified, "08003", false},
    {isc_bad_db_handle, number::kUnspecified, "08003", false},
    {isc_network_error, number::kUnspecified, "08006", false},
    {isc_net_read_err, number::kUnspecified, "08006", false},
    {isc_net_write_err, number::kUnspecified, "08006", false},
    {isc_lost_db_connection, number::kUnspecified, "08006", false},
    {isc_cancelled, number::kTimeout, "HYT00", false},
    {isc_lock_timeout, number::kTimeout, "", true},
    {isc_deadlock, number::kStatementRefused, "", true},
    {isc_update_conflict, number::kStatementRefused, "", true},
    {isc_lock_conflict, number::kStatementRefused, "", true},
    {isc_dsql_relation_err, number::kNoSuchTable, "42S02", false},
    {isc_dsql_table_not_found, number::kNoSuchTable, "42S02", false},
});

struct Advice {
  ISC_STATUS code;
  std::string_view text;
};

// What to do when a database was not opened; the first code that matches counts. Source: as above.
constexpr auto kConnectAdvice = std::to_array<Advice>({
    {isc_login, "; revise el usuario y la contraseña"},
    {isc_already_opened,
     "; otro programa la tiene abierta: conéctese por un servidor, o ponga ServerMode = Classic en el firebird.conf de "
     "todos"},
    {isc_sys_request, "; ponga en la variable de entorno FIREBIRD_LOCK una carpeta en la que pueda escribir"},
    {isc_network_error, "; revise que el servidor esté en marcha y que se llegue a él"},
    {isc_io_error, "; revise la ruta y los permisos del archivo"},
});

constexpr std::string_view kConnectionLostClass = "08";

bool hasCode(const ISC_STATUS* item, ISC_STATUS wanted) {
  while (*item != isc_arg_end) {
    if (*item == isc_arg_gds && item[1] == wanted) return true;
    item += *item == isc_arg_cstring ? 3 : 2;
  }
  return false;
}

const CodeRule* ruleFor(const Status& status) {
  const auto* rule =
      std::ranges::find_if(kCodeRules, [&](const CodeRule& known) { return hasCode(status.codes(), known.code); });
  return rule == kCodeRules.end() ? nullptr : rule;
}

std::string engineWords(const Status& status) {
  std::array<char, 4096> text{};
  Status shown;
  shown.get()->setErrors(status.codes());
  const unsigned length = clientLibrary().getUtilInterface()->formatStatus(text.data(), text.size(), shown.get());
  std::string words = utf8::sanitize({text.data(), length});
  std::ranges::replace(words, '\n', ' ');
  return words;
}

// "lead-in: engine's words", with the number of the rule for its codes or of its SQL state.
ErrorItem describe(const Status& status, const std::string& leadIn) {
  std::array<char, 6> state{};
  fb_sqlstate(state.data(), status.codes());
  ErrorItem item;
  item.sqlState = state.data();
  item.nativeError = isc_sqlcode(status.codes());
  item.source = kSource;
  item.description = leadIn + ": " + engineWords(status);
  if (const CodeRule* const rule = ruleFor(status)) {
    item.number = rule->number;
    item.isLockConflict = rule->isLockConflict;
    if (!rule->sqlState.empty()) item.sqlState = rule->sqlState;
  } else {
    item.number = numberForSqlState(item.sqlState);
  }
  return item;
}

}  // namespace

bool isConnectionLost(const Status& status) {
  const CodeRule* const rule = ruleFor(status);
  return rule != nullptr && rule->sqlState.starts_with(kConnectionLostClass);
}

bool isFileMissing(const Status& status) { return hasCode(status.codes(), isc_io_open_err); }

ProviderError statementError(const Status& status, const std::string& database) {
  if (!isConnectionLost(status)) return ProviderError({describe(status, "Firebird no ejecutó la sentencia")});
  ErrorItem item = describe(status, "Se perdió la conexión con la base Firebird " + database);
  item.description.append("; vuelva a conectarse");
  return ProviderError({std::move(item)});
}

ProviderError connectError(const Status& status, const std::string& database) {
  ErrorItem item = describe(status, "No se pudo abrir la base Firebird " + database);
  if (item.number != number::kLoginRefused) item.number = number::kUnspecified;
  const auto* advice =
      std::ranges::find_if(kConnectAdvice, [&](const Advice& known) { return hasCode(status.codes(), known.code); });
  if (advice != kConnectAdvice.end()) item.description.append(advice->text);
  return ProviderError({std::move(item)});
}

ProviderError ownError(std::int32_t platformNumber, std::string_view sqlState, const std::string& text) {
  ErrorItem item;
  item.number = platformNumber;
  item.sqlState = sqlState;
  item.description = text;
  item.source = kSource;
  return ProviderError({std::move(item)});
}

}  // namespace qvn::data::firebird
