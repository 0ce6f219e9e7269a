#include <algorithm>
#include <string>

#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"

namespace qvn {

std::filesystem::path hostPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) throw RuntimeError(error_number::kBadFileName);
  std::string native(path);
  std::ranges::replace(native, '\\', '/');
  return native;
}

}  // namespace qvn
