// Which entry is in force, which state follows from answers and failures, and when it changes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Resident/InstanceTimeline.hpp"
#include "ViewKit/ViewKit.hpp"

namespace resident {
namespace {

using foundation::Instant;
using surfaces::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using viewkit::RenderingMode;
using widgetruntime::EntriesAnswer;
using widgetruntime::ReloadPolicy;

constexpr Instant at(std::int64_t seconds) {
  return {seconds, 0};
}

/// Entries at these dates, each with an open and a redacted tree for each mode, linked to their
/// index.
EntriesAnswer answerOf(const std::vector<std::int64_t>& dates,
                       ReloadPolicy policy = {},
                       int trees = 2) {
  EntriesAnswer answer{.entries = {}, .policy = policy};
  for (const std::int64_t date : dates) {
    widgetruntime::RenderedEntry entry{.date = at(date)};
    for (int i = 0; i < trees; ++i) {
      entry.trees.push_back({.view = viewkit::View{}, .link = std::to_string(i)});
    }
    answer.entries.push_back(std::move(entry));
  }
  return answer;
}

InstanceTimeline answered(EntriesAnswer answer, DocumentVersion version = 0) {
  InstanceTimeline timeline;
  timeline.answered(std::move(answer), {RenderingMode::fullColor}, version);
  return timeline;
}

TEST(InstanceTimeline, ShowsTheLastEntryWhoseDateHasCome) {
  const auto timeline = answered(answerOf({20, 10, 30}));
  EXPECT_EQ(timeline.entryAt(at(10))->date, at(10));
  EXPECT_EQ(timeline.entryAt(at(29))->date, at(20));
  EXPECT_EQ(timeline.entryAt(at(30))->date, at(30));
}

TEST(InstanceTimeline, ShowsTheFirstEntryWhenTheClockIsSetBeforeIt) {
  EXPECT_EQ(answered(answerOf({10, 20})).entryAt(at(5))->date, at(10));
}

TEST(InstanceTimeline, FindsTheTreeOfModeAndPrivacy) {
  InstanceTimeline timeline;
  timeline.answered(answerOf({0}, {}, 4), {RenderingMode::fullColor, RenderingMode::vibrant}, 0);
  EXPECT_EQ(timeline.treeAt(at(0), RenderingMode::fullColor, false)->link, "0");
  EXPECT_EQ(timeline.treeAt(at(0), RenderingMode::fullColor, true)->link, "1");
  EXPECT_EQ(timeline.treeAt(at(0), RenderingMode::vibrant, true)->link, "3");
  EXPECT_EQ(timeline.treeAt(at(0), RenderingMode::accented, false), nullptr);
}

TEST(InstanceTimeline, IsAPlaceholderUntilItIsAnswered) {
  InstanceTimeline timeline;
  EXPECT_EQ(timeline.state(), State::placeholder);
  timeline.answered(answerOf({0}), {RenderingMode::fullColor}, 0);
  EXPECT_EQ(timeline.state(), State::live);
}

TEST(InstanceTimeline, FailsWithoutAnyAnswer) {
  InstanceTimeline timeline;
  timeline.failed("why", at(5));
  EXPECT_EQ(timeline.state(), State::failed);
  EXPECT_EQ(timeline.reason(), "why");
}

TEST(InstanceTimeline, IsStaleWithAPictureOfAnEarlierRun) {
  InstanceTimeline timeline;
  timeline.setHasOldPicture();
  EXPECT_EQ(timeline.state(), State::placeholder);
  timeline.failed("why", at(5));
  EXPECT_EQ(timeline.state(), State::stale);
}

TEST(InstanceTimeline, IsStaleSinceTheFirstFailureInARow) {
  auto timeline = answered(answerOf({0}));
  timeline.failed("first", at(5));
  timeline.failed("second", at(9));
  EXPECT_EQ(timeline.state(), State::stale);
  EXPECT_EQ(timeline.reason(), "second");
  EXPECT_EQ(timeline.failingSince(), at(5));
  timeline.answered(answerOf({10}), {RenderingMode::fullColor}, 0);
  EXPECT_EQ(timeline.state(), State::live);
  EXPECT_EQ(timeline.failingSince(), std::nullopt);
}

TEST(InstanceTimeline, IsDoubtfulWhenItFailsAndTheDocumentHasChangedSince) {
  auto timeline = answered(answerOf({0}), 3);
  EXPECT_FALSE(timeline.isDoubtful(4));  // the new answer is on its way
  timeline.failed("why", at(5));
  EXPECT_FALSE(timeline.isDoubtful(3));
  EXPECT_TRUE(timeline.isDoubtful(4));
}

TEST(InstanceTimeline, PlansTheDatesAfterTheAsking) {
  const Plan plan =
      InstanceTimeline::planOf(answerOf({30, 10, 20}, ReloadPolicy::after(at(86'405))), at(10));
  EXPECT_THAT(plan.swaps, ElementsAre(at(20), at(30)));
  EXPECT_EQ(plan.reload, at(86'405));
}

TEST(InstanceTimeline, PlansAReloadAtTheEnd) {
  const ReloadPolicy atEnd{.type = ReloadPolicy::Type::atEnd};
  EXPECT_EQ(InstanceTimeline::planOf(answerOf({10, 20}, atEnd), at(10)).reload, at(20));
  EXPECT_EQ(InstanceTimeline::planOf(answerOf({10}, atEnd), at(10)).reload, at(10));
}

TEST(InstanceTimeline, PlansNothingForNever) {
  const Plan plan =
      InstanceTimeline::planOf(answerOf({10}, {.type = ReloadPolicy::Type::never}), at(10));
  EXPECT_EQ(plan.reload, std::nullopt);
  EXPECT_THAT(plan.swaps, IsEmpty());
}

}  // namespace
}  // namespace resident
