#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "qvn/data/drivers/persist/system_file.h"

namespace qvn::data::persist {
namespace {

std::error_code lastFailure() noexcept {
  if (errno == EDQUOT) return std::make_error_code(std::errc::no_space_on_device);
  return {errno, std::generic_category()};
}

template <typename Call>
auto repeatInterrupted(Call call) noexcept {
  auto outcome = call();
  while (outcome < 0 && errno == EINTR) outcome = call();
  return outcome;
}

int makeFile(const std::filesystem::path& path) noexcept {
  constexpr mode_t kAsTheUserMaskSays = 0666;
  return repeatInterrupted(
      [&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kAsTheUserMaskSays); });
}

}  // namespace

SystemFile::SystemFile(const std::filesystem::path& path) : descriptor_(makeFile(path)) {
  if (descriptor_ < 0) failure_ = lastFailure();
}

SystemFile::~SystemFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

void SystemFile::write(std::string_view text) noexcept {
  while (!failure_ && !text.empty()) {
    const auto written = repeatInterrupted([&] { return ::write(descriptor_, text.data(), text.size()); });
    if (written < 0) {
      failure_ = lastFailure();
    } else {
      text.remove_prefix(static_cast<std::size_t>(written));
    }
  }
}

void SystemFile::finish() noexcept {
  if (!failure_ && repeatInterrupted([&] { return fsync(descriptor_); }) < 0) failure_ = lastFailure();
  const int closing = std::exchange(descriptor_, -1);
  // Some file systems tell only now. The descriptor is gone even when the call was interrupted.
  if (closing >= 0 && close(closing) < 0 && errno != EINTR && !failure_) failure_ = lastFailure();
}

}  // namespace qvn::data::persist
