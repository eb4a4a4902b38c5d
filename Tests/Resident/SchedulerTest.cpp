// What is asked, when and why, as rows of events on a clock of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Resident/Scheduler.hpp"

namespace resident {
namespace {

using foundation::Instant;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Instant at(std::int64_t seconds) {
  return {seconds, 0};
}

MATCHER_P2(Asks, instance, cause, "") {
  return arg.instance == instance && arg.cause == cause;
}

Plan reloadAt(std::int64_t seconds) {
  return {.swaps = {}, .reload = at(seconds)};
}

/// Answers everything that is asked now with the same plan.
std::vector<Ask> answerAll(Scheduler& scheduler, std::int64_t now, const Plan& plan) {
  auto asks = scheduler.take(at(now));
  for (const Ask& ask : asks) EXPECT_TRUE(scheduler.answered(ask, plan));
  return asks;
}

TEST(Scheduler, AsksForWhatIsNewOnce) {
  Scheduler scheduler;
  scheduler.add("a");
  scheduler.add("b");
  EXPECT_THAT(scheduler.take(at(0)), ElementsAre(Asks("a", Cause::start), Asks("b", Cause::start)));
  EXPECT_THAT(scheduler.take(at(0)), IsEmpty());
  EXPECT_EQ(scheduler.nextWake(), std::nullopt);
}

TEST(Scheduler, AsksAgainAtThePolicysDate) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 0, reloadAt(86'405));
  EXPECT_EQ(scheduler.nextWake(), at(86'405));
  EXPECT_THAT(scheduler.take(at(86'404)), IsEmpty());
  EXPECT_THAT(scheduler.take(at(86'405)), ElementsAre(Asks("a", Cause::date)));
  EXPECT_EQ(scheduler.nextWake(), std::nullopt);
}

TEST(Scheduler, AsksShortlyAfterMidnightHoweverLateItStarted) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 86'399, reloadAt(86'405));
  EXPECT_EQ(scheduler.nextWake(), at(86'405));
}

TEST(Scheduler, LeavesAMinuteBetweenReloadsByDate) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 1'000, reloadAt(0));
  EXPECT_THAT(answerAll(scheduler, 1'000, reloadAt(0)), ElementsAre(Asks("a", Cause::date)));
  EXPECT_EQ(scheduler.nextWake(), at(1'060));
  EXPECT_THAT(scheduler.take(at(1'059)), IsEmpty());
  EXPECT_THAT(scheduler.take(at(1'060)), ElementsAre(Asks("a", Cause::date)));
}

TEST(Scheduler, GoesByTheClockThatWasSetBack) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 86'405, reloadAt(86'405));
  answerAll(scheduler, 86'405, reloadAt(172'805));
  // Back before midnight: what was reckoned a day ahead is asked for anew.
  scheduler.requestAllAfterClockChange();
  EXPECT_THAT(answerAll(scheduler, 86'390, reloadAt(86'405)), ElementsAre(Asks("a", Cause::clock)));
  EXPECT_EQ(scheduler.nextWake(), at(86'405));
}

TEST(Scheduler, NamesTheLatestOfSeveralCauses) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 0, {});
  scheduler.requestAll(Cause::document);
  scheduler.request("a", Cause::person);
  EXPECT_THAT(scheduler.take(at(1)), ElementsAre(Asks("a", Cause::person)));
}

TEST(Scheduler, TakesTheAnswerOfEachRequestThatIsNewerThanTheLast) {
  Scheduler scheduler;
  scheduler.add("a");
  const Ask first = scheduler.take(at(0)).at(0);
  scheduler.request("a", Cause::document);
  const Ask second = scheduler.take(at(1)).at(0);
  EXPECT_TRUE(scheduler.answered(first, reloadAt(50)));
  EXPECT_TRUE(scheduler.outlook("a").isAsked);
  EXPECT_TRUE(scheduler.answered(second, reloadAt(60)));
  EXPECT_FALSE(scheduler.outlook("a").isAsked);
  EXPECT_FALSE(scheduler.answered(first, reloadAt(70)));
  EXPECT_EQ(scheduler.nextWake(), at(60));
}

TEST(Scheduler, TakesTheFailureOfEachRequestThatIsNewerThanTheLast) {
  Scheduler scheduler;
  scheduler.add("a");
  const Ask first = scheduler.take(at(0)).at(0);
  scheduler.request("a", Cause::document);
  const Ask second = scheduler.take(at(1)).at(0);
  EXPECT_TRUE(scheduler.failed(first));
  EXPECT_TRUE(scheduler.failed(second));
  EXPECT_FALSE(scheduler.failed(first));
  EXPECT_FALSE(scheduler.answered(first, reloadAt(10)));
}

TEST(Scheduler, RetriesNothingThatIsBeingAskedAgain) {
  Scheduler scheduler;
  scheduler.add("a");
  const Ask first = scheduler.take(at(0)).at(0);
  scheduler.request("a", Cause::document);
  const Ask second = scheduler.take(at(1)).at(0);
  scheduler.failed(first);
  scheduler.retryFailed();
  EXPECT_THAT(scheduler.take(at(2)), IsEmpty());
  scheduler.failed(second);
  scheduler.retryFailed();
  EXPECT_THAT(scheduler.take(at(3)), ElementsAre(Asks("a", Cause::retry)));
}

TEST(Scheduler, KeepsInMindThatAPersonWaits) {
  Scheduler scheduler;
  scheduler.add("a");
  EXPECT_FALSE(scheduler.take(at(0)).at(0).isAwaited);
  scheduler.request("a", Cause::person);
  const Ask asked = scheduler.take(at(1)).at(0);
  EXPECT_TRUE(asked.isAwaited);
  // The document's change replaces the request that waits.
  scheduler.request("a", Cause::document);
  const Ask replacing = scheduler.take(at(2)).at(0);
  EXPECT_TRUE(replacing.isAwaited);
  scheduler.answered(asked, {});
  scheduler.request("a", Cause::document);
  EXPECT_FALSE(scheduler.take(at(3)).at(0).isAwaited);
}

TEST(Scheduler, RetriesOnlyWhatHasFailed) {
  Scheduler scheduler;
  scheduler.add("a");
  scheduler.add("b");
  const auto asks = scheduler.take(at(0));
  scheduler.answered(asks[0], {});
  scheduler.failed(asks[1]);
  scheduler.retryFailed();
  const auto again = scheduler.take(at(1));
  EXPECT_THAT(again, ElementsAre(Asks("b", Cause::retry)));
  scheduler.answered(again[0], {});
  scheduler.retryFailed();
  EXPECT_THAT(scheduler.take(at(2)), IsEmpty());
}

TEST(Scheduler, KeepsTheDateOfTheLastAnswerThroughFailures) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 0, reloadAt(100));
  scheduler.request("a", Cause::document);
  scheduler.failed(scheduler.take(at(1)).at(0));
  EXPECT_EQ(scheduler.nextWake(), at(100));
}

TEST(Scheduler, SwapsEntriesAtTheirDatesWithoutAsking) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 0, {.swaps = {at(10), at(20)}, .reload = at(30)});
  EXPECT_EQ(scheduler.nextWake(), at(10));
  EXPECT_THAT(scheduler.takeSwaps(at(9)), IsEmpty());
  EXPECT_THAT(scheduler.takeSwaps(at(10)), ElementsAre("a"));
  EXPECT_THAT(scheduler.take(at(10)), IsEmpty());
  EXPECT_EQ(scheduler.nextWake(), at(20));
}

TEST(Scheduler, SwapsOnceForAllDatesThatPassedMeanwhile) {
  Scheduler scheduler;
  scheduler.add("a");
  answerAll(scheduler, 0, {.swaps = {at(10), at(20)}, .reload = at(604'900)});
  // A week of sleep.
  EXPECT_THAT(scheduler.takeSwaps(at(604'800)), ElementsAre("a"));
  EXPECT_EQ(scheduler.nextWake(), at(604'900));
}

TEST(Scheduler, ForgetsWhatIsRemoved) {
  Scheduler scheduler;
  scheduler.add("a");
  const Ask ask = scheduler.take(at(0)).at(0);
  scheduler.remove("a");
  EXPECT_FALSE(scheduler.answered(ask, reloadAt(10)));
  EXPECT_FALSE(scheduler.failed(ask));
  EXPECT_EQ(scheduler.nextWake(), std::nullopt);
}

TEST(Scheduler, HeedsNoAnswerOfAnInstanceThatWasThereBefore) {
  Scheduler scheduler;
  scheduler.add("a");
  const Ask old = scheduler.take(at(0)).at(0);
  scheduler.remove("a");
  scheduler.add("a", Cause::configuration);
  const Ask ask = scheduler.take(at(1)).at(0);
  EXPECT_TRUE(scheduler.answered(ask, reloadAt(10)));
  EXPECT_FALSE(scheduler.answered(old, reloadAt(20)));
}

}  // namespace
}  // namespace resident
