// Devices on which every link has to behave alike.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "qvn/devices/device_link.h"

namespace qvn::test {

/// A device with the folder "\My Documents", which nobody has a session with yet.
class DeviceUnderTest {
 public:
  DeviceUnderTest() = default;
  virtual ~DeviceUnderTest() = default;
  DeviceUnderTest(const DeviceUnderTest&) = delete;
  DeviceUnderTest& operator=(const DeviceUnderTest&) = delete;

  [[nodiscard]] virtual devices::DeviceLink& link() = 0;
  // Files of "\My Documents", past the link.
  virtual void put(const std::string& name, const std::string& bytes) = 0;
  [[nodiscard]] virtual std::optional<std::string> get(const std::string& name) = 0;
};

struct DeviceKind {
  const char* name;
  std::unique_ptr<DeviceUnderTest> (*make)();
  bool startsPrograms;
};
inline std::ostream& operator<<(std::ostream& out, const DeviceKind& kind) { return out << kind.name; }

/// A device in memory.
std::unique_ptr<DeviceUnderTest> newScriptedDevice();
/// A folder.
std::unique_ptr<DeviceUnderTest> newFolderDevice();
/// A folder behind the library of pocket_library.cpp.
std::unique_ptr<DeviceUnderTest> newLibraryDevice();

}  // namespace qvn::test
