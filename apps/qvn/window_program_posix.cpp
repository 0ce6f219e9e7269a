#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "apps/qvn/window_program.h"
#include "qvn/base/runtime_error.h"

namespace qvn::cli {

void continueWithWindows(char** arguments) {
  std::error_code unknown;
  const std::filesystem::path itself = std::filesystem::read_symlink("/proc/self/exe", unknown);
  const std::filesystem::path program = itself.parent_path() / "qvn-ventana";
  execv(program.c_str(), arguments);
  const std::string advice = errno == ENOENT ? "; instale Qt 6 (paquete qt6-base-dev) y vuelva a compilar" : "";
  throw RuntimeError(error_number::kFileNotFound,
                     "No se puede ejecutar «" + program.string() + "», el programa de las ventanas" + advice);
}

}  // namespace qvn::cli
