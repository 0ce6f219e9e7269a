#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include "apps/qvn/output.h"
#include "qvn/base/runtime_error.h"

namespace qvn::cli {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{64} * 1024;
constexpr std::int32_t kPathAccessError = 75;

std::string systemWords(int code) { return std::generic_category().message(code); }

}  // namespace

Output& Output::operator<<(std::string_view text) {
  if (buffer_.size() + text.size() > kBufferBytes) flush();
  if (text.size() > kBufferBytes) {
    writeAll(text);
  } else {
    buffer_.append(text);
  }
  return *this;
}

void Output::flush() {
  // Emptied first: what could not be written once is not tried again.
  const std::string pending = std::exchange(buffer_, {});
  writeAll(pending);
}

bool Output::isTerminal() const { return ::isatty(descriptor_) == 1; }

std::optional<std::size_t> Output::terminalColumns() const {
  winsize size{};
  if (::ioctl(descriptor_, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
    return std::nullopt;
  }
  return size.ws_col;
}

void Output::writeAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      const int code = errno;
      if (onFailure_ == OnFailure::Ignore) return;
      if (code == EPIPE) throw OutputClosed();
      throw OutputFailed(systemWords(code));
    }
  }
}

std::string readStandardInput() {
  std::string text;
  std::array<char, kBufferBytes> part{};
  while (true) {
    const ssize_t count = ::read(STDIN_FILENO, part.data(), part.size());
    if (count == 0) return text;
    if (count > 0) {
      text.append(part.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      throw RuntimeError(kPathAccessError, "No se pudo leer la entrada estándar: " + systemWords(errno));
    }
  }
}

bool isInputTerminal() { return ::isatty(STDIN_FILENO) == 1; }

void surviveBrokenPipes() {
  // A handler, because programs that are started later inherit an ignored signal but not a handled one.
  struct sigaction action {};
  action.sa_handler = [](int) {};
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGPIPE, &action, nullptr);
  // Likewise a file that may not grow any more.
  ::sigaction(SIGXFSZ, &action, nullptr);
}

}  // namespace qvn::cli
