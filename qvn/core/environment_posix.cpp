#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "qvn/core/environment.h"

namespace qvn::core {
namespace {

constexpr std::size_t kComputerNameLimit = 200;

std::string accountName() {
  constexpr std::size_t kLargestBuffer = 1U << 20U;
  passwd account{};
  passwd* found = nullptr;
  // A directory service may need more room than the first guess.
  for (std::vector<char> buffer(1024); buffer.size() <= kLargestBuffer; buffer.resize(buffer.size() * 2)) {
    const int failure = getpwuid_r(geteuid(), &account, buffer.data(), buffer.size(), &found);
    if (failure == ERANGE || failure == EINTR) continue;
    return found == nullptr ? std::string() : std::string(found->pw_name);
  }
  return {};
}

}  // namespace

std::string GetUserNameW() {
  if (std::string name = accountName(); !name.empty()) return name;
  for (const char* variable : {"USER", "LOGNAME"}) {
    if (const char* name = std::getenv(variable); name != nullptr && *name != '\0') return name;
  }
  return {};
}

double OsVersion() {
  utsname system{};
  return uname(&system) < 0 ? 0 : osVersionOf(system.release);
}

bool IsDevEnv() {
  std::error_code failure;  // without the process file system the module has no name that would match
  return isDevelopmentHost(std::filesystem::read_symlink("/proc/self/exe", failure).native());
}

std::string getMyName() {
  std::array<char, kComputerNameLimit> buffer{};
  // A name that does not fit is reported as a failure, with the buffer filled as far as it goes.
  static_cast<void>(gethostname(buffer.data(), buffer.size()));
  return std::string(untilNul({buffer.data(), buffer.size()}));
}

}  // namespace qvn::core
