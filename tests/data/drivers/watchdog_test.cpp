#include "qvn/data/drivers/watchdog.h"

#include <gtest/gtest.h>

#include <atomic>

namespace qvn::data {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

// A statement that ends when it is told to, or by itself after `length`.
bool isCancelled(Watchdog& dog, std::atomic<bool>& told, seconds limit, seconds length) {
  told = false;
  const Watchdog::Watch watch(dog, limit);
  const auto end = steady_clock::now() + length;
  while (!told && steady_clock::now() < end) std::this_thread::yield();
  return watch.wasCancelled();
}

TEST(Watchdog, EndsWhatTakesTooLongAndNothingElse) {
  std::atomic<bool> told = false;
  std::atomic<int> orders = 0;
  Watchdog dog([&] {
    ++orders;
    told = true;
  });
  EXPECT_FALSE(isCancelled(dog, told, seconds{0}, seconds{0}));
  EXPECT_FALSE(isCancelled(dog, told, seconds{100}, seconds{0}));
  // A shorter limit than the one that the thread sleeps for.
  EXPECT_TRUE(isCancelled(dog, told, seconds{1}, seconds{20}));
  EXPECT_FALSE(isCancelled(dog, told, seconds{30}, seconds{0}));
  EXPECT_TRUE(isCancelled(dog, told, seconds{1}, seconds{20}));
  // Ended in time; its deadline passes while nothing is watched.
  EXPECT_FALSE(isCancelled(dog, told, seconds{1}, seconds{0}));
  EXPECT_FALSE(isCancelled(dog, told, seconds{0}, seconds{2}));
  EXPECT_EQ(orders, 2);
}

TEST(Watchdog, BreaksOffWhatDoesNotEvenAnswerTheOrder) {
  std::atomic<bool> isBroken = false;
  Watchdog dog([] {}, [&] { isBroken = true; });
  {
    const Watchdog::Watch watch(dog, seconds{1});
    while (!isBroken) std::this_thread::yield();
    EXPECT_TRUE(watch.wasCancelled());
    EXPECT_TRUE(watch.wasBrokenOff());
  }
  const Watchdog::Watch next(dog, seconds{100});
  EXPECT_FALSE(next.wasCancelled());
  EXPECT_FALSE(next.wasBrokenOff());
}

}  // namespace
}  // namespace qvn::data
