#include "qvn/data/drivers/watchdog.h"

namespace qvn::data {

Watchdog::~Watchdog() {
  if (!thread_.joinable()) return;
  thread_.request_stop();
  thread_.join();
}

void Watchdog::run(const std::stop_token& stop) {
  std::unique_lock lock(guard_);
  while (!stop.stop_requested()) {
    // Under the lock, so that the watch cannot end, and the engine's handles go, meanwhile.
    if (deadline_ <= Clock::now()) advance();
    wake_ = deadline_;
    const auto isEarlier = [this] { return deadline_ < wake_; };
    if (wake_ == Clock::time_point::max()) {
      changed_.wait(lock, stop, isEarlier);
    } else {
      changed_.wait_until(lock, stop, wake_, isEarlier);
    }
  }
}

void Watchdog::advance() {
  if (stage_ == Stage::Running) {
    stage_ = Stage::Cancelled;
    cancel_();
    deadline_ = Clock::now() + kGrace;
  } else {
    stage_ = Stage::BrokenOff;
    breakOff_();
    deadline_ = Clock::time_point::max();
  }
}

Watchdog::Stage Watchdog::stage() const {
  const std::lock_guard lock(guard_);
  return stage_;
}

Watchdog::Watch::Watch(Watchdog& dog, std::chrono::seconds limit) : dog_(limit.count() == 0 ? nullptr : &dog) {
  if (dog_ == nullptr) return;
  const auto deadline = Clock::now() + limit;
  bool mustWake = false;
  {
    const std::lock_guard lock(dog.guard_);
    dog.stage_ = Stage::Running;
    dog.deadline_ = deadline;
    // A thread that wakes before the deadline anyway finds it by itself.
    mustWake = deadline < dog.wake_;
    if (!dog.thread_.joinable()) dog.thread_ = std::jthread([&dog](const std::stop_token& stop) { dog.run(stop); });
  }
  if (mustWake) dog.changed_.notify_one();
}

Watchdog::Watch::~Watch() {
  if (dog_ == nullptr) return;
  const std::lock_guard lock(dog_->guard_);
  dog_->deadline_ = Clock::time_point::max();
}

bool Watchdog::Watch::wasCancelled() const { return dog_ != nullptr && dog_->stage() != Stage::Running; }

bool Watchdog::Watch::wasBrokenOff() const { return dog_ != nullptr && dog_->stage() == Stage::BrokenOff; }

}  // namespace qvn::data
