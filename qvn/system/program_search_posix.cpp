#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "qvn/system/program_search.h"

namespace qvn::system {
namespace {

bool mayRun(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(file, ignored) && access(file.c_str(), X_OK) == 0;
}

}  // namespace

bool isProgram(const std::string& name) {
  if (name.empty()) return false;
  if (name.find('/') != std::string::npos) return mayRun(name);
  const char* const variable = std::getenv("PATH");
  std::string_view folders = variable == nullptr ? "/usr/bin:/bin" : variable;
  while (true) {
    const std::size_t end = folders.find(':');
    const std::string_view folder = folders.substr(0, end);
    if (mayRun(std::filesystem::path(folder.empty() ? "." : folder) / name)) return true;
    if (end == std::string_view::npos) return false;
    folders.remove_prefix(end + 1);
  }
}

}  // namespace qvn::system
