#include "qvn/base/clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace qvn {
namespace {

// 25569 is 1 January 1970.
double utcSerial(std::time_t seconds) { return 25569 + static_cast<double>(seconds) / 86400; }

TEST(SystemClock, TellsTheLocalTime) {
  const ClockPtr clock = systemClock();
  const std::time_t before = std::time(nullptr);
  const double now = clock->now().serial();
  const std::time_t after = std::time(nullptr);
  std::tm local{};
  localtime_r(&before, &local);
  const double offset = static_cast<double>(local.tm_gmtoff) / 86400;
  EXPECT_GE(now - offset, utcSerial(before) - 1e-6);
  EXPECT_LE(now - offset, utcSerial(after) + 1e-6);
}

}  // namespace
}  // namespace qvn
