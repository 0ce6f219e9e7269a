// A file of this machine, read or written by position.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace qvn::devices {

/// Failures are RuntimeError with the file's own numbers, see qvn/host/file_error.h. The destructor closes and ignores
/// a failure.
class LocalFile {
 public:
  /// Opens a file that exists. Throws 53, 76 when it or its folder is not there, 70 for a folder or without permission.
  static LocalFile forReading(std::string_view path);
  /// Opens or creates a file for writing; what it holds stays. Throws as forReading does.
  static LocalFile forUpdate(std::string_view path);
  ~LocalFile();
  LocalFile(LocalFile&& other) noexcept;
  LocalFile(const LocalFile&) = delete;
  LocalFile& operator=(const LocalFile&) = delete;
  LocalFile& operator=(LocalFile&&) = delete;

  /// Bytes in the file.
  [[nodiscard]] std::int64_t size() const;
  /// Fills the whole buffer from `offset` on. Throws 62 when the file ends before.
  void readAt(std::int64_t offset, std::span<char> buffer) const;
  /// Writes all bytes from `offset` on.
  void writeAt(std::int64_t offset, std::span<const char> bytes) const;
  /// Throws when the system could not keep what was written; the file is closed all the same.
  void close();

 private:
  LocalFile(std::string_view path, int flags);
  [[noreturn]] void fail(std::string_view verb) const;

  std::string path_;
  int descriptor_;
};

}  // namespace qvn::devices
