// The system's clock; that it is set, nobody can try without setting it for everybody.
#include <gtest/gtest.h>

#include "Resident/WallClock.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using foundation::Instant;

class WallClockTest : public ::testing::Test {
 protected:
  WallClockTest() {
    clock.onTime = [this] { ++times; };
  }
  [[nodiscard]] Instant in(std::int32_t nanoseconds) const {
    Instant date = clock.now();
    date.nanoseconds += nanoseconds;
    if (date.nanoseconds >= 1'000'000'000) {
      date.nanoseconds -= 1'000'000'000;
      ++date.seconds;
    }
    return date;
  }

  Loop loop;
  SystemClock clock{loop};
  int times = 0;
};

TEST_F(WallClockTest, WakesWhenTheDateHasCome) {
  const Instant date = in(50'000'000);
  clock.wakeAt(date);
  while (times == 0) loop.step(1s);
  EXPECT_GE(clock.now(), date);
  EXPECT_EQ(times, 1);
}

TEST_F(WallClockTest, WakesAtOnceForADateThatHasPassed) {
  clock.wakeAt(Instant{-1'000, 0});
  while (times == 0) loop.step(1s);
  // Only once: the date has come.
  EXPECT_FALSE(loop.step(20ms));
}

TEST_F(WallClockTest, SleepsWithoutADate) {
  clock.wakeAt(in(10'000'000));
  clock.wakeAt(std::nullopt);
  EXPECT_FALSE(loop.step(50ms));
  EXPECT_EQ(times, 0);
}

TEST_F(WallClockTest, SleepsUntilDatesBeyondEveryTimer) {
  clock.wakeAt(Instant{std::numeric_limits<std::int64_t>::max(), 0});
  EXPECT_FALSE(loop.step(20ms));
}

TEST_F(WallClockTest, TakesTheNextDateFromItsOwnCall) {
  clock.onTime = [this] {
    if (++times == 1) clock.wakeAt(in(1'000'000));
  };
  clock.wakeAt(in(1'000'000));
  while (times < 2) loop.step(1s);
  EXPECT_FALSE(loop.step(20ms));
}

}  // namespace
}  // namespace resident
