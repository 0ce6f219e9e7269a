#include "qvn/devices/windows_ce.h"

#include <algorithm>
#include <array>
#include <span>

#include "qvn/base/code_page_1252.h"
#include "qvn/base/runtime_error.h"
#include "qvn/devices/local_file.h"
#include "qvn/devices/wide_text.h"

namespace qvn::devices {
namespace {

bool holdsNul(std::string_view text) { return text.find('\0') != std::string_view::npos; }

// Closed on every path, also when the local file is in trouble.
class OpenFile {
 public:
  OpenFile(DeviceLink& link, std::string_view path, FileAccess access, Disposition disposition)
      : link_(link), handle_(holdsNul(path) ? kNoFile : link.open(toWide(path), access, disposition)) {}
  ~OpenFile() {
    if (isOpen()) link_.close(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  [[nodiscard]] bool isOpen() const { return handle_ != kNoFile; }
  ReadOutcome read(std::span<char> buffer) { return link_.read(handle_, buffer); }
  std::size_t write(std::span<const char> bytes) { return link_.write(handle_, bytes); }

 private:
  DeviceLink& link_;
  DeviceHandle handle_;
};

bool isWanted(const CopyObserver& observe, const CopyProgress& at) { return !observe || observe(at); }

bool readAll(OpenFile& from, const LocalFile& to, const CopyObserver& observe) {
  std::array<char, kBlockSize> block{};
  CopyProgress at;
  for (;;) {
    const ReadOutcome outcome = from.read(block);
    if (outcome.succeeded && outcome.count == 0) return true;
    to.writeAt(at.bytes, std::span(block).first(outcome.count));
    at.bytes += static_cast<std::int64_t>(outcome.count);
    // Hosts rely on no failure ending the copy; see CopyFileFromPocket.TriesAFailedReadAgain.
    at.failedReads = outcome.count == 0 ? at.failedReads + 1 : 0;
    if (!isWanted(observe, at)) return false;
  }
}

bool writeAll(const LocalFile& from, OpenFile& to, const CopyObserver& observe) {
  std::array<char, kBlockSize> buffer{};
  const std::int64_t size = from.size();
  CopyProgress at;
  while (at.bytes < size) {
    const auto block = std::span(buffer).first(
        static_cast<std::size_t>(std::min(size - at.bytes, static_cast<std::int64_t>(buffer.size()))));
    from.readAt(at.bytes, block);
    const std::size_t taken = to.write(block);
    if (taken == 0) return false;
    at.bytes += static_cast<std::int64_t>(taken);
    if (!isWanted(observe, at)) return false;
  }
  return true;
}

// As a text of the device's reaches it through the system's single-byte code page.
std::u16string throughCodePage(std::string_view text) { return toWide(cp1252::decode(cp1252::encode(text))); }

}  // namespace

bool WindowsCe::Connect(std::chrono::milliseconds wait) const {
  try {
    const SessionStart start = link_.initialise(wait);
    if (start == SessionStart::NotReady) link_.uninitialise();
    return start == SessionStart::Ready;
  } catch (const RuntimeError&) {
    return false;
  }
}

bool WindowsCe::CopyFileFromPocket(std::string_view SourceFile, std::string_view DestinyFile,
                                   const CopyObserver& observe) const {
  OpenFile from(link_, SourceFile, FileAccess::Read, Disposition::OpenExisting);
  if (!from.isOpen()) {
    link_.close(kNoFile);
    return false;
  }
  LocalFile to = LocalFile::forUpdate(DestinyFile);
  const bool isComplete = readAll(from, to, observe);
  to.close();
  return isComplete;
}

bool WindowsCe::CopyFileToPocket(std::string_view SourceFile, std::string_view DestinyFile,
                                 const CopyObserver& observe) const {
  const LocalFile from = LocalFile::forReading(SourceFile);
  OpenFile to(link_, DestinyFile, FileAccess::Write, Disposition::CreateNew);
  return to.isOpen() && writeAll(from, to, observe);
}

void WindowsCe::Disconnect() const { link_.uninitialise(); }

std::string WindowsCe::Version() const {
  const std::optional<DeviceVersion> version = link_.version();
  if (!version) return {};
  return std::to_string(version->major) + "." + std::to_string(version->minor) + "." + std::to_string(version->build) +
         " " + version->servicePack.substr(0, version->servicePack.find('\0'));
}

bool WindowsCe::IsConnected() const { return !Version().empty(); }

bool WindowsCe::DeleteFileFromPocket(std::string_view path) const {
  return !holdsNul(path) && link_.remove(toWide(path));
}

bool WindowsCe::ExistFileOnPocket(std::string_view path) const { return sizeOnPocket(path).has_value(); }

std::optional<std::uint64_t> WindowsCe::sizeOnPocket(std::string_view path) const {
  const std::optional<Found> found = holdsNul(path) ? std::nullopt : link_.findFirst(toWide(path));
  if (!found) return std::nullopt;
  link_.findClose(found->search);
  return found->size;
}

bool WindowsCe::ceCommand(std::string_view strProcess, std::string_view strParameters) const {
  if (holdsNul(strProcess) || holdsNul(strParameters)) return false;
  return link_.createProcess(throughCodePage(strProcess), throughCodePage(strParameters));
}

}  // namespace qvn::devices
