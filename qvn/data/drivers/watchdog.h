// Ends a statement that takes too long, for engines whose libraries wait without a limit of their own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace qvn::data {

/// Calls `cancel` from a thread of its own when the time given to a watch is over, and `breakOff` when the engine has
/// not even answered that after a grace. The thread starts with the first watch, and sleeps through the watches that
/// end in time: they cost a lock each.
class Watchdog {
 public:
  /// Time for the answer of a cancelled statement.
  static constexpr std::chrono::seconds kGrace{5};

  /// `cancel` tells the engine to end the statement that runs; `breakOff` closes the connection under it, for engines
  /// that can be left without an answer. Both must be harmless when the statement has just ended, and are never called
  /// after the watch is over.
  explicit Watchdog(
      std::function<void()> cancel, std::function<void()> breakOff = [] {})
      : cancel_(std::move(cancel)), breakOff_(std::move(breakOff)) {}
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
    /// True when the connection was closed under it.
    [[nodiscard]] bool wasBrokenOff() const;

   private:
    Watchdog* dog_;  // null without a limit
  };

 private:
  using Clock = std::chrono::steady_clock;

  void run(const std::stop_token& stop);

  // How far the statement was ended.
  enum class Stage { Running, Cancelled, BrokenOff };

  [[nodiscard]] Stage stage() const;
  void advance();

  std::function<void()> cancel_;
  std::function<void()> breakOff_;
  mutable std::mutex guard_;
  std::condition_variable_any changed_;
  Clock::time_point deadline_ = Clock::time_point::max();  // of the watch in force
  Clock::time_point wake_ = Clock::time_point::max();      // when the thread looks again by itself
  Stage stage_ = Stage::Running;
  std::jthread thread_;
};

}  // namespace qvn::data
