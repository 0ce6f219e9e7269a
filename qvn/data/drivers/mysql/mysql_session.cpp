#include "qvn/data/drivers/mysql/mysql_session.h"

#include <algorithm>
#include <random>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/mysql/mysql_cursor.h"
#include "qvn/data/drivers/mysql/mysql_error.h"
#include "qvn/data/drivers/mysql/mysql_literal.h"

namespace qvn::data::mysql {
namespace {

// `reported` is what the server said when it was told to end the statement; nothing when it sent rows all the same.
ProviderError timeoutError(std::chrono::seconds timeout, std::optional<ErrorItem> reported) {
  ErrorItem item;
  item.sqlState = "HYT00";
  item.source = kSource;
  if (reported) item = *std::move(reported);
  item.number = provider_number::kTimeout;
  const std::string late = "La instrucción no terminó en " + std::to_string(timeout.count()) + " s y se canceló";
  item.description = item.description.empty() ? late : late + ". " + item.description;
  return ProviderError({std::move(item)});
}

bool isRollback(std::string_view sql) { return equalIgnoringCase(utf8::trimBlanks(sql), "ROLLBACK"); }

}  // namespace

MysqlSession::MysqlSession(const ConnectRequest& request)
    : link_(serverList(request), pseudoRandom(std::random_device{}())), timeout_(request.commandTimeout) {
  limitLockWait();
}

void MysqlSession::setCommandTimeout(std::chrono::seconds timeout) {
  if (MysqlCursor* const reader = link_.reader()) reader->releaseLink();
  timeout_ = timeout;
  limitLockWait();
}

void MysqlSession::limitLockWait() {
  if (timeout_.count() == 0) return;
  const std::int64_t limit = std::max<std::int64_t>(1, timeout_.count() * 4 / 5);
  const std::string sql =
      "SET SESSION innodb_lock_wait_timeout = LEAST(@@GLOBAL.innodb_lock_wait_timeout, " + std::to_string(limit) + ")";
  AnswerWait wait(link_, timeout_);
  // A server without that engine refuses it, and has no such waits.
  sendAside(sql, wait);
}

StatementResult MysqlSession::execute(std::string_view sql) {
  if (MysqlCursor* const reader = link_.reader()) {
    reader->releaseLink();
  } else {
    reopenIfLost(sql);
  }
  if (auto lost = link_.takeLostTransaction(); lost && !isRollback(sql)) throw *std::move(lost);
  AnswerWait wait(link_, timeout_);
  StatementResult result;
  std::optional<ErrorItem> reported;
  try {
    result = run(sql, wait);
    // Before anything else is asked: a BEGIN that was answered late counts, also when the connection is lost right
    // after.
    link_.rememberTransaction();
    if (!wait.timedOut()) return result;
  } catch (const ProviderError& error) {
    if (!wait.timedOut() || wait.wasBrokenOff()) throw;
    reported = error.errors().front();
  }
  const bool isInForce = !reported && result.cursor == nullptr;
  result.cursor.reset();
  // The order to end the statement may have crossed its answer. A server that applies it to the statement that comes
  // next finds this one.
  sendAside("DO 0", wait);
  if (isInForce) return result;
  throw timeoutError(timeout_, std::move(reported));
}

void MysqlSession::reopenIfLost(std::string_view sql) {
  if (!link_.reconnects() || !link_.isLost()) return;
  if (link_.hadTransaction() && !isRollback(sql)) {
    // A member of a cluster that answered 1047 may take statements again: the rest of the transaction must not get
    // there.
    link_.breakOff();
    return;
  }
  link_.connectAgain();
  limitLockWait();
}

StatementResult MysqlSession::run(std::string_view sql, AnswerWait& wait) {
  if (!send(sql, wait)) throw link_.lastError();
  StatementResult result;
  if (ResultHandle rows{mysql_use_result(link_.handle())}) {
    result.cursor = std::make_unique<MysqlCursor>(link_, std::move(rows), wait);
    return result;
  }
  if (mysql_field_count(link_.handle()) != 0) throw link_.lastError();
  result.affectedRows = static_cast<std::int64_t>(mysql_affected_rows(link_.handle()));
  result.insertedNumber = static_cast<std::int64_t>(mysql_insert_id(link_.handle()));
  if (!link_.dropFurtherResults()) throw link_.lastError();
  return result;
}

bool MysqlSession::send(std::string_view sql, AnswerWait& wait) {
  return wait.run<int>(
             [&](int* failed) { return mysql_real_query_start(failed, link_.handle(), sql.data(), sql.size()); },
             [&](int* failed, int events) { return mysql_real_query_cont(failed, link_.handle(), events); }) == 0;
}

void MysqlSession::sendAside(std::string_view sql, AnswerWait& wait) {
  if (send(sql, wait)) return;
  const ProviderError failure = link_.lastError();
  if (link_.hadTransaction()) link_.keepLostTransaction(failure);
}

std::string MysqlSession::engineVersion() {
  const std::string version = mysql_get_server_info(link_.handle());
  return (version.find("MariaDB") == std::string::npos ? "MySQL " : "MariaDB ") + version.substr(0, version.find('-'));
}

std::string MysqlSession::literal(const Variant& value, FieldType type) const {
  return mysql::literal(link_.handle(), value, type);
}

}  // namespace qvn::data::mysql
