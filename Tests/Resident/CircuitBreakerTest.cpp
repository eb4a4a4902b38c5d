// When a child that fails is asked again. Rows are: what happens, when, and the pause that follows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Resident/CircuitBreaker.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;

constexpr Moment kStart{std::chrono::hours{100}};

std::vector<Pause> pausesAfter(CircuitBreaker& breaker, const std::vector<Pause>& failures) {
  std::vector<Pause> pauses;
  for (const Pause at : failures) pauses.push_back(breaker.failed(kStart + at));
  return pauses;
}

TEST(CircuitBreaker, TriesAtOnceThenDoublesFromAFifthOfASecond) {
  CircuitBreaker breaker;
  EXPECT_THAT(pausesAfter(breaker, {0s, 1s, 2s, 4s}),
              ::testing::ElementsAre(0ms, 200ms, 400ms, 800ms));
}

TEST(CircuitBreaker, BeginsAnewAfterASuccess) {
  CircuitBreaker breaker;
  pausesAfter(breaker, {0s, 1s, 2s});
  breaker.succeeded();
  EXPECT_TRUE(breaker.admits(kStart + 2s));
  EXPECT_THAT(pausesAfter(breaker, {3s}), ::testing::ElementsAre(0ms));
}

TEST(CircuitBreaker, QuarantinesAfterFiveFailuresInFiveMinutes) {
  CircuitBreaker breaker;
  EXPECT_THAT(pausesAfter(breaker, {0s, 1min, 2min, 3min, 299s}),
              ::testing::ElementsAre(0ms, 200ms, 400ms, 800ms, 5min));
  EXPECT_TRUE(breaker.isQuarantined(kStart + 300s));
  EXPECT_FALSE(breaker.admits(kStart + 299s + 5min - 1ms));
  EXPECT_TRUE(breaker.admits(kStart + 299s + 5min));
  EXPECT_FALSE(breaker.isQuarantined(kStart + 299s + 5min));
}

TEST(CircuitBreaker, CountsNoFailureOlderThanFiveMinutes) {
  CircuitBreaker breaker;
  EXPECT_THAT(pausesAfter(breaker, {0s, 1min, 2min, 3min, 5min}).back(), 1600ms);
  EXPECT_FALSE(breaker.isQuarantined(kStart + 5min));
}

TEST(CircuitBreaker, QuarantinesAChildThatFailsBetweenSuccesses) {
  CircuitBreaker breaker;
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(breaker.failed(kStart + i * 1s), 0ms);
    breaker.succeeded();
  }
  EXPECT_EQ(breaker.failed(kStart + 4s), 5min);
}

TEST(CircuitBreaker, NeverPausesLongerThanHalfAMinuteOutsideOfAQuarantine) {
  CircuitBreaker breaker;
  Pause longest{};
  // One failure in two minutes is never five in five.
  for (int i = 0; i < 30; ++i) longest = std::max(longest, breaker.failed(kStart + i * 2min));
  EXPECT_EQ(longest, 30s);
}

TEST(CircuitBreaker, LetsEachAskingOfAPersonPassOnce) {
  CircuitBreaker breaker;
  pausesAfter(breaker, {0s, 1s, 2s, 3s, 4s});
  EXPECT_FALSE(breaker.admits(kStart + 5s));
  EXPECT_TRUE(breaker.admitsPerson(kStart + 5s, kStart + 5s));
  // It failed: the others of the same asking are not sent any more, a new asking is.
  breaker.failed(kStart + 6s);
  EXPECT_FALSE(breaker.admitsPerson(kStart + 7s, kStart + 5s));
  EXPECT_TRUE(breaker.admitsPerson(kStart + 8s, kStart + 8s));
}

TEST(CircuitBreaker, IsNotShortenedByAFailureInAQuarantine) {
  CircuitBreaker breaker;
  pausesAfter(breaker, {0s, 1s, 2s, 3s, 4s});
  EXPECT_EQ(breaker.failed(kStart + 64s), 4min);
}

TEST(CircuitBreaker, EndsAQuarantineWithASuccess) {
  CircuitBreaker breaker;
  pausesAfter(breaker, {0s, 1s, 2s, 3s, 4s});
  breaker.succeeded();
  EXPECT_TRUE(breaker.admits(kStart + 5s));
  EXPECT_FALSE(breaker.isQuarantined(kStart + 5s));
}

}  // namespace
}  // namespace resident
