#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "qvn/devices/rapi/event_wait.h"

namespace qvn::devices::rapi {

bool waitUntilReadable(int descriptor, std::chrono::milliseconds wait) {
  using Clock = std::chrono::steady_clock;
  using std::chrono::milliseconds;
  constexpr milliseconds kLongest{std::numeric_limits<int>::max()};
  if (descriptor < 0) return false;
  const Clock::time_point end = Clock::now() + std::clamp(wait, milliseconds{0}, kLongest);
  for (;;) {
    pollfd event{.fd = descriptor, .events = POLLIN, .revents = 0};
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    const int count = poll(&event, 1, static_cast<int>(std::clamp(left, milliseconds{0}, kLongest).count()));
    if (count >= 0 || errno != EINTR) return count > 0 && (event.revents & POLLIN) != 0;
  }
}

}  // namespace qvn::devices::rapi
