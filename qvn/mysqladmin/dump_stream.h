// Where the bytes of a dump go to and come from: a file, or a compressor in front of one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace qvn::mysqladmin {

class DumpSink {
 public:
  virtual ~DumpSink() = default;
  /// Throws RuntimeError when the bytes cannot be stored; later calls may be tried all the same.
  virtual void write(std::string_view bytes) = 0;
  /// Writes what is still held back, waits until the disk has it, and closes. Called once; without it the end of what
  /// was written may be missing. Throws RuntimeError.
  virtual void finish() = 0;
};
using DumpSinkPtr = std::unique_ptr<DumpSink>;

class DumpSource {
 public:
  virtual ~DumpSource() = default;
  /// Fills the front of `room`, which is not empty, and returns how many bytes; 0 at the end only. Throws RuntimeError,
  /// also for a compressed file that is damaged or ends too soon.
  virtual std::size_t read(std::span<char> room) = 0;
  /// Bytes taken from the file so far, and its length; 0 for what has none, as a pipe.
  [[nodiscard]] virtual std::int64_t taken() const = 0;
  [[nodiscard]] virtual std::int64_t length() const = 0;
};
using DumpSourcePtr = std::unique_ptr<DumpSource>;

}  // namespace qvn::mysqladmin
