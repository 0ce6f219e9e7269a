#include "qvn/data/drivers/mysql/mysql_link.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <new>

#include "qvn/data/drivers/mysql/keep_alive.h"
#include "qvn/data/drivers/mysql/mysql_error.h"

namespace qvn::data::mysql {
namespace {

constexpr const char* kCharset = "utf8mb4";
// Longest wait for each step of the second connection that cancels a statement.
constexpr unsigned kCancelSeconds = 5;
// The library counts milliseconds in an int.
constexpr std::chrono::seconds kLongestConnect = std::chrono::hours(24);
// Stack of the library's resumable calls, over which a statement waits without blocking in the library.
constexpr std::size_t kResumableStackBytes = std::size_t{256} * 1024;

ConnectionHandle newHandle() {
  ConnectionHandle handle(mysql_init(nullptr));
  if (!handle) throw std::bad_alloc();
  return handle;
}

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

bool logIn(MYSQL* handle, const ServerAddress& address, const std::string& database, unsigned timeoutSeconds) {
  const unsigned no = 0;
  const my_bool never = 0;
  mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, kCharset);
  mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &timeoutSeconds);
  mysql_optionsv(handle, MYSQL_OPT_LOCAL_INFILE, &no);
  mysql_optionsv(handle, MYSQL_OPT_RECONNECT, &never);
  if (address.port != 0 && address.socket.empty()) {
    const unsigned protocol = MYSQL_PROTOCOL_TCP;
    mysql_optionsv(handle, MYSQL_OPT_PROTOCOL, &protocol);
  }
  // A socket path counts for the local host only.
  const char* const host = address.socket.empty() ? address.host.c_str() : "localhost";
  return mysql_real_connect(handle, host, orNull(address.user), orNull(address.password), orNull(database),
                            address.port, orNull(address.socket), CLIENT_FOUND_ROWS) != nullptr;
}

[[noreturn]] void refuseLogin(MYSQL* handle, const ServerAddress& address) {
  const std::int32_t number = numberForLogin(mysql_errno(handle));
  if (number == provider_number::kLoginRefused) {
    throw ProviderError({reportedError(
        handle, number, "El servidor MySQL " + address.quotedName() + " no aceptó al usuario «" + address.user + "»",
        "compruebe el usuario, la contraseña y la base de datos")});
  }
  throw ProviderError(
      {reportedError(handle, number, "No se pudo conectar con el servidor MySQL " + address.quotedName(),
                     "compruebe que esté en marcha y que los datos de la conexión sean correctos")});
}

}  // namespace

MysqlLink::MysqlLink(ServerAddress address, std::chrono::seconds connectTimeout)
    : address_(std::move(address)), handle_(newHandle()) {
  mysql_optionsv(handle(), MYSQL_OPT_NONBLOCK, &kResumableStackBytes);
  const auto seconds =
      static_cast<unsigned>(std::clamp(connectTimeout, std::chrono::seconds::zero(), kLongestConnect).count());
  if (!logIn(handle(), address_, address_.database, seconds)) refuseLogin(handle(), address_);
  keepAlive(static_cast<int>(mysql_get_socket(handle())));
}

bool MysqlLink::cancelStatement() const noexcept {
  const ConnectionHandle second(mysql_init(nullptr));
  if (!second) return false;
  mysql_optionsv(second.get(), MYSQL_OPT_READ_TIMEOUT, &kCancelSeconds);
  mysql_optionsv(second.get(), MYSQL_OPT_WRITE_TIMEOUT, &kCancelSeconds);
  if (!logIn(second.get(), address_, {}, kCancelSeconds)) return false;
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

bool MysqlLink::dropFurtherResults() const noexcept {
  while (mysql_more_results(handle()) != 0) {
    if (mysql_next_result(handle()) > 0) return false;
    const ResultHandle dropped(mysql_use_result(handle()));
  }
  return true;
}

}  // namespace qvn::data::mysql
