#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "qvn/data/drivers/mysql/answer_wait.h"

namespace qvn::data::mysql {
namespace {

// Time for the answer of a cancelled statement.
constexpr std::chrono::seconds kGrace{5};

// Far below where a clock's count of nanoseconds overflows.
constexpr std::chrono::seconds kLongestTimeout = std::chrono::hours(24 * 365);

// Milliseconds for poll(): rounded up, so that the deadline has passed when it returns; -1 waits for ever.
int pollTime(const std::optional<std::chrono::steady_clock::time_point>& deadline) {
  if (!deadline) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

}  // namespace

AnswerWait::AnswerWait(const MysqlLink& link, std::chrono::seconds timeout) : link_(link) {
  if (timeout > std::chrono::seconds::zero()) deadline_ = Clock::now() + std::min(timeout, kLongestTimeout);
}

int AnswerWait::wait(int events) noexcept {
  pollfd socket{mysql_get_socket(link_.handle()), 0, 0};
  if ((events & MYSQL_WAIT_READ) != 0) socket.events |= POLLIN;
  if ((events & MYSQL_WAIT_WRITE) != 0) socket.events |= POLLOUT;
  for (;;) {
    const int ready = poll(&socket, 1, pollTime(deadline_));
    if (ready > 0) break;
    // Nothing came, or a signal interrupted the wait; any other failure is for the call that waits to find.
    if (ready < 0 && errno != EINTR) return events;
    if (deadline_ && Clock::now() >= *deadline_) runOutOfTime();
  }
  int came = 0;
  if ((socket.revents & POLLIN) != 0) came |= MYSQL_WAIT_READ;
  if ((socket.revents & POLLOUT) != 0) came |= MYSQL_WAIT_WRITE;
  return came != 0 ? came : events;  // an error or the other side's end: whatever the call tries will tell it
}

void AnswerWait::runOutOfTime() noexcept {
  const bool isFirst = !timedOut_;
  timedOut_ = true;
  if (isFirst && link_.cancelStatement()) {
    deadline_ = Clock::now() + kGrace;
  } else {
    link_.breakOff();
    wasBrokenOff_ = true;
    deadline_.reset();
  }
}

}  // namespace qvn::data::mysql
