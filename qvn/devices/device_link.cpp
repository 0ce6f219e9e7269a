#include "qvn/devices/device_link.h"

namespace qvn::devices {
namespace {

class NoDeviceLink final : public DeviceLink {
 public:
  SessionStart initialise(std::chrono::milliseconds) override { return SessionStart::NotStarted; }
  void uninitialise() override {}
  DeviceHandle open(std::u16string_view, FileAccess, Disposition) override { return kNoFile; }
  ReadOutcome read(DeviceHandle, std::span<char>) override { return {}; }
  std::size_t write(DeviceHandle, std::span<const char>) override { return 0; }
  bool close(DeviceHandle) override { return false; }
  bool remove(std::u16string_view) override { return false; }
  std::optional<Found> findFirst(std::u16string_view) override { return std::nullopt; }
  bool findClose(SearchHandle) override { return false; }
  bool createProcess(std::u16string_view, std::u16string_view) override { return false; }
  std::optional<DeviceVersion> version() override { return std::nullopt; }
};

}  // namespace

DeviceLinkPtr noDeviceLink() { return std::make_shared<NoDeviceLink>(); }

}  // namespace qvn::devices
