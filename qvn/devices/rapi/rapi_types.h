// What a remote access library exports: the functions, in C linkage and by these names, and the records that they share
// with their caller. All numbers have the machine's byte order; docs/handheld.md shows the records byte by byte.
//
// A library may include this header; it needs nothing else of this one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qvn::devices::rapi {

using Bool = std::int32_t;         ///< 0 is False, everything else True
using Dword = std::uint32_t;       ///< an unsigned number of 32 bits
using Handle = std::int32_t;       ///< of a file or of a search; kInvalidHandle instead of one that could not be made
using Result = std::int32_t;       ///< negative for a failure
using WideText = const char16_t*;  ///< UTF-16, up to a NUL

inline constexpr Handle kInvalidHandle = -1;

/// How far a session came, shared between the caller and the library.
///
/// The caller fills in `size`, kNoEvent and 0 and keeps the record where it is until CeRapiUninit returns. CeRapiInitEx
/// comes back at once. It puts a descriptor into `event` that poll(2) shows as readable (POLLIN) from the moment the
/// session is up or has failed: an eventfd or the reading end of a pipe. The library writes `result` before, also from
/// another thread, and closes the descriptor in CeRapiUninit. The caller only waits for it and reads nothing from it.
struct InitRecord {
  Dword size;          ///< cbSize: 12
  std::int32_t event;  ///< heRapiInit: the descriptor
  Result result;       ///< hrRapiInit: how the session went; negative when it failed
};
inline constexpr std::int32_t kNoEvent = -1;
static_assert(sizeof(InitRecord) == 12 && offsetof(InitRecord, event) == 4 && offsetof(InitRecord, result) == 8);

/// The device's system. The caller fills in `size`.
struct VersionRecord {
  Dword size;  ///< dwOSVersionInfoSize: 148
  Dword major;
  Dword minor;
  Dword build;
  Dword platform;
  std::array<char, 128> servicePack;  ///< code page 1252, up to a NUL
};
static_assert(sizeof(VersionRecord) == 148 && offsetof(VersionRecord, servicePack) == 20);

/// A moment in units of 100 nanoseconds since 1601.
struct FileTime {
  Dword low;
  Dword high;
};

/// What a search found.
struct FindRecord {
  Dword attributes;
  FileTime created;
  FileTime accessed;
  FileTime written;
  Dword sizeHigh;  ///< of the file's bytes
  Dword sizeLow;
  Dword objectId;
  std::array<char16_t, 260> name;  ///< up to a NUL
};
static_assert(sizeof(FindRecord) == 560 && offsetof(FindRecord, sizeHigh) == 28 && offsetof(FindRecord, name) == 40);

// Of CeCreateFile.
inline constexpr Dword kGenericRead = 0x80000000;
inline constexpr Dword kGenericWrite = 0x40000000;
inline constexpr Dword kNoSharing = 0;
inline constexpr Dword kCreateNew = 1;
inline constexpr Dword kOpenExisting = 3;
inline constexpr Dword kNormalAttributes = 128;

/// Pointers to the functions. Pointers for which this side has nothing to give are null.
struct Functions {
  Result (*CeRapiInitEx)(InitRecord* record);
  Result (*CeRapiUninit)();
  Handle (*CeCreateFile)(WideText path, Dword access, Dword sharing, void* security, Dword disposition,
                         Dword attributes, Handle pattern);
  Bool (*CeReadFile)(Handle file, void* buffer, Dword size, Dword* count, void* overlapped);
  Bool (*CeWriteFile)(Handle file, const void* bytes, Dword size, Dword* count, void* overlapped);
  Bool (*CeCloseHandle)(Handle file);
  Bool (*CeDeleteFile)(WideText path);
  Handle (*CeFindFirstFile)(WideText pattern, FindRecord* found);
  Bool (*CeFindClose)(Handle search);
  Bool (*CeCreateProcess)(WideText program, WideText commandLine, void* processSecurity, void* threadSecurity,
                          Bool inheritsHandles, Dword flags, void* environment, WideText folder, void* startup,
                          void* process);
  Bool (*CeGetVersionEx)(VersionRecord* version);
};

}  // namespace qvn::devices::rapi
