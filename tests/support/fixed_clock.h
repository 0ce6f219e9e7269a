// A clock that stands still until it is told.
#pragma once

#include <chrono>
#include <utility>
#include <vector>

#include "qvn/base/clock.h"

namespace qvn::test {

/// Tells its moments one after the other, the last one for ever; keeps how long was slept.
class FixedClock final : public Clock {
 public:
  explicit FixedClock(std::vector<Date> moments) : moments_(std::move(moments)) {}
  Date now() override { return moments_[at_ + 1 < moments_.size() ? at_++ : at_]; }
  void sleep(std::chrono::milliseconds time) override { slept.push_back(time); }
  std::vector<std::chrono::milliseconds> slept;

 private:
  std::vector<Date> moments_;
  std::size_t at_ = 0;
};

}  // namespace qvn::test
