// Files and programs of a handheld device, over whatever link leads there.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "qvn/devices/device_link.h"

namespace qvn::devices {

/// How long Connect waits for the device.
inline constexpr std::chrono::milliseconds kConnectionWait{10000};
/// Bytes that a copy asks of the device, or gives to it, at a time.
inline constexpr std::size_t kBlockSize = 2048;

struct CopyProgress {
  std::int64_t bytes = 0;        ///< copied so far
  std::int64_t failedReads = 0;  ///< how often in a row the device refused to be read
};

/// Called behind each block and each failed read; false ends the copy, whose result is then false.
using CopyObserver = std::function<bool(const CopyProgress& at)>;

/// The operations of QvnMobile. Device paths go to the device as UTF-16; one that holds a NUL names no file.
///
/// A failure is told by the result alone, with one exception: what is wrong with the file of this machine is a
/// RuntimeError with the file's own number (53, 70, 76, 61, ...; see qvn/host/file_error.h).
class WindowsCe {
 public:
  /// The link must live as long as this object.
  explicit WindowsCe(DeviceLink& link) : link_(link) {}

  /// Begins a session and waits for the device. What was begun in vain is ended again; an error is false as well.
  bool Connect(std::chrono::milliseconds wait = kConnectionWait) const;

  /// Copies a device file, in reads of 2048 bytes, the last of which gives none. The local file is created, or
  /// overwritten from its beginning: the rest of one that was longer stays. It is not touched when the device file
  /// cannot be opened (false).
  ///
  /// A read that fails without bytes is tried again without end, so that a device in trouble can hold the caller for
  /// ever; an observer can end that.
  bool CopyFileFromPocket(std::string_view SourceFile, std::string_view DestinyFile,
                          const CopyObserver& observe = nullptr) const;

  /// Copies a local file, in its length at the beginning, to a device file that must not exist yet (false, and the
  /// device file stays as it is). Blocks of 2048 bytes are written, each from where the bytes that the device took
  /// end; of an empty file none. False when the device takes no byte of a block: what it took before stays there, as
  /// it does when the local file cannot be read to its end, which is a RuntimeError.
  bool CopyFileToPocket(std::string_view SourceFile, std::string_view DestinyFile,
                        const CopyObserver& observe = nullptr) const;

  /// Ends the session.
  void Disconnect() const;

  /// "5.1.1700 " and the service pack's name, so that a blank ends the text of a device without one. "" without answer.
  [[nodiscard]] std::string Version() const;
  /// Whether the device tells its version.
  [[nodiscard]] bool IsConnected() const;

  bool DeleteFileFromPocket(std::string_view path) const;
  /// Whether a file or folder of the device has that name; the last name may hold "*" and "?".
  [[nodiscard]] bool ExistFileOnPocket(std::string_view path) const;
  /// Bytes of the file that ExistFileOnPocket finds, 0 for a folder; nothing when it finds none.
  [[nodiscard]] std::optional<std::uint64_t> sizeOnPocket(std::string_view path) const;

  /// Starts a program of the device and does not wait for it. Unlike paths, both texts pass through code page 1252:
  /// characters outside of it reach the device as "?".
  bool ceCommand(std::string_view strProcess, std::string_view strParameters) const;

 private:
  DeviceLink& link_;
};

}  // namespace qvn::devices
