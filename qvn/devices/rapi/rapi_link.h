// A device behind a remote access library, see rapi_types.h for what such a library exports.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvn/devices/device_link.h"

namespace qvn::devices {

namespace rapi {
struct Functions;
struct InitRecord;
class Library;
}  // namespace rapi

class RapiLink final : public DeviceLink {
 public:
  /// `library`: a path, or a name that the system looks for. It is loaded when the first session begins.
  explicit RapiLink(std::string library);
  ~RapiLink() override;

  /// Loads the library unless it is there, to learn what is wrong with it before a session.
  /// @throws RuntimeError  53 when it cannot be loaded, 453 when it lacks a function
  void load();

  /// Throws as load() does.
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
  [[nodiscard]] const rapi::Functions* session() const;

  std::string path_;
  std::unique_ptr<rapi::Library> library_;
  // Of the sessions that were begun and not ended; the library may write into them.
  std::vector<std::unique_ptr<rapi::InitRecord>> records_;
  bool isReady_ = false;
};

}  // namespace qvn::devices
