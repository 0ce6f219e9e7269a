#include "qvn/devices/rapi/rapi_link.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "qvn/base/code_page_1252.h"
#include "qvn/devices/rapi/event_wait.h"
#include "qvn/devices/rapi/library.h"

namespace qvn::devices {
namespace {

using rapi::Dword;
using rapi::Handle;

Dword accessBits(FileAccess access) {
  switch (access) {
    case FileAccess::Read:
      return rapi::kGenericRead;
    case FileAccess::Write:
      return rapi::kGenericWrite;
    case FileAccess::ReadWrite:
      return rapi::kGenericRead | rapi::kGenericWrite;
  }
  return 0;
}

Handle handleOf(DeviceHandle file) { return static_cast<Handle>(file); }

Dword sizeOf(std::size_t bytes) {
  return static_cast<Dword>(std::min<std::size_t>(bytes, std::numeric_limits<Dword>::max()));
}

}  // namespace

RapiLink::RapiLink(std::string library) : path_(std::move(library)) {}

RapiLink::~RapiLink() { RapiLink::uninitialise(); }

void RapiLink::load() {
  if (!library_) library_ = std::make_unique<rapi::Library>(path_);
}

SessionStart RapiLink::initialise(std::chrono::milliseconds wait) {
  load();
  auto& record = *records_.emplace_back(std::make_unique<rapi::InitRecord>(
      rapi::InitRecord{.size = sizeof(rapi::InitRecord), .event = rapi::kNoEvent, .result = 0}));
  if (library_->functions().CeRapiInitEx(&record) < 0) {
    records_.pop_back();
    return SessionStart::NotStarted;
  }
  const bool isReady = rapi::waitUntilReadable(record.event, wait) && record.result >= 0;
  isReady_ = isReady_ || isReady;
  return isReady ? SessionStart::Ready : SessionStart::NotReady;
}

void RapiLink::uninitialise() {
  if (records_.empty()) return;
  library_->functions().CeRapiUninit();
  records_.clear();
  isReady_ = false;
}

// Null without a session.
const rapi::Functions* RapiLink::session() const { return isReady_ ? &library_->functions() : nullptr; }

DeviceHandle RapiLink::open(std::u16string_view path, FileAccess access, Disposition disposition) {
  const rapi::Functions* device = session();
  if (device == nullptr) return kNoFile;
  const Dword creation = disposition == Disposition::CreateNew ? rapi::kCreateNew : rapi::kOpenExisting;
  return DeviceHandle{device->CeCreateFile(std::u16string(path).c_str(), accessBits(access), rapi::kNoSharing, nullptr,
                                           creation, rapi::kNormalAttributes, 0)};
}

ReadOutcome RapiLink::read(DeviceHandle file, std::span<char> buffer) {
  const rapi::Functions* device = session();
  if (device == nullptr) return {};
  Dword count = 0;
  const rapi::Bool succeeded =
      device->CeReadFile(handleOf(file), buffer.data(), sizeOf(buffer.size()), &count, nullptr);
  return {.succeeded = succeeded != 0, .count = std::min<std::size_t>(count, buffer.size())};
}

std::size_t RapiLink::write(DeviceHandle file, std::span<const char> bytes) {
  const rapi::Functions* device = session();
  if (device == nullptr) return 0;
  Dword count = 0;
  // What it took counts also when it could not take everything; a device that is in trouble takes nothing next time.
  device->CeWriteFile(handleOf(file), bytes.data(), sizeOf(bytes.size()), &count, nullptr);
  return std::min<std::size_t>(count, bytes.size());
}

bool RapiLink::close(DeviceHandle file) {
  const rapi::Functions* device = session();
  return device != nullptr && device->CeCloseHandle(handleOf(file)) != 0;
}

bool RapiLink::remove(std::u16string_view path) {
  const rapi::Functions* device = session();
  return device != nullptr && device->CeDeleteFile(std::u16string(path).c_str()) != 0;
}

std::optional<Found> RapiLink::findFirst(std::u16string_view pattern) {
  const rapi::Functions* device = session();
  if (device == nullptr) return std::nullopt;
  rapi::FindRecord record{};
  const Handle search = device->CeFindFirstFile(std::u16string(pattern).c_str(), &record);
  if (search == rapi::kInvalidHandle) return std::nullopt;
  return Found{SearchHandle{search}, (std::uint64_t{record.sizeHigh} << 32U) | record.sizeLow};
}

bool RapiLink::findClose(SearchHandle search) {
  const rapi::Functions* device = session();
  return device != nullptr && device->CeFindClose(static_cast<Handle>(search)) != 0;
}

bool RapiLink::createProcess(std::u16string_view program, std::u16string_view commandLine) {
  const rapi::Functions* device = session();
  return device != nullptr &&
         device->CeCreateProcess(std::u16string(program).c_str(), std::u16string(commandLine).c_str(), nullptr, nullptr,
                                 0, 0, nullptr, nullptr, nullptr, nullptr) != 0;
}

std::optional<DeviceVersion> RapiLink::version() {
  const rapi::Functions* device = session();
  rapi::VersionRecord record{};
  record.size = sizeof(record);
  if (device == nullptr || device->CeGetVersionEx(&record) == 0) return std::nullopt;
  return DeviceVersion{.major = record.major,
                       .minor = record.minor,
                       .build = record.build,
                       .platform = record.platform,
                       .servicePack = cp1252::decode({record.servicePack.data(), record.servicePack.size()})};
}

}  // namespace qvn::devices
