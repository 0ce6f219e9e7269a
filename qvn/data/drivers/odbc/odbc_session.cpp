#include "qvn/data/drivers/odbc/odbc_session.h"

#include <algorithm>
#include <limits>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/cluster_question.h"
#include "qvn/data/drivers/odbc/odbc_cursor.h"
#include "qvn/data/drivers/odbc/odbc_error.h"
#include "qvn/data/drivers/odbc/odbc_literal.h"
#include "qvn/data/drivers/odbc/statement_text.h"

namespace qvn::data::odbc {
namespace {

constexpr std::string_view kDoing = "No se pudo ejecutar la sentencia";

ProviderError timeoutError(std::chrono::seconds timeout, const ProviderError& reported) {
  std::vector<ErrorItem> items = reported.errors();
  items.front().number = provider_number::kTimeout;
  items.front().sqlState = "HYT00";
  items.front().description.insert(
      0, "La sentencia no terminó en " + std::to_string(timeout.count()) + " s y se canceló. ");
  return ProviderError(std::move(items));
}

}  // namespace

OdbcSession::OdbcSession(const ConnectRequest& request)
    : link_(odbcTarget(request), request.connectTimeout), timeout_(request.commandTimeout) {
  // A server that knows no clusters refuses the question.
  if (link_.engine() == EngineKind::MySql) isClustered_ = askNumber(std::string(kClusterQuestion)) == 1;
  limitLockWait();
}

void OdbcSession::setCommandTimeout(std::chrono::seconds timeout) {
  if (OdbcCursor* const reader = link_.reader()) reader->releaseLink();
  timeout_ = timeout;
  limitLockWait();
}

std::chrono::seconds OdbcSession::lockWait() const {
  if (timeout_.count() == 0) return std::chrono::hours{24};
  return std::max(std::chrono::seconds{1}, timeout_ * 4 / 5);
}

void OdbcSession::limitLockWait() {
  const std::string seconds = std::to_string(lockWait().count());
  std::string sql;
  if (link_.engine() == EngineKind::SqlServer) {
    sql = "SET LOCK_TIMEOUT " + seconds + "000";
  } else if (link_.engine() == EngineKind::MySql) {
    sql = "SET SESSION innodb_lock_wait_timeout = LEAST(@@GLOBAL.innodb_lock_wait_timeout, " + seconds + ")";
  } else {
    return;
  }
  // An engine that refuses it keeps its own limit.
  static_cast<void>(SQLExecDirect(link_.newStatement().get(), reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS));
}

void OdbcSession::requireExecutable(std::string_view sql) const {
  link_.requireAlive();
  if (sql.find('\0') != std::string_view::npos) {
    throw ownError(provider_number::kStatementRefused, "42000",
                   "La sentencia lleva un carácter nulo, donde el motor dejaría de leer");
  }
  if (sql.size() > static_cast<std::size_t>(std::numeric_limits<SQLINTEGER>::max())) {
    throw ownError(provider_number::kStatementRefused, "54000", "La sentencia es demasiado larga");
  }
  if (link_.engine() == EngineKind::Access && !equalIgnoringCase(firstWord(sql), "SELECT")) {
    throw ownError(provider_number::kNotSupported, "0A000",
                   "Los archivos de Access sólo se pueden leer; la sentencia no se ejecutó");
  }
}

std::string_view OdbcSession::executable(std::string_view sql) const {
  requireExecutable(sql);
  if (link_.engine() != EngineKind::Sqlite) return sql;
  // The driver would run some second statements and drop others without a word, and it refuses a comment behind ";".
  const SplitStatement split = splitStatement(sql);
  if (split.hasSecond) {
    throw ownError(provider_number::kStatementRefused, "42000",
                   "El texto lleva más de una sentencia; ejecútelas una por una");
  }
  return split.first;
}

StatementResult OdbcSession::execute(std::string_view sql) {
  if (OdbcCursor* const reader = link_.reader()) reader->releaseLink();
  sql = executable(sql);
  // Outlives the watch, so that nothing cancels a handle that is gone.
  const StatementHandle statement = link_.newStatement();
  running_ = statement.get();
  limitSilence(statement.get());
  const Watchdog::Watch watch(watchdog_, timeout_);
  try {
    return runPatiently(statement, sql);
  } catch (const ProviderError& error) {
    if (watch.wasBrokenOff()) throw link_.lostError(error);
    if (!watch.wasCancelled()) throw;
    absorbCancel();
    throw timeoutError(timeout_, error);
  }
}

void OdbcSession::limitSilence(SQLHSTMT statement) const {
  if (link_.engine() != EngineKind::SqlServer || timeout_.count() == 0) return;
  // Behind the watchdog, which then knows that the server stayed silent.
  const std::chrono::seconds limit = timeout_ + Watchdog::kGrace + std::chrono::seconds{1};
  SQLSetStmtAttr(statement, SQL_ATTR_QUERY_TIMEOUT, attributeValue(static_cast<SQLULEN>(limit.count())), 0);
}

StatementResult OdbcSession::runPatiently(const StatementHandle& statement, std::string_view sql) {
  const auto deadline = std::chrono::steady_clock::now() + lockWait();
  while (true) {
    try {
      return run(statement, sql);
    } catch (const ProviderError& error) {
      const bool waits = link_.engine() == EngineKind::Sqlite && error.errors().front().isLockConflict;
      if (!waits || std::chrono::steady_clock::now() >= deadline) throw;
    }
  }
}

void OdbcSession::absorbCancel() {
  if (link_.engine() != EngineKind::MySql) return;
  std::string nothing = "DO 0";
  static_cast<void>(SQLExecDirect(link_.newStatement().get(), reinterpret_cast<SQLCHAR*>(nothing.data()), SQL_NTS));
}

StatementResult OdbcSession::run(const StatementHandle& statement, std::string_view sql) {
  std::string text(sql);
  SQLRETURN code =
      SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size()));
  StatementResult result;
  bool isCounted = false;
  while (code != SQL_NO_DATA) {
    if (!SQL_SUCCEEDED(code)) throw link_.statementError(statement.get(), kDoing);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement.get(), &columns);
    if (columns > 0) {
      result.cursor = std::make_unique<OdbcCursor>(link_, statement, sql);
      return result;
    }
    SQLLEN rows = -1;
    SQLRowCount(statement.get(), &rows);
    if (!isCounted && rows >= 0) {
      result.affectedRows = rows;
      isCounted = true;
    }
    code = SQLMoreResults(statement.get());
  }
  SQLFreeStmt(statement.get(), SQL_CLOSE);
  if (equalIgnoringCase(firstWord(sql), "INSERT")) result.insertedNumber = lastNumber();
  return result;
}

