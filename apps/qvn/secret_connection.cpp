#include "apps/qvn/secret_connection.h"

#include <cstdlib>
#include <fstream>

#include "qvn/base/path.h"
#include "qvn/data/connection_string.h"
#include "qvn/host/file_error.h"

namespace qvn::cli {
namespace {

std::string firstLine(std::string_view path) {
  std::ifstream file(hostPath(path));
  std::string line;
  if (!std::getline(file, line)) {
    throw host::fileError(error_number::kFileNotFound, {.verb = "leer la contraseña de", .path = path});
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string password(const Arguments& arguments, Context& context) {
  if (const auto file = arguments.value(kPasswordFileOption.name)) return firstLine(*file);
  if (arguments.has(kAskPasswordOption.name)) return context.library.MyInputPasswordBox("Contraseña", nullptr);
  const char* const variable = std::getenv("QVN_CLAVE");
  return variable == nullptr ? std::string() : std::string(variable);
}

}  // namespace

data::ConnectionPtr connectSecretly(const Arguments& arguments, Context& context) {
  const std::string text = connectionText(arguments);
  if (arguments.has(kConnectionOption.name) && data::ConnectionString(text).value({"PWD", "PASSWORD"})) {
    throw UsageError(
        "la contraseña no va en -c, porque otros la verían en la lista de procesos; désela en la variable QVN_CLAVE,\n"
        "     con --archivo-clave o con --pide-clave");
  }
  return connectTo(text, arguments, context, password(arguments, context));
}

}  // namespace qvn::cli
