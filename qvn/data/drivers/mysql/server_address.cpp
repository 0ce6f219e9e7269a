#include "qvn/data/drivers/mysql/server_address.h"

#include <charconv>

#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {
namespace {

constexpr unsigned kLastPort = 65535;

unsigned parsePort(const std::string& text) {
  if (text.empty()) return 0;
  unsigned port = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  if (error != std::errc{} || stop != end || port == 0 || port > kLastPort) {
    throw ProviderError(provider_number::kBadConnectionString,
                        "El puerto (PORT) de la cadena de conexión debe ser un número de 1 a 65535");
  }
  return port;
}

}  // namespace

std::string ServerAddress::quotedName() const {
  if (!socket.empty()) return "«" + socket + "»";
  return "«" + host + (port == 0 ? "" : ":" + std::to_string(port)) + "»";
}

ServerAddress serverAddress(const ConnectRequest& request) {
  const auto value = [&](std::initializer_list<std::string_view> names) {
    return request.parameters.value(names).value_or("");
  };
  ServerAddress address;
  address.host = value({"SERVER", "HOST", "DATA SOURCE"});
  if (address.host.empty()) address.host = "localhost";
  address.socket = value({"SOCKET", "UNIX_SOCKET"});
  address.port = parsePort(value({"PORT"}));
  address.database = value({"DATABASE", "INITIAL CATALOG"});
  address.user = request.user.empty() ? value({"UID", "USER", "USER ID", "USERNAME"}) : request.user;
  address.password = request.password.empty() ? value({"PWD", "PASSWORD"}) : request.password;
  return address;
}

}  // namespace qvn::data::mysql
