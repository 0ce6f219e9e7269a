#include "qvn/data/drivers/mysql/server_address.h"

#include <charconv>

#include "qvn/data/provider_error.h"

namespace qvn::data::mysql {
namespace {

constexpr unsigned kLastPort = 65535;

}  // namespace

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

std::string ServerAddress::quotedName() const {
  if (!socket.empty()) return "«" + socket + "»";
  return "«" + host + (port == 0 ? "" : ":" + std::to_string(port)) + "»";
}

}  // namespace qvn::data::mysql
