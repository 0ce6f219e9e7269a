#include "qvn/data/drivers/firebird/database_target.h"

#include <algorithm>
#include <array>

#include "qvn/base/letter_case.h"
#include "qvn/base/path.h"
#include "qvn/data/provider_error.h"

namespace qvn::data::firebird {
namespace {

struct ModeName {
  std::string_view name;
  AccessMode mode;
};

constexpr auto kModes = std::to_array<ModeName>({
    {"ReadWrite", AccessMode::ReadWrite},
    {"ReadWriteCreate", AccessMode::ReadWriteCreate},
    {"ReadOnly", AccessMode::ReadOnly},
});

AccessMode accessMode(const std::string& name) {
  const auto* mode =
      std::ranges::find_if(kModes, [&](const ModeName& known) { return equalIgnoringCase(known.name, name); });
  if (mode != kModes.end()) return mode->mode;
  throw ProviderError(provider_number::kBadConnectionString,
                      "La cadena de conexión tiene un valor de «Mode» que no existe; use ReadWrite, ReadWriteCreate o "
                      "ReadOnly");
}

// "host:path" and "host/port:path"; a single letter before the colon is a drive, and a path may hold colons further on.
bool namesServer(std::string_view text) {
  if (text.find("://") != std::string_view::npos) return true;
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  const std::string_view host = text.substr(0, colon);
  if (host.find('\\') != std::string_view::npos || host.front() == '.') return false;
  const std::size_t slash = host.find('/');
  return slash != 0 && slash == host.rfind('/');
}

std::string localName(const std::string& text) {
  std::string path = hostPath(text).string();
  if (path.find(':') == std::string::npos) return path;
  throw ProviderError(provider_number::kBadConnectionString,
                      "La ruta «" + path + "» lleva «:», y Firebird toma lo que va antes por el nombre de un servidor");
}

}  // namespace

DatabaseTarget databaseTarget(const ConnectRequest& request) {
  const auto value = [&](std::initializer_list<std::string_view> names) {
    return request.parameters.value(names).value_or("");
  };
  DatabaseTarget target;
  target.name = value({"DATA SOURCE", "LOCATION", "DATABASE"});
  if (target.name.empty()) {
    throw ProviderError(provider_number::kBadConnectionString,
                        "La cadena de conexión no dice qué base abrir; agregue «Data Source=ruta» o «Data "
                        "Source=servidor:ruta»");
  }
  target.isOnServer = namesServer(target.name);
  if (!target.isOnServer) target.name = localName(target.name);
  target.user = request.user.empty() ? value({"USER ID", "UID", "USER"}) : request.user;
  target.password = request.password.empty() ? value({"PASSWORD", "PWD"}) : request.password;
  target.role = value({"ROLE"});
  target.charset = value({"CHARSET"});
  if (target.charset.empty()) target.charset = "UTF8";
  target.mode = accessMode(request.parameters.value({"MODE"}).value_or("ReadWrite"));
  return target;
}

}  // namespace qvn::data::firebird
