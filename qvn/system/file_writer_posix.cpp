#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "qvn/system/file_writer.h"

namespace qvn::system {

bool writeFile(const std::filesystem::path& file, std::string_view bytes, WriteMode mode) {
  const int descriptor =
      open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (mode == WriteMode::Append ? O_APPEND : O_TRUNC), 0666);
  if (descriptor < 0) return false;
  // In one call, which the system puts at the end as a whole; what does not fit follows.
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      break;
    }
  }
  return close(descriptor) == 0 && bytes.empty();
}

}  // namespace qvn::system
