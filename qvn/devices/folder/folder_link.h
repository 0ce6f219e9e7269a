// A device whose files are a folder of this machine, as it is when the device is mounted as a drive.
#pragma once

#include <filesystem>
#include <memory>

#include "qvn/devices/device_link.h"

namespace qvn::devices {

/// The device's root is the folder: "\My Documents\x.txt" lies below it, and "/" counts as "\". A path with "..", or
/// one that leads over a symbolic link, fails, so that nothing outside of the folder is read or written. Whether the
/// case of letters counts is the mounted device's affair.
///
/// Programs cannot be started. The version is what the constructor was given, as long as the folder is there.
class FolderLink final : public DeviceLink {
 public:
  explicit FolderLink(std::filesystem::path folder, DeviceVersion version = {.servicePack = "carpeta"});
  ~FolderLink() override;

  /// NotStarted when the folder is not there; `wait` is not used.
  SessionStart initialise(std::chrono::milliseconds wait) override;
  void uninitialise() override;
  DeviceHandle open(std::u16string_view path, FileAccess access, Disposition disposition) override;
  ReadOutcome read(DeviceHandle file, std::span<char> buffer) override;
  std::size_t write(DeviceHandle file, std::span<const char> bytes) override;
  bool close(DeviceHandle file) override;
  bool remove(std::u16string_view path) override;
  std::optional<Found> findFirst(std::u16string_view pattern) override;
  bool findClose(SearchHandle search) override;
  bool createProcess(std::u16string_view program, std::u16string_view commandLine) override;
  std::optional<DeviceVersion> version() override;

 private:
  struct Session;

  std::filesystem::path folder_;
  DeviceVersion version_;
  std::unique_ptr<Session> session_;  // null when there is none
};

}  // namespace qvn::devices
