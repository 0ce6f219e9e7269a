#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "qvn/automation/channel.h"
#include "qvn/base/runtime_error.h"

namespace qvn::automation {
namespace {

class DescriptorChannel final : public LineChannel {
 public:
  DescriptorChannel(int input, int output, std::size_t longestLine)
      : input_(input), output_(output), longestLine_(longestLine) {}

  Received read(std::string& line) override {
    line.clear();
    bool isTooLong = false;
    while (true) {
      const char* begin = buffer_.data() + begin_;
      const auto* end = static_cast<const char*>(std::memchr(begin, '\n', end_ - begin_));
      const std::size_t length = end == nullptr ? end_ - begin_ : static_cast<std::size_t>(end - begin);
      isTooLong = isTooLong || line.size() + length > longestLine_;
      if (isTooLong) {
        std::string().swap(line);
      } else {
        line.append(begin, length);
      }
      begin_ += length + (end == nullptr ? 0U : 1U);
      if (end != nullptr) break;
      if (!fill()) {
        if (line.empty() && !isTooLong) return Received::End;
        break;
      }
    }
    if (isTooLong) return Received::TooLong;
    if (line.ends_with('\r')) line.pop_back();
    return Received::Line;
  }

  void write(std::string_view line) override {
    pending_.append(line).push_back('\n');
    if (pending_.size() >= kWrittenAtOnce) flush();
  }

  void flush() override {
    std::string_view rest = pending_;
    while (!rest.empty()) {
      const ssize_t written = ::write(output_, rest.data(), rest.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) fail("escribir al programa que llama");
      rest.remove_prefix(static_cast<std::size_t>(written));
    }
    pending_.clear();
  }

 private:
  static constexpr std::size_t kWrittenAtOnce = 65536;

  // False at the end.
  bool fill() {
    flush();
    while (true) {
      const ssize_t got = ::read(input_, buffer_.data(), buffer_.size());
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) fail("leer del programa que llama");
      begin_ = 0;
      end_ = static_cast<std::size_t>(got);
      return got > 0;
    }
  }

  [[noreturn]] static void fail(const std::string& step) {
    throw RuntimeError(error_number::kDeviceError, "No se pudo " + step + ": " + std::strerror(errno));
  }

  int input_;
  int output_;
  std::size_t longestLine_;
  std::array<char, 65536> buffer_{};
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::string pending_;
};

}  // namespace

std::unique_ptr<LineChannel> descriptorChannel(int input, int output, std::size_t longestLine) {
  return std::make_unique<DescriptorChannel>(input, output, longestLine);
}

}  // namespace qvn::automation
