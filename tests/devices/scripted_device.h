// A device in memory, which keeps what it was asked and can be told to fail.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "qvn/devices/device_link.h"

namespace qvn::test {

class ScriptedDevice final : public devices::DeviceLink {
 public:
  // Faults, none at first.
  devices::SessionStart start = devices::SessionStart::Ready;
  bool isLibraryMissing = false;      ///< initialise() throws
  std::vector<std::size_t> taken;     ///< how many bytes each of the next writes takes at the most
  int failedReads = 0;                ///< so many reads fail, before others work again
  std::size_t bytesOfFailedRead = 0;  ///< what a failed read gives all the same

  std::map<std::u16string, std::string> files;
  std::vector<std::string> calls;  ///< "open 1 \a.txt", "read 2048", "write 904", "close", ...
  devices::DeviceVersion answer{5, 1, 1700, 3, "SP"};

  devices::SessionStart initialise(std::chrono::milliseconds wait) override;
  void uninitialise() override;
  devices::DeviceHandle open(std::u16string_view path, devices::FileAccess access,
                             devices::Disposition disposition) override;
  devices::ReadOutcome read(devices::DeviceHandle file, std::span<char> buffer) override;
  std::size_t write(devices::DeviceHandle file, std::span<const char> bytes) override;
  bool close(devices::DeviceHandle file) override;
  bool remove(std::u16string_view path) override;
  std::optional<devices::Found> findFirst(std::u16string_view pattern) override;
  bool findClose(devices::SearchHandle search) override;
  bool createProcess(std::u16string_view program, std::u16string_view commandLine) override;
  std::optional<devices::DeviceVersion> version() override;

 private:
  struct Open {
    std::u16string path;
    devices::FileAccess access;
    std::size_t position = 0;
  };

  Open* find(devices::DeviceHandle file, devices::FileAccess access);

  bool isUp_ = false;
  std::int32_t lastHandle_ = 0;
  std::map<devices::DeviceHandle, Open> open_;
  std::map<devices::SearchHandle, std::u16string> searches_;
};

}  // namespace qvn::test
