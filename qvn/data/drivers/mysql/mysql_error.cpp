#include "qvn/data/drivers/mysql/mysql_error.h"

#include <errmsg.h>
#include <mysqld_error.h>

#include <algorithm>
#include <array>

#include "qvn/base/utf8.h"

namespace qvn::data::mysql {
namespace {

namespace number = provider_number;

struct CodeRule {
  unsigned code;
  std::int32_t platformNumber;
};

// Codes whose SQLSTATE says too little (HY000, 70100) for numberForSqlState. A deadlock (1213) is left to that
// function: it must not pass for a lost connection. Source: errmsg.h (2000 to 2999 and from 5000) and mysqld_error.h of
// the client library; the numbers without a name are MySQL's own, from its server error reference.
constexpr auto kStatementRules = std::to_array<CodeRule>({
    {ER_CHECKREAD, number::kRowChanged},
    {ER_LOCK_WAIT_TIMEOUT, number::kTimeout},
    {ER_CONNECTION_KILLED, number::kUnspecified},
    {ER_STATEMENT_TIMEOUT, number::kTimeout},
    {CR_SOCKET_CREATE_ERROR, number::kUnspecified},
    {CR_CONNECTION_ERROR, number::kUnspecified},
    {CR_CONN_HOST_ERROR, number::kUnspecified},
    {CR_IPSOCK_ERROR, number::kUnspecified},
    {CR_UNKNOWN_HOST, number::kUnspecified},
    {CR_SERVER_GONE_ERROR, number::kUnspecified},
    {CR_SERVER_HANDSHAKE_ERR, number::kUnspecified},
    {CR_SERVER_LOST, number::kUnspecified},
    {CR_SSL_CONNECTION_ERROR, number::kUnspecified},
    {CR_MALFORMED_PACKET, number::kUnspecified},
    {CR_SERVER_LOST_EXTENDED, number::kUnspecified},
    {3024, number::kTimeout},      // ER_QUERY_TIMEOUT
    {4031, number::kUnspecified},  // ER_CLIENT_INTERACTION_TIMEOUT: the server ended an idle session
    {CR_ERR_NET_READ, number::kUnspecified},
    {CR_ERR_NET_WRITE, number::kUnspecified},
});
static_assert(std::ranges::is_sorted(kStatementRules, std::less_equal{}, &CodeRule::code));

// Answers to a log-in that the server understood and refused. Source: as above.
constexpr auto kLoginCodes = std::to_array<unsigned>({
    ER_DBACCESS_DENIED_ERROR,
    ER_ACCESS_DENIED_ERROR,
    ER_HOST_NOT_PRIVILEGED,
    ER_ACCESS_DENIED_NO_PASSWORD_ERROR,
    ER_MUST_CHANGE_PASSWORD_LOGIN,
    3118,  // ER_ACCOUNT_HAS_BEEN_LOCKED
    ER_ACCOUNT_HAS_BEEN_LOCKED,
});
static_assert(std::ranges::is_sorted(kLoginCodes));

}  // namespace

std::int32_t numberForStatement(unsigned code, const std::string& sqlState) {
  const auto* rule = std::ranges::lower_bound(kStatementRules, code, {}, &CodeRule::code);
  if (rule != kStatementRules.end() && rule->code == code) return rule->platformNumber;
  return numberForSqlState(sqlState);
}

std::int32_t numberForLogin(unsigned code) {
  return std::ranges::binary_search(kLoginCodes, code) ? number::kLoginRefused : number::kUnspecified;
}

ErrorItem reportedError(MYSQL* handle, std::int32_t platformNumber, const std::string& leadIn,
                        std::string_view advice) {
  ErrorItem item;
  item.number = platformNumber;
  item.description = leadIn + ": " + utf8::sanitize(mysql_error(handle));
  if (!advice.empty()) item.description.append("; ").append(advice);
  item.nativeError = static_cast<std::int32_t>(mysql_errno(handle));
  item.isLockConflict = item.nativeError == ER_LOCK_WAIT_TIMEOUT || item.nativeError == ER_LOCK_DEADLOCK;
  item.sqlState = mysql_sqlstate(handle);
  item.source = kSource;
  return item;
}

ProviderError statementError(MYSQL* handle, const std::string& server) {
  const std::int32_t translated = numberForStatement(mysql_errno(handle), mysql_sqlstate(handle));
  if (translated != number::kUnspecified) {
    return ProviderError({reportedError(handle, translated, "El servidor MySQL no ejecutó la instrucción")});
  }
  ErrorItem item =
      reportedError(handle, translated, "Se perdió la conexión con el servidor MySQL " + server, "vuelva a conectarse");
  item.isLostConnection = true;
  return ProviderError({std::move(item)});
}

}  // namespace qvn::data::mysql
