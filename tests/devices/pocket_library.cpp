// A remote access library whose device is a folder, for the tests. By the environment, read when a session begins:
//
//   POCKET_FOLDER  the device's files
//   POCKET_LOG     a line for each call is appended here: its name, its arguments, what it gave
//   POCKET_FAULTS  words: no-start, no-event, no-signal, closed-event, failed (the session fails),
//                  reads=N (the next N reads fail), dead-reads (all reads fail), late=N (failed reads give N bytes all
//                  the same), short=N (a write takes N bytes at the most), full=N (the device takes N bytes in all;
//                  then writes succeed with 0), no-version
#include <sys/eventfd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <thread>

#include "qvn/devices/folder/folder_files.h"
#include "qvn/devices/folder/folder_link.h"
#include "qvn/devices/rapi/rapi_types.h"
#include "qvn/devices/wide_text.h"

namespace {

using namespace qvn::devices;
using namespace qvn::devices::rapi;

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// Everything between CeRapiInitEx and CeRapiUninit.
struct Session {
  FolderLink files{variable("POCKET_FOLDER")};  // has no session of its own until this one is up
  Descriptor event{eventfd(0, EFD_CLOEXEC)};
  std::jthread signaller = {};
};

std::unique_ptr<Session> session;
std::map<std::string, std::size_t> faults;

bool has(const std::string& fault) { return faults.contains(fault); }

void readFaults() {
  faults.clear();
  std::istringstream words(variable("POCKET_FAULTS"));
  for (std::string word; words >> word;) {
    const std::size_t equal = word.find('=');
    faults[word.substr(0, equal)] = equal == std::string::npos ? 1 : std::stoul(word.substr(equal + 1));
  }
}

DeviceLink& device() {
  static FolderLink none("");
  return session ? session->files : none;
}

template <typename... Parts>
void log(const Parts&... parts) {
  std::ofstream file(variable("POCKET_LOG"), std::ios::app);
  ((file << parts), ...) << '\n';
}

template <typename... Parts>
Bool answer(bool isDone, const Parts&... call) {
  log(call..., isDone ? " yes" : " no");
  return isDone ? 1 : 0;
}

bool failsToRead() {
  if (has("dead-reads")) return true;
  std::size_t& left = faults["reads"];
  return left > 0 && left-- > 0;
}

// How many of the bytes the device takes.
std::size_t takenOf(std::size_t size) {
  if (has("short")) size = std::min(size, faults["short"]);
  if (has("full")) {
    size = std::min(size, faults["full"]);
    faults["full"] -= size;
  }
  return size;
}

}  // namespace

extern "C" {

Result CeRapiInitEx(InitRecord* record) {
  log("CeRapiInitEx ", record->size);
  readFaults();
  if (record->size != sizeof(InitRecord) || session != nullptr || has("no-start")) return -1;
  session = std::make_unique<Session>();
  if (has("no-event")) return 0;
  record->event = has("closed-event") ? 1 << 20 : session->event.number();
  if (has("no-signal") || has("closed-event")) return 0;
  session->signaller = std::jthread([record, own = session.get(), result = has("failed") ? -7 : 0] {
    record->result = result;
    if (result == 0) own->files.initialise({});
    eventfd_write(own->event.number(), 1);
  });
  return 0;
}

Result CeRapiUninit() {
  log("CeRapiUninit");
  session.reset();
  return 0;
}

Handle CeCreateFile(WideText path, Dword access, Dword sharing, void* security, Dword disposition, Dword attributes,
                    Handle pattern) {
  // The two bits stand for the opposite numbers.
  const auto wanted = access == kGenericRead    ? FileAccess::Read
                      : access == kGenericWrite ? FileAccess::Write
                                                : FileAccess::ReadWrite;
  const auto file =
      device().open(path, wanted, disposition == kCreateNew ? Disposition::CreateNew : Disposition::OpenExisting);
  log("CeCreateFile ", fromWide(path), " ", access >> 30U, " ", sharing, " ", disposition, " ", attributes,
      security == nullptr && pattern == 0 ? "" : " unknown", file == kNoFile ? " no" : " yes");
  return static_cast<Handle>(file);
}

Bool CeReadFile(Handle file, void* buffer, Dword size, Dword* count, void* /*overlapped*/) {
  const bool fails = failsToRead();
  const std::size_t wanted = fails ? faults["late"] : size;
  const ReadOutcome outcome = device().read(DeviceHandle{file}, {static_cast<char*>(buffer), wanted});
  *count = static_cast<Dword>(outcome.count);
  const bool succeeds = outcome.succeeded && !fails;
  log("CeReadFile ", size, " ", succeeds ? std::to_string(*count) : "failed");
  return succeeds ? 1 : 0;
}

Bool CeWriteFile(Handle file, const void* bytes, Dword size, Dword* count, void* /*overlapped*/) {
  *count = static_cast<Dword>(device().write(DeviceHandle{file}, {static_cast<const char*>(bytes), takenOf(size)}));
  log("CeWriteFile ", size, " ", *count);
  return 1;
}

Bool CeCloseHandle(Handle file) { return answer(device().close(DeviceHandle{file}), "CeCloseHandle"); }

Bool CeDeleteFile(WideText path) { return answer(device().remove(path), "CeDeleteFile ", fromWide(path)); }

Handle CeFindFirstFile(WideText pattern, FindRecord* record) {
  log("CeFindFirstFile ", fromWide(pattern));
  const auto found = device().findFirst(pattern);
  if (!found) return kInvalidHandle;
  record->sizeHigh = static_cast<Dword>(found->size >> 32U);
  record->sizeLow = static_cast<Dword>(found->size);
  return static_cast<Handle>(found->search);
}

Bool CeFindClose(Handle search) { return answer(device().findClose(SearchHandle{search}), "CeFindClose"); }

Bool CeCreateProcess(WideText program, WideText commandLine, void* processSecurity, void* threadSecurity,
                     Bool inheritsHandles, Dword flags, void* environment, WideText folder, void* startup,
                     void* process) {
  const bool isPlain = processSecurity == nullptr && threadSecurity == nullptr && inheritsHandles == 0 && flags == 0 &&
                       environment == nullptr && folder == nullptr && startup == nullptr && process == nullptr;
  return answer(device().findFirst(program).has_value(), "CeCreateProcess ", fromWide(program), "|",
                fromWide(commandLine), isPlain ? "" : " with options");
}

#ifndef POCKET_LACKS_VERSION
Bool CeGetVersionEx(VersionRecord* version) {
  if (!device().version() || has("no-version") || version->size != sizeof(VersionRecord)) return 0;
  version->major = 5;
  version->minor = 1;
  version->build = 1700;
  version->platform = 3;
  // "Edición" in code page 1252, and rubbish behind its end.
  static constexpr char kText[] = "Edici\xF3n 2\0rubbish";
  std::memcpy(version->servicePack.data(), kText, sizeof(kText));
  return 1;
}
#endif
}
