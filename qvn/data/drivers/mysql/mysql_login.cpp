#include "qvn/data/drivers/mysql/mysql_login.h"

#include <algorithm>
#include <new>

#include "qvn/data/drivers/mysql/mysql_error.h"

namespace qvn::data::mysql {
namespace {

constexpr const char* kCharset = "utf8mb4";
// The library counts milliseconds in an int.
constexpr std::chrono::seconds kLongestConnect = std::chrono::hours(24);

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

ConnectionHandle newHandle() {
  ConnectionHandle handle(mysql_init(nullptr));
  if (!handle) throw std::bad_alloc();
  return handle;
}

bool logIn(MYSQL* handle, const ServerAddress& address, const std::string& database,
           std::chrono::seconds timeout) noexcept {
  const unsigned no = 0;
  const my_bool never = 0;
  const auto seconds =
      static_cast<unsigned>(std::clamp(timeout, std::chrono::seconds::zero(), kLongestConnect).count());
  mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, kCharset);
  mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &seconds);
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

ProviderError loginError(MYSQL* handle, const ServerAddress& address) {
  const std::int32_t number = numberForLogin(mysql_errno(handle));
  if (number == provider_number::kLoginRefused) {
    return ProviderError({reportedError(
        handle, number, "El servidor MySQL " + address.quotedName() + " no aceptó al usuario «" + address.user + "»",
        "compruebe el usuario, la contraseña y la base de datos")});
  }
  return ProviderError(
      {reportedError(handle, number, "No se pudo conectar con el servidor MySQL " + address.quotedName(),
                     "compruebe que esté en marcha y que los datos de la conexión sean correctos")});
}

}  // namespace qvn::data::mysql
