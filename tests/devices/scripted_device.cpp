#include "tests/devices/scripted_device.h"

#include <algorithm>
#include <utility>

#include "qvn/base/runtime_error.h"
#include "qvn/devices/wide_text.h"
#include "qvn/devices/wildcard.h"

namespace qvn::test {

using devices::DeviceHandle;
using devices::FileAccess;
using devices::fromWide;
using devices::SessionStart;

SessionStart ScriptedDevice::initialise(std::chrono::milliseconds wait) {
  calls.push_back("initialise " + std::to_string(wait.count()));
  if (isLibraryMissing) throw RuntimeError(error_number::kFileNotFound);
  isUp_ = start == SessionStart::Ready;
  return start;
}

void ScriptedDevice::uninitialise() {
  calls.emplace_back("uninitialise");
  isUp_ = false;
  open_.clear();
  searches_.clear();
}

DeviceHandle ScriptedDevice::open(std::u16string_view path, FileAccess access, devices::Disposition disposition) {
  const bool isNew = disposition == devices::Disposition::CreateNew;
  calls.push_back((isNew ? "create " : "open ") + std::to_string(static_cast<int>(access)) + " " + fromWide(path));
  const std::u16string name(path);
  const bool isTaken = std::ranges::any_of(open_, [&](const auto& entry) { return entry.second.path == name; });
  if (!isUp_ || isTaken || files.contains(name) == isNew) return devices::kNoFile;
  files[name];
  const DeviceHandle handle{++lastHandle_};
  open_[handle] = {name, access};
  return handle;
}

ScriptedDevice::Open* ScriptedDevice::find(DeviceHandle file, FileAccess access) {
  const auto found = open_.find(file);
  const bool isAllowed = found != open_.end() && (static_cast<int>(found->second.access) & static_cast<int>(access));
  return isAllowed ? &found->second : nullptr;
}

devices::ReadOutcome ScriptedDevice::read(DeviceHandle file, std::span<char> buffer) {
  calls.push_back("read " + std::to_string(buffer.size()));
  Open* from = find(file, FileAccess::Read);
  if (from == nullptr) return {};
  const bool isFailing = failedReads > 0 && failedReads-- > 0;
  const std::string& bytes = files[from->path];
  std::size_t count = std::min(buffer.size(), bytes.size() - from->position);
  if (isFailing) count = std::min(count, bytesOfFailedRead);
  bytes.copy(buffer.data(), count, from->position);
  from->position += count;
  return {!isFailing, count};
}

std::size_t ScriptedDevice::write(DeviceHandle file, std::span<const char> bytes) {
  calls.push_back("write " + std::to_string(bytes.size()));
  Open* to = find(file, FileAccess::Write);
  if (to == nullptr) return 0;
  std::size_t count = bytes.size();
  if (!taken.empty()) {
    count = std::min(count, taken.front());
    taken.erase(taken.begin());
  }
  files[to->path].replace(to->position, count, bytes.data(), count);
  to->position += count;
  return count;
}

bool ScriptedDevice::close(DeviceHandle file) {
  calls.emplace_back(file == devices::kNoFile ? "close none" : "close");
  return open_.erase(file) == 1;
}

bool ScriptedDevice::remove(std::u16string_view path) {
  calls.push_back("remove " + fromWide(path));
  return isUp_ && files.erase(std::u16string(path)) == 1;
}

std::optional<devices::Found> ScriptedDevice::findFirst(std::u16string_view pattern) {
  calls.push_back("find " + fromWide(pattern));
  if (!isUp_) return std::nullopt;
  const auto found =
      std::ranges::find_if(files, [&](const auto& file) { return devices::matchesWildcard(file.first, pattern); });
  if (found == files.end()) return std::nullopt;
  const devices::SearchHandle search{++lastHandle_};
  searches_[search] = found->first;
  return devices::Found{search, found->second.size()};
}

bool ScriptedDevice::findClose(devices::SearchHandle search) {
  calls.emplace_back("find-close");
  return searches_.erase(search) == 1;
}

bool ScriptedDevice::createProcess(std::u16string_view program, std::u16string_view commandLine) {
  calls.push_back("run " + fromWide(program) + "|" + fromWide(commandLine));
  return isUp_ && files.contains(std::u16string(program));
}

std::optional<devices::DeviceVersion> ScriptedDevice::version() { return isUp_ ? std::optional(answer) : std::nullopt; }

}  // namespace qvn::test
