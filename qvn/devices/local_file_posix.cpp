#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "qvn/base/path.h"
#include "qvn/devices/local_file.h"
#include "qvn/host/file_error.h"

namespace qvn::devices {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr int kClosed = -1;

}  // namespace

LocalFile LocalFile::forReading(std::string_view path) {
  LocalFile file(path, O_RDONLY);
  struct stat status {};
  // Opening a folder for reading is no error to the system, only reading it is.
  if (fstat(file.descriptor_, &status) == 0 && S_ISDIR(status.st_mode)) {
    errno = EISDIR;
    file.fail("abrir el archivo");
  }
  return file;
}

LocalFile LocalFile::forUpdate(std::string_view path) { return {path, O_WRONLY | O_CREAT}; }

LocalFile::LocalFile(std::string_view path, int flags) : path_(path), descriptor_(kClosed) {
  const std::filesystem::path native = hostPath(path);
  do {
    descriptor_ = ::open(native.c_str(), flags | O_CLOEXEC, kNewFileMode);
  } while (descriptor_ == kClosed && errno == EINTR);
  if (descriptor_ == kClosed) fail("abrir el archivo");
}

LocalFile::LocalFile(LocalFile&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, kClosed)) {}

LocalFile::~LocalFile() {
  if (descriptor_ != kClosed) ::close(descriptor_);
}

std::int64_t LocalFile::size() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) fail("leer el archivo");
  return status.st_size;
}

void LocalFile::readAt(std::int64_t offset, std::span<char> buffer) const {
  while (!buffer.empty()) {
    const ssize_t count = pread(descriptor_, buffer.data(), buffer.size(), offset);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("leer el archivo");
    if (count == 0) throw host::fileError(error_number::kInputPastEnd, {.verb = "leer el archivo", .path = path_});
    buffer = buffer.subspan(static_cast<std::size_t>(count));
    offset += count;
  }
}

void LocalFile::writeAt(std::int64_t offset, std::span<const char> bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = pwrite(descriptor_, bytes.data(), bytes.size(), offset);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("escribir el archivo");
    bytes = bytes.subspan(static_cast<std::size_t>(count));
    offset += count;
  }
}

void LocalFile::close() {
  if (::close(std::exchange(descriptor_, kClosed)) != 0 && errno != EINTR) fail("escribir el archivo");
}

void LocalFile::fail(std::string_view verb) const {
  throw host::fileError(std::error_code(errno, std::generic_category()), {.verb = verb, .path = path_});
}

}  // namespace qvn::devices
