// What a handheld device offers to this machine, whatever carries it there.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qvn::devices {

/// An open file of the device.
enum class DeviceHandle : std::int32_t {};
/// A search on the device.
enum class SearchHandle : std::int32_t {};

/// Instead of the handle of a file that could not be opened.
inline constexpr DeviceHandle kNoFile{-1};

/// How far a session came.
enum class SessionStart {
  NotStarted,  ///< nothing was begun
  NotReady,    ///< begun, but the device refused or was not there in time; uninitialise() is owed
  Ready,
};

enum class FileAccess { Read = 1, Write = 2, ReadWrite = 3 };
enum class Disposition {
  OpenExisting,
  CreateNew,  ///< fails, and changes nothing, when there is a file or folder of that name
};

/// What one read gave. It may have failed and given bytes all the same.
struct ReadOutcome {
  bool succeeded = false;
  std::size_t count = 0;
};

struct DeviceVersion {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::uint32_t platform = 0;
  std::string servicePack;  ///< UTF-8; what stands behind its first NUL means nothing
};

/// What a search found first.
struct Found {
  SearchHandle search;
  std::uint64_t size = 0;  ///< bytes of the file; 0 for a folder
};

/// A session with one device. Everything is synchronous on the caller's thread, and a link is used by one thread at a
/// time. Texts are UTF-16 without NUL. Paths begin at the device's root, "\" stands between their names.
///
/// A failure is told by the result alone; only initialise() throws. Without a session, which is before initialise() and
/// after uninitialise(), every operation fails and the device is left alone. Handles end with their session; one that
/// is not open makes the operation fail. The destructor ends the session.
class DeviceLink {
 public:
  DeviceLink() = default;
  virtual ~DeviceLink() = default;
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

  /// Begins a session and waits for the device, `wait` at the most. During a session it may begin anew or be
  /// NotStarted, which leaves the session in force.
  /// @throws RuntimeError  what the link itself needs is not there; nothing was begun
  virtual SessionStart initialise(std::chrono::milliseconds wait) = 0;
  /// Ends what initialise() began, ready or not; does nothing when nothing was begun.
  virtual void uninitialise() = 0;

  /// Opens a file that nobody else has open, and for nobody else to open, with normal attributes. kNoFile on failure.
  virtual DeviceHandle open(std::u16string_view path, FileAccess access, Disposition disposition) = 0;
  /// Reads from where the last read or write ended into the beginning of `buffer`. At the end of the file it succeeds
  /// with 0 bytes, and with bytes it may give fewer than fit.
  virtual ReadOutcome read(DeviceHandle file, std::span<char> buffer) = 0;
  /// Writes where the last read or write ended. Gives the bytes that the device took from the beginning of `bytes`,
  /// which may be fewer than given; 0 when it took none, for whatever reason.
  virtual std::size_t write(DeviceHandle file, std::span<const char> bytes) = 0;
  virtual bool close(DeviceHandle file) = 0;
  /// Deletes a file, not a folder.
  virtual bool remove(std::u16string_view path) = 0;

  /// Looks for files and folders; the last name of the path may hold "*" and "?". Nothing when there is none.
  virtual std::optional<Found> findFirst(std::u16string_view pattern) = 0;
  virtual bool findClose(SearchHandle search) = 0;

  /// Starts a program with a command line and does not wait for it. False when it was not started.
  virtual bool createProcess(std::u16string_view program, std::u16string_view commandLine) = 0;

  /// Nothing when the device does not answer.
  virtual std::optional<DeviceVersion> version() = 0;
};
using DeviceLinkPtr = std::shared_ptr<DeviceLink>;

/// The link where there is no device: sessions do not start and every operation fails.
DeviceLinkPtr noDeviceLink();

}  // namespace qvn::devices
