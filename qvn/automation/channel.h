// Lines between the bridge and its host.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace qvn::automation {

/// Adapters: standard input and output, and lines prepared in advance for tests.
class LineChannel {
 public:
  enum class Received { Line, TooLong, End };

  virtual ~LineChannel() = default;
  /// Waits for the next line and gives it without its end (LF or CR LF); a last line may lack its end. What was written
  /// reaches the host before the wait. Of a line longer than the channel takes nothing is kept, and the next call gives
  /// the line behind it. Throws RuntimeError 57 when reading fails.
  virtual Received read(std::string& line) = 0;
  /// Takes a line, which is given without its end, for the host; see flush.
  virtual void write(std::string_view line) = 0;
  /// What was written reaches the host now. Throws RuntimeError 57 when nobody takes it any more.
  virtual void flush() = 0;
};

/// Over two open descriptors, which stay the caller's. Lines of more than `longestLine` bytes are too long.
std::unique_ptr<LineChannel> descriptorChannel(int input, int output, std::size_t longestLine);

}  // namespace qvn::automation
