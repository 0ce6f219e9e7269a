// A remote access library whose device is a folder, for the tests. By the environment, read when a session begins:
//
//   POCKET_FOLDER  the device's files
//   POCKET_LOG     a line for each call is appended here: its name, its arguments, what it gave
//   POCKET_FAULTS  words: no-start, no-event, no-signal, closed-event, failed (the session fails),
//                  reads=N (the next N reads fail), dead-reads (all reads fail), short=N (a write takes N bytes at the
//                  most), full=N (the device takes N bytes in all; then writes succeed with 0), no-version
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <thread>

#include "qvn/devices/rapi/rapi_types.h"
#include "qvn/devices/wide_text.h"
#include "qvn/devices/wildcard.h"

namespace {

using namespace qvn::devices::rapi;
namespace fs = std::filesystem;

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

struct OpenFile {
  std::unique_ptr<std::fstream> stream;
  fs::path path;
};

// Everything between CeRapiInitEx and CeRapiUninit.
struct Session {
  fs::path folder = variable("POCKET_FOLDER");
  std::map<std::string, std::size_t> faults = {};
  std::map<Handle, OpenFile> files = {};
  std::set<Handle> searches = {};
  Handle last = 0;
  int event = kNoEvent;
  std::jthread signaller = {};

  Session() {
    std::istringstream words(variable("POCKET_FAULTS"));
    for (std::string word; words >> word;) {
      const std::size_t equal = word.find('=');
      faults[word.substr(0, equal)] = equal == std::string::npos ? 1 : std::stoul(word.substr(equal + 1));
    }
  }
  ~Session() {
    if (signaller.joinable()) signaller.join();
    if (event != kNoEvent) close(event);
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  [[nodiscard]] bool has(const std::string& fault) const { return faults.contains(fault); }
};

std::unique_ptr<Session> session;
std::atomic<bool> isUp = false;

template <typename... Parts>
void log(const Parts&... parts) {
  static std::ofstream file;
  static std::string name;
  if (const std::string wanted = variable("POCKET_LOG"); wanted != name) {
    file = std::ofstream(wanted, std::ios::app);
    name = wanted;
  }
  ((file << parts), ...) << std::endl;
}

std::string narrow(WideText text) { return text == nullptr ? "(null)" : qvn::devices::fromWide(text); }

fs::path devicePath(WideText text) {
  std::string path = narrow(text);
  std::ranges::replace(path, '\\', '/');
  return session->folder /
         path.substr(path.find_first_not_of('/') == std::string::npos ? 0 : path.find_first_not_of('/'));
}

bool isOpenAlready(const fs::path& path) {
  return std::ranges::any_of(session->files, [&](const auto& file) { return file.second.path == path; });
}

Handle openFile(WideText text, Dword access, Dword disposition) {
  if (!isUp) return kInvalidHandle;
  const fs::path path = devicePath(text);
  if (isOpenAlready(path)) return kInvalidHandle;
  if (disposition == kCreateNew ? fs::exists(path) : !fs::is_regular_file(path)) return kInvalidHandle;
  if (disposition == kCreateNew) std::ofstream(path, std::ios::binary);
  auto mode = std::ios::binary;
  if ((access & kGenericRead) != 0) mode |= std::ios::in;
  if ((access & kGenericWrite) != 0) mode |= std::ios::out | std::ios::in;
  OpenFile file{std::make_unique<std::fstream>(path, mode), path};
  // A stream for writing has to be able to read, or it would cut the file.
  if (!file.stream->is_open()) return kInvalidHandle;
  file.stream->iword(0) = static_cast<long>(access);
  session->files[++session->last] = std::move(file);
  return session->last;
}

std::fstream* find(Handle handle, Dword access) {
  if (!isUp) return nullptr;
  const auto found = session->files.find(handle);
  if (found == session->files.end()) return nullptr;
  const bool isAllowed = (static_cast<Dword>(found->second.stream->iword(0)) & access) != 0;
  return isAllowed ? found->second.stream.get() : nullptr;
}

bool failsToRead() {
  if (session == nullptr || session->has("dead-reads")) return true;
  std::size_t& left = session->faults["reads"];
  if (left == 0) return false;
  --left;
  return true;
}

// How many of the bytes the device takes.
std::size_t takenOf(std::size_t size) {
  if (session->has("short")) size = std::min(size, session->faults["short"]);
  if (session->has("full")) {
    size = std::min(size, session->faults["full"]);
    session->faults["full"] -= size;
  }
  return size;
}

}  // namespace

extern "C" {

Result CeRapiInitEx(InitRecord* record) {
  log("CeRapiInitEx ", record->size);
  if (record->size != sizeof(InitRecord) || session != nullptr || Session().has("no-start")) return -1;
  session = std::make_unique<Session>();
  if (session->has("no-event")) return 0;
  session->event = eventfd(0, EFD_CLOEXEC);
  record->event = session->event;
  if (session->has("no-signal")) return 0;
  if (session->has("closed-event")) {
    record->event = 1 << 20;
    return 0;
  }
  session->signaller = std::jthread([record, event = session->event, result = session->has("failed") ? -7 : 0] {
    record->result = result;
    isUp = result == 0;
    eventfd_write(event, 1);
  });
  return 0;
}

Result CeRapiUninit() {
  log("CeRapiUninit");
  session.reset();
  isUp = false;
  return 0;
}

Handle CeCreateFile(WideText path, Dword access, Dword sharing, void* security, Dword disposition, Dword attributes,
                    Handle pattern) {
  const Handle handle = openFile(path, access, disposition);
  log("CeCreateFile ", narrow(path), " ", access >> 30U, " ", sharing, " ", disposition, " ", attributes,
      security == nullptr && pattern == 0 ? "" : " unknown", handle == kInvalidHandle ? " no" : " yes");
  return handle;
}

Bool CeReadFile(Handle file, void* buffer, Dword size, Dword* count, void* /*overlapped*/) {
  std::fstream* stream = find(file, kGenericRead);
  *count = 0;
  const bool fails = stream == nullptr || failsToRead();
  if (!fails) {
    stream->clear();
    stream->read(static_cast<char*>(buffer), size);
    *count = static_cast<Dword>(stream->gcount());
  }
  log("CeReadFile ", fails ? "failed" : std::to_string(*count));
  return fails ? 0 : 1;
}

Bool CeWriteFile(Handle file, const void* bytes, Dword size, Dword* count, void* /*overlapped*/) {
  std::fstream* stream = find(file, kGenericWrite);
  *count = 0;
  if (stream == nullptr) return 0;
  *count = static_cast<Dword>(takenOf(size));
  stream->clear();
  // The stream would otherwise write where it has buffered up to.
  stream->seekp(stream->tellg());
  stream->write(static_cast<const char*>(bytes), static_cast<std::streamsize>(*count)).flush();
  log("CeWriteFile ", size, " ", *count);
  return 1;
}

Bool CeCloseHandle(Handle file) {
  const bool isOpen = isUp && session->files.erase(file) == 1;
  log("CeCloseHandle ", isOpen ? "yes" : "no");
  return isOpen ? 1 : 0;
}

Bool CeDeleteFile(WideText path) {
  const bool isDone = isUp && fs::is_regular_file(devicePath(path)) && fs::remove(devicePath(path));
  log("CeDeleteFile ", narrow(path), isDone ? " yes" : " no");
  return isDone ? 1 : 0;
}

Handle CeFindFirstFile(WideText pattern, FindRecord* found) {
  log("CeFindFirstFile ", narrow(pattern));
  if (!isUp) return kInvalidHandle;
  const fs::path path = devicePath(pattern);
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(path.parent_path(), ignored)) {
    if (!qvn::devices::matchesWildcard(entry.path().filename().u16string(), path.filename().u16string())) continue;
    const std::uint64_t size = entry.is_regular_file() ? entry.file_size() : 0;
    found->sizeHigh = static_cast<Dword>(size >> 32U);
    found->sizeLow = static_cast<Dword>(size);
    session->searches.insert(++session->last);
    return session->last;
  }
  return kInvalidHandle;
}

Bool CeFindClose(Handle search) {
  log("CeFindClose");
  return isUp && session->searches.erase(search) == 1 ? 1 : 0;
}

Bool CeCreateProcess(WideText program, WideText commandLine, void* processSecurity, void* threadSecurity,
                     Bool inheritsHandles, Dword flags, void* environment, WideText folder, void* startup,
                     void* process) {
  const bool isPlain = processSecurity == nullptr && threadSecurity == nullptr && inheritsHandles == 0 && flags == 0 &&
                       environment == nullptr && folder == nullptr && startup == nullptr && process == nullptr;
  log("CeCreateProcess ", narrow(program), "|", narrow(commandLine), isPlain ? "" : " with options");
  return isUp && fs::is_regular_file(devicePath(program)) ? 1 : 0;
}

Bool CeGetVersionEx(VersionRecord* version) {
  if (!isUp || session->has("no-version") || version->size != sizeof(VersionRecord)) return 0;
  version->major = 5;
  version->minor = 1;
  version->build = 1700;
  version->platform = 3;
  // "Edición" in code page 1252, and rubbish behind its end.
  static constexpr char kText[] = "Edici\xF3n 2\0rubbish";
  std::memcpy(version->servicePack.data(), kText, sizeof(kText));
  return 1;
}
}
