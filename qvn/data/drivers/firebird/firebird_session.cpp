#include "qvn/data/drivers/firebird/firebird_session.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/data/drivers/firebird/firebird_error.h"
#include "qvn/data/drivers/firebird/firebird_literal.h"

namespace qvn::data::firebird {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds kSecond{1};

// A wait for a lock must end before the watchdog ends it, or the engine does not tell that it was one. The engine
// counts by the seconds of the clock: it waits up to one second less.
seconds lockTimeout(seconds timeout) {
  return timeout == seconds::zero() ? timeout : std::max(kSecond, timeout - kSecond);
}

seconds statementLimit(seconds timeout) {
  return timeout == seconds::zero() ? timeout : lockTimeout(timeout) + kSecond;
}

// The engine has the same codes for a lock that was waited for in vain and for a conflict that it found at once.
bool isLockTimeout(const ProviderError& error, steady_clock::duration waited, seconds timeout) {
  return error.errors().front().isLockConflict && timeout > seconds::zero() && waited >= lockTimeout(timeout) - kSecond;
}

ProviderError timeoutError(const ProviderError& reported, seconds timeout) {
  ErrorItem item = reported.errors().front();
  item.number = provider_number::kTimeout;
  item.sqlState = "HYT00";
  item.description.insert(
      0, item.isLockConflict
             ? "Otra sesión tiene ocupado el registro o la tabla y no los soltó a tiempo; intente de nuevo. "
             : "La sentencia no terminó en " + std::to_string(timeout.count()) + " s y se canceló. ");
  return ProviderError({std::move(item)});
}

// A transaction that the host opens without a word on waiting waits no longer than its statements may take.
std::string withLockTimeout(std::string_view sql, seconds timeout) {
  static constexpr std::string_view kOpening = "SET TRANSACTION";
  const std::string upper = upperCase(sql);
  std::string text(sql);
  if (timeout > seconds::zero() && upper.starts_with(kOpening) && upper.find("WAIT") == std::string::npos &&
      upper.find("LOCK") == std::string::npos) {
    text.insert(kOpening.size(), " LOCK TIMEOUT " + std::to_string(timeout.count()));
  }
  return text;
}

// COMMIT RETAIN and ROLLBACK RETAIN go on with the transaction.
bool isRetaining(std::string_view sql) { return upperCase(sql).find("RETAIN") != std::string::npos; }

}  // namespace

FirebirdSession::FirebirdSession(const ConnectRequest& request) : link_(request), timeout_(request.commandTimeout) {}

StatementResult FirebirdSession::execute(std::string_view sql) {
  link_.requireConnected();
  if (sql.find('\0') != std::string_view::npos) {
    throw ownError(provider_number::kStatementRefused, "42000",
                   "La sentencia lleva un carácter nulo, donde el motor dejaría de leer");
  }
  std::optional<ProviderError> failure;
  bool wasBrokenOff = false;
  StatementResult result;
  const auto start = steady_clock::now();
  {
    const Watchdog::Watch watch(watchdog_, statementLimit(timeout_));
    try {
      result = run(sql);
    } catch (const ProviderError& error) {
      failure = error;
    }
    wasBrokenOff = watch.wasBrokenOff();
  }
  const bool wasCancelled = link_.takeCancelled() && !wasBrokenOff;
  if (wasCancelled) absorbCancel();
  if (!failure) return result;
  if (wasCancelled || isLockTimeout(*failure, steady_clock::now() - start, timeout_)) {
    throw timeoutError(*failure, timeout_);
  }
  throw *std::move(failure);
}

StatementResult FirebirdSession::run(std::string_view sql) {
  StatementText text = takeLongLiterals(sql);
  return transaction_ ? runInside(std::move(text)) : runAlone(std::move(text));
}

StatementResult FirebirdSession::runAlone(StatementText text) {
  const auto transaction = std::make_shared<Transaction>(link_, lockTimeout(timeout_));
  StatementResult result;
  {
    const std::string_view sql = text.original;
    PreparedStatement statement(link_, transaction, std::move(text));
    switch (statement.type()) {
      case isc_info_sql_stmt_start_trans:
        openTransaction(sql);
        return result;
      case isc_info_sql_stmt_commit:
      case isc_info_sql_stmt_rollback:
        return result;  // there is nothing to end
      default:
        result = statement.run();
        break;
    }
  }
  if (transaction.use_count() > 1) {
    transaction->leaveToCursors();
  } else {
    transaction->commit();
  }
  return result;
}

StatementResult FirebirdSession::runInside(StatementText text) {
  const std::string_view sql = text.original;
  unsigned type = 0;
  {
    PreparedStatement statement(link_, transaction_, std::move(text));
    type = statement.type();
    switch (type) {
      case isc_info_sql_stmt_start_trans:
        throw ownError(provider_number::kStatementRefused, "25001",
                       "Ya hay una transacción abierta; ciérrela con COMMIT o ROLLBACK antes de abrir otra");
      case isc_info_sql_stmt_commit:
      case isc_info_sql_stmt_rollback:
        break;
      default:
        return statement.run();
    }
  }
  endTransaction(type, sql);
  return {};
}

void FirebirdSession::openTransaction(std::string_view sql) {
  const std::string text = withLockTimeout(sql, lockTimeout(timeout_));
  TransactionHandle opened(link_.attachment().execute(link_.status(), nullptr, static_cast<unsigned>(text.size()),
                                                      text.data(), SQL_DIALECT_V6, nullptr, nullptr, nullptr, nullptr));
  link_.check();
  transaction_ = std::make_shared<Transaction>(link_, std::move(opened));
}

void FirebirdSession::endTransaction(unsigned type, std::string_view sql) {
  const bool isCommit = type == isc_info_sql_stmt_commit;
  const bool hasCursors = transaction_.use_count() > 1;
  if (isRetaining(sql) || hasCursors) {
    if (isCommit) {
      transaction_->commitRetaining();
    } else {
      transaction_->rollbackRetaining();
    }
    if (isRetaining(sql)) return;
    transaction_->leaveToCursors();
  } else if (isCommit) {
    transaction_->commit();
  }
  transaction_.reset();
}

void FirebirdSession::absorbCancel() noexcept {
  Status ignored;
  const TransactionHandle transaction(link_.attachment().startTransaction(ignored.get(), 0, nullptr));
  if (ignored.hasFailed()) return;
  static constexpr std::string_view kHarmless = "SELECT 1 FROM RDB$DATABASE";
  const ResultSetHandle rows(link_.attachment().openCursor(ignored.get(), transaction.get(), kHarmless.size(),
                                                           kHarmless.data(), SQL_DIALECT_V6, nullptr, nullptr, nullptr,
                                                           nullptr, 0));
}

std::string FirebirdSession::engineVersion() {
  link_.requireConnected();
  const auto rows = query(link_, "SELECT rdb$get_context('SYSTEM', 'ENGINE_VERSION') FROM RDB$DATABASE");
  Variant version;
  rows->next();
  rows->read(0, version);
  return "Firebird " + version.toText();
}

std::string FirebirdSession::literal(const Variant& value, FieldType type) const {
  return firebird::literal(value, type);
}

}  // namespace qvn::data::firebird
