#include <ctime>
#include <thread>

#include "qvn/base/clock.h"

namespace qvn {
namespace {

class SystemClock final : public Clock {
 public:
  Date now() override {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    // A leap second (60) counts as the last second of its minute.
    const TimeOfDay time{local.tm_hour, local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec};
    return Date::fromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, time);
  }
  void sleep(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

}  // namespace

ClockPtr systemClock() { return std::make_shared<SystemClock>(); }

}  // namespace qvn
