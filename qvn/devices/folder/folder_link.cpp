#include "qvn/devices/folder/folder_link.h"

#include <map>
#include <set>
#include <utility>

#include "qvn/devices/folder/folder_files.h"

namespace qvn::devices {

struct FolderLink::Session {
  Descriptor root;
  std::map<DeviceHandle, Descriptor> files = {};
  std::set<SearchHandle> searches = {};
  std::int32_t lastHandle = 0;

  // Null when it is not open.
  [[nodiscard]] const Descriptor* find(DeviceHandle file) const {
    const auto found = files.find(file);
    return found == files.end() ? nullptr : &found->second;
  }
};

FolderLink::FolderLink(std::filesystem::path folder, DeviceVersion version)
    : folder_(std::move(folder)), version_(std::move(version)) {}

FolderLink::~FolderLink() = default;

SessionStart FolderLink::initialise(std::chrono::milliseconds) {
  if (session_) return SessionStart::NotStarted;
  Descriptor root = openFolder(folder_);
  if (!root.isOpen()) return SessionStart::NotStarted;
  session_ = std::make_unique<Session>(Session{.root = std::move(root)});
  return SessionStart::Ready;
}

void FolderLink::uninitialise() { session_.reset(); }

DeviceHandle FolderLink::open(std::u16string_view path, FileAccess access, Disposition disposition) {
  const auto names = readDevicePath(path);
  if (!session_ || !names) return kNoFile;
  Descriptor file = openFile(session_->root, *names, access, disposition);
  if (!file.isOpen()) return kNoFile;
  const DeviceHandle handle{++session_->lastHandle};
  session_->files[handle] = std::move(file);
  return handle;
}

ReadOutcome FolderLink::read(DeviceHandle file, std::span<char> buffer) {
  const Descriptor* found = session_ ? session_->find(file) : nullptr;
  return found == nullptr ? ReadOutcome{} : readFile(*found, buffer);
}

std::size_t FolderLink::write(DeviceHandle file, std::span<const char> bytes) {
  const Descriptor* found = session_ ? session_->find(file) : nullptr;
  return found == nullptr ? 0 : writeFile(*found, bytes);
}

bool FolderLink::close(DeviceHandle file) { return session_ && session_->files.erase(file) == 1; }

bool FolderLink::remove(std::u16string_view path) {
  const auto names = readDevicePath(path);
  return session_ && names && removeFile(session_->root, *names);
}

std::optional<Found> FolderLink::findFirst(std::u16string_view pattern) {
  const auto names = readDevicePath(pattern);
  if (!session_ || !names) return std::nullopt;
  const auto size = sizeOfFirst(session_->root, *names);
  if (!size) return std::nullopt;
  const SearchHandle search{++session_->lastHandle};
  session_->searches.insert(search);
  return Found{search, *size};
}

bool FolderLink::findClose(SearchHandle search) { return session_ && session_->searches.erase(search) == 1; }

bool FolderLink::createProcess(std::u16string_view, std::u16string_view) { return false; }

std::optional<DeviceVersion> FolderLink::version() {
  return session_ && isStillThere(session_->root, folder_) ? std::optional(version_) : std::nullopt;
}

}  // namespace qvn::devices
