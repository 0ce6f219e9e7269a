// The files below one folder, and no others.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "qvn/devices/device_link.h"
#include "qvn/devices/folder/device_path.h"

namespace qvn::devices {

/// An open file or folder.
class Descriptor {
 public:
  explicit Descriptor(int number = kClosed) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] bool isOpen() const { return number_ != kClosed; }
  [[nodiscard]] int number() const { return number_; }

 private:
  static constexpr int kClosed = -1;
  int number_;
};

Descriptor openFolder(const std::filesystem::path& folder);

/// Whether that path still leads to the open folder, as it does not when something was unmounted.
bool isStillThere(const Descriptor& folder, const std::filesystem::path& path);

// Of a path below `root` that leads over a symbolic link, all of these fail.

/// Opens a plain file that no other link of this kind has open. Fails for folders and devices.
Descriptor openFile(const Descriptor& root, const DevicePath& path, FileAccess access, Disposition disposition);
bool removeFile(const Descriptor& root, const DevicePath& path);
/// Bytes of the first file or folder whose name fits; see wildcard.h. 0 for a folder.
std::optional<std::uint64_t> sizeOfFirst(const Descriptor& root, const DevicePath& pattern);

ReadOutcome readFile(const Descriptor& file, std::span<char> buffer);
/// Bytes written, 0 when that failed.
std::size_t writeFile(const Descriptor& file, std::span<const char> bytes);

}  // namespace qvn::devices