std::int64_t OdbcSession::lastNumber() {
  const bool isMySql = link_.engine() == EngineKind::MySql;
  if (!isMySql && link_.engine() != EngineKind::Sqlite) return 0;
  return askNumber(isMySql ? "SELECT LAST_INSERT_ID()" : "SELECT last_insert_rowid()").value_or(0);
}

std::optional<std::int64_t> OdbcSession::askNumber(std::string sql) {
  const StatementHandle statement = link_.newStatement();
  SQLBIGINT number = 0;
  SQLLEN size = 0;
  const bool isRead = SQL_SUCCEEDED(SQLExecDirect(statement.get(), reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS)) &&
                      SQL_SUCCEEDED(SQLFetch(statement.get())) &&
                      SQL_SUCCEEDED(SQLGetData(statement.get(), 1, SQL_C_SBIGINT, &number, sizeof number, &size));
  if (!isRead || size == SQL_NULL_DATA) return std::nullopt;
  return number;
}

std::string OdbcSession::numberClause(const std::string& /*column*/) const {
  return link_.engine() == EngineKind::SqlServer ? "; SELECT SCOPE_IDENTITY()" : "";
}

std::string OdbcSession::engineVersion() {
  return utf8::sanitize(link_.info(SQL_DBMS_NAME) + " " + link_.info(SQL_DBMS_VER));
}

std::string OdbcSession::literal(const Variant& value, FieldType type) const {
  return odbc::literal(link_.engine(), value, type);
}

}  // namespace qvn::data::odbc
