#include "qvn/data/drivers/mysql/mysql_link.h"

#include <mysqld_error.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "qvn/data/drivers/cluster_question.h"
#include "qvn/data/drivers/mysql/answer_wait.h"
#include "qvn/data/drivers/mysql/hang_up.h"
#include "qvn/data/drivers/mysql/keep_alive.h"
#include "qvn/data/drivers/mysql/mysql_error.h"
#include "qvn/data/drivers/mysql/mysql_login.h"

namespace qvn::data::mysql {
namespace {

// States of this class say that the engine has taken the transaction back. Source: ISO/IEC 9075-2.
constexpr std::string_view kRollbackClass = "40";
// Longest wait for each step of the second connection that cancels a statement.
constexpr std::chrono::seconds kCancelTimeout{5};
// Stack of the library's resumable calls, over which a statement waits without blocking in the library.
constexpr std::size_t kResumableStackBytes = std::size_t{256} * 1024;

// Cut off from the others, a member still answers a SELECT without tables; to one with tables it says 1047.
constexpr std::string_view kReadyQuestion = "SHOW GLOBAL STATUS LIKE 'wsrep_ready'";

// A user who is refused by one server is what people can do something about, so it goes before servers that are down.
ProviderError noServer(const std::vector<ServerAddress>& tried, std::vector<ErrorItem> failures) {
  std::stable_partition(failures.begin(), failures.end(),
                        [](const ErrorItem& item) { return item.number == provider_number::kLoginRefused; });
  if (tried.size() > 1) {
    std::string all = "Ninguno de los " + std::to_string(tried.size()) + " servidores aceptó la conexión";
    for (const ErrorItem& item : failures) all += ". " + item.description;
    failures.front().description = std::move(all);
  }
  return ProviderError(std::move(failures));
}

}  // namespace

MysqlLink::MysqlLink(ServerList list, RandomPtr random) : list_(std::move(list)), random_(std::move(random)) {
  connectAgain();
}

void MysqlLink::connectAgain() {
  const std::vector<ServerAddress> servers = tryOrder(list_, *random_);
  std::vector<ErrorItem> failures;
  for (const ServerAddress& server : servers) {
    try {
      connectTo(server);
      return;
    } catch (const ProviderError& error) {
      failures.insert(failures.end(), error.errors().begin(), error.errors().end());
    }
  }
  throw noServer(servers, std::move(failures));
}

void MysqlLink::connectTo(const ServerAddress& address) {
  isLost_ = true;
  address_ = address;
  handle_ = newHandle();
  mysql_optionsv(handle(), MYSQL_OPT_NONBLOCK, &kResumableStackBytes);
  if (!logIn(handle(), address_, address_.database, list_.connectTimeout)) throw loginError(handle(), address_);
  keepAlive(static_cast<int>(mysql_get_socket(handle())));
  learnCluster();
  isLost_ = false;
  hadTransaction_ = false;
}

void MysqlLink::learnCluster() {
  isClustered_ = ask(kClusterQuestion, 0) == "1";
  if (!isClustered_ || ask(kReadyQuestion, 1) != "OFF") return;
  ErrorItem item;
  item.number = provider_number::kUnspecified;
  item.description =
      "El servidor MySQL " + address_.quotedName() +
      " está apartado de los demás de su clúster y no ejecuta instrucciones; compruebe los demás y la red";
  item.nativeError = ER_UNKNOWN_COM_ERROR;
  item.sqlState = "08S01";
  item.source = kSource;
  throw ProviderError({std::move(item)});
}

std::string MysqlLink::ask(std::string_view question, unsigned column) {
  AnswerWait wait(*this, list_.connectTimeout);
  const int failed = wait.run<int>(
      [&](int* result) { return mysql_real_query_start(result, handle(), question.data(), question.size()); },
      [&](int* result, int events) { return mysql_real_query_cont(result, handle(), events); });
  if (failed != 0) {
    const std::int32_t number = numberForStatement(mysql_errno(handle()), mysql_sqlstate(handle()));
    if (number == provider_number::kUnspecified || wait.timedOut()) throw loginError(handle(), address_);
    return {};  // a server that does not know the words is in no cluster
  }
  const ResultHandle answer(mysql_store_result(handle()));
  const MYSQL_ROW row = answer ? mysql_fetch_row(answer.get()) : nullptr;
  return row == nullptr || row[column] == nullptr ? "" : row[column];
}

bool MysqlLink::isLost() const noexcept { return isLost_ || hasHungUp(static_cast<int>(mysql_get_socket(handle()))); }

ProviderError MysqlLink::lastError() {
  ProviderError error = statementError(handle(), address_.quotedName());
  if (error.number() == provider_number::kUnspecified) isLost_ = true;
  return error;
}

bool MysqlLink::cancelStatement() const noexcept {
  const ConnectionHandle second(mysql_init(nullptr));
  if (!second) return false;
  const auto seconds = static_cast<unsigned>(kCancelTimeout.count());
  mysql_optionsv(second.get(), MYSQL_OPT_READ_TIMEOUT, &seconds);
  mysql_optionsv(second.get(), MYSQL_OPT_WRITE_TIMEOUT, &seconds);
  if (!logIn(second.get(), address_, {}, kCancelTimeout)) return false;
  std::array<char, 40> order{};
  std::snprintf(order.data(), order.size(), "KILL QUERY %lu", mysql_thread_id(handle()));
  return mysql_query(second.get(), order.data()) == 0;
}

void MysqlLink::breakOff() const noexcept { ::shutdown(mysql_get_socket(handle()), SHUT_RDWR); }

bool MysqlLink::isInTransaction() const noexcept {
  unsigned status = 0;
  return mariadb_get_infov(handle(), MARIADB_CONNECTION_SERVER_STATUS, &status) == 0 &&
         (status & SERVER_STATUS_IN_TRANS) != 0;
}

void MysqlLink::rememberTransaction() noexcept {
  if (!isLost_) hadTransaction_ = isInTransaction();
}

void MysqlLink::keepLostTransaction(const ProviderError& failure) {
  const ErrorItem& item = failure.errors().front();
  if (item.isLostConnection || item.sqlState.starts_with(kRollbackClass)) lostTransaction_ = failure;
}

bool MysqlLink::dropFurtherResults() const noexcept {
  while (mysql_more_results(handle()) != 0) {
    if (mysql_next_result(handle()) > 0) return false;
    const ResultHandle dropped(mysql_use_result(handle()));
  }
  return true;
}

}  // namespace qvn::data::mysql
