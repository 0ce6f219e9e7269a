// The clock seam: what time it is and how waiting is done. Tests put a fixed clock in its place.
#pragma once

#include <chrono>
#include <memory>

#include "qvn/base/date.h"

namespace qvn {

class Clock {
 public:
  virtual ~Clock() = default;
  /// The local date and time of day, to the second.
  virtual Date now() = 0;
  /// Waits.
  virtual void sleep(std::chrono::milliseconds time) = 0;
};
using ClockPtr = std::shared_ptr<Clock>;

/// The system's clock in the system's time zone.
ClockPtr systemClock();

}  // namespace qvn
