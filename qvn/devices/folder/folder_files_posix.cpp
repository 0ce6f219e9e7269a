#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <utility>

#include "qvn/devices/folder/folder_files.h"
#include "qvn/devices/wide_text.h"
#include "qvn/devices/wildcard.h"

namespace qvn::devices {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// One name after the other, so that no link on the way is followed, not even one that appears meanwhile.
Descriptor openParent(const Descriptor& root, const DevicePath& path) {
  Descriptor folder(openat(root.number(), ".", kFolderFlags));
  for (const std::string& name : path.folders) {
    folder = Descriptor(openat(folder.number(), name.c_str(), kFolderFlags | O_NOFOLLOW));
    if (!folder.isOpen()) break;
  }
  return folder;
}

int accessFlags(FileAccess access) {
  switch (access) {
    case FileAccess::Read:
      return O_RDONLY;
    case FileAccess::Write:
      return O_WRONLY;
    case FileAccess::ReadWrite:
      return O_RDWR;
  }
  return O_RDONLY;
}

bool isPlainFile(const Descriptor& file) {
  struct stat status {};
  return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

// Mounted devices that know no locks share their files.
bool isTakenElsewhere(const Descriptor& file) {
  return flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

// Nothing for what is neither a file nor a folder.
std::optional<std::uint64_t> sizeOf(int folder, const char* name) {
  struct stat status {};
  if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
  if (S_ISREG(status.st_mode)) return static_cast<std::uint64_t>(status.st_size);
  return S_ISDIR(status.st_mode) ? std::optional<std::uint64_t>(0) : std::nullopt;
}

struct CloseListing {
  void operator()(DIR* listing) const noexcept { closedir(listing); }
};

}  // namespace

Descriptor::~Descriptor() {
  if (isOpen()) close(number_);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, kClosed)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

Descriptor openFolder(const std::filesystem::path& folder) { return Descriptor(open(folder.c_str(), kFolderFlags)); }

bool isStillThere(const Descriptor& folder, const std::filesystem::path& path) {
  struct stat opened {};
  struct stat named {};
  return fstat(folder.number(), &opened) == 0 && stat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

Descriptor openFile(const Descriptor& root, const DevicePath& path, FileAccess access, Disposition disposition) {
  const Descriptor folder = openParent(root, path);
  const int creation = disposition == Disposition::CreateNew ? O_CREAT | O_EXCL : 0;
  // Without O_NONBLOCK a pipe in the folder would wait for its other end.
  Descriptor file(openat(folder.number(), path.name.c_str(),
                         accessFlags(access) | creation | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kNewFileMode));
  return file.isOpen() && isPlainFile(file) && !isTakenElsewhere(file) ? std::move(file) : Descriptor();
}

bool removeFile(const Descriptor& root, const DevicePath& path) {
  const Descriptor folder = openParent(root, path);
  struct stat status {};
  return fstatat(folder.number(), path.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode) &&
         unlinkat(folder.number(), path.name.c_str(), 0) == 0;
}

std::optional<std::uint64_t> sizeOfFirst(const Descriptor& root, const DevicePath& pattern) {
  const Descriptor folder = openParent(root, pattern);
  // The listing owns a descriptor of its own.
  const std::unique_ptr<DIR, CloseListing> listing(fdopendir(openat(folder.number(), ".", kFolderFlags)));
  if (!listing) return std::nullopt;
  const std::u16string wanted = toWide(pattern.name);
  while (const dirent* entry = readdir(listing.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == ".." || !matchesWildcard(toWide(name), wanted)) continue;
    if (const auto size = sizeOf(folder.number(), entry->d_name)) return size;
  }
  return std::nullopt;
}

ReadOutcome readFile(const Descriptor& file, std::span<char> buffer) {
  ssize_t count = 0;
  do {
    count = read(file.number(), buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) return {};
  return {.succeeded = true, .count = static_cast<std::size_t>(count)};
}

std::size_t writeFile(const Descriptor& file, std::span<const char> bytes) {
  ssize_t count = 0;
  do {
    count = write(file.number(), bytes.data(), bytes.size());
  } while (count < 0 && errno == EINTR);
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

}  // namespace qvn::devices
