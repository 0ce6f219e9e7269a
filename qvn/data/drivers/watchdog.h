// Ends a statement that takes too long, for engines whose libraries wait without a limit of their own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace qvn::data {

/// Calls `cancel` from a thread of its own when the time given to a watch is over. The thread starts with the first
/// watch, and sleeps through the watches that end in time: they cost a lock each.
class Watchdog {
 public:
  /// `cancel` tells the engine to end the statement that runs; it must be harmless when that has just ended, and is
  /// never called after the watch is over.
  explicit Watchdog(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  /// Watches over one statement, until the object is gone. One at a time.
  class Watch {
   public:
    /// A limit of zero never ends.
    Watch(Watchdog& dog, std::chrono::seconds limit);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// True when the statement was told to end.
    [[nodiscard]] bool wasCancelled() const;

   private:
    Watchdog* dog_;  // null without a limit
  };

 private:
  using Clock = std::chrono::steady_clock;

  void run(const std::stop_token& stop);

  std::function<void()> cancel_;
  mutable std::mutex guard_;
  std::condition_variable_any changed_;
  Clock::time_point deadline_ = Clock::time_point::max();  // of the watch in force
  Clock::time_point wake_ = Clock::time_point::max();      // when the thread looks again by itself
  bool wasCancelled_ = false;
  std::jthread thread_;
};

}  // namespace qvn::data
