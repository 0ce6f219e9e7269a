// Waiting for a server's answer no longer than a statement may take.
#pragma once

#include <chrono>
#include <optional>

#include "qvn/data/drivers/mysql/mysql_link.h"

namespace qvn::data::mysql {

/// The time allowed for one statement. When it has passed, the statement is cancelled, and the server has a little more
/// time to say so; a server that stays silent even then has its connection broken off. So every wait comes to an end.
class AnswerWait {
 public:
  /// `timeout` counts from now; zero waits for ever.
  AnswerWait(const MysqlLink& link, std::chrono::seconds timeout);

  /// Runs one of the client library's resumable calls to its end: `start(&result)` begins it, `resume(&result, events)`
  /// goes on with it, both giving the events to wait for or 0.
  template <typename Result, typename Start, typename Resume>
  Result run(Start start, Resume resume) {
    Result result{};
    for (int events = start(&result); events != 0;) events = resume(&result, wait(events));
    return result;
  }

  /// True once the time allowed has passed without an answer.
  [[nodiscard]] bool timedOut() const { return timedOut_; }
  /// True once the server did not answer the order to end the statement either.
  [[nodiscard]] bool wasBrokenOff() const { return wasBrokenOff_; }

 private:
  using Clock = std::chrono::steady_clock;

  // Returns those of `events` that have come. A suspended call must be resumed, so nothing may be thrown here.
  int wait(int events) noexcept;
  void runOutOfTime() noexcept;

  const MysqlLink& link_;
  std::optional<Clock::time_point> deadline_;
  bool timedOut_ = false;
  bool wasBrokenOff_ = false;
};

}  // namespace qvn::data::mysql
