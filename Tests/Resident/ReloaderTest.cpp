// Timelines that stay current, with a clock and an extension of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Fakes.hpp"
#include "Resident/Reloader.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using foundation::Instant;
using surfaces::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ReloaderTest : public ::testing::Test {
 protected:
  ReloaderTest() {
    reloader.onChange = [this](const std::string& id, Urgency urgency) {
      changes.push_back(id);
      urgencies.push_back(urgency);
    };
  }

  void add(const std::string& id) { reloader.add({.id = id, .kind = "Kind"}, Cause::start); }
  void answer(std::size_t index) {
    const auto& request = asker.timelines.at(index);
    request.then(answerTo(request.parameters));
  }
  void fail(std::size_t index, std::optional<Pause> retryIn = std::nullopt) {
    asker.timelines.at(index).then(std::unexpected(AskFailure{"why", retryIn}));
  }
  State stateOf(const std::string& id) { return reloader.find(id)->timeline.state(); }

  Loop loop;
  ManualClock clock;
  FakeAsker asker;
  std::string zone = "Europe/Berlin";
  Reloader reloader{loop, clock, asker, [this](Instant now) {
                      return foundation::Device{.now = now, .timeZone = {zone}};
                    }};
  std::vector<std::string> changes;
  std::vector<Urgency> urgencies;
};

TEST_F(ReloaderTest, AsksForAnOpenAndARedactedTree) {
  add("w1");
  ASSERT_EQ(asker.timelines.size(), 1U);
  const auto& parameters = asker.timelines[0].parameters;
  EXPECT_EQ(parameters.kind, "Kind");
  EXPECT_EQ(parameters.device.now, kMorning);
  ASSERT_EQ(parameters.environments.size(), 2U);
  EXPECT_FALSE(parameters.environments[0].redactionReasons.privacy);
  EXPECT_TRUE(parameters.environments[1].redactionReasons.privacy);
}

TEST_F(ReloaderTest, TellsOfAnAnswerAndWakesAtItsDate) {
  add("w1");
  answer(0);
  EXPECT_THAT(changes, ElementsAre("w1"));
  EXPECT_EQ(stateOf("w1"), State::live);
  EXPECT_EQ(clock.wake, (Instant{kMorning.seconds + 86'400, 0}));
  clock.advanceTo({kMorning.seconds + 86'400, 0});
  ASSERT_EQ(asker.timelines.size(), 2U);
  EXPECT_EQ(reloader.outlook("w1").lastCause, Cause::date);
}

TEST_F(ReloaderTest, SwapsAnEntryAtItsDateWithoutAsking) {
  add("w1");
  auto timeline = answerTo(asker.timelines[0].parameters);
  timeline.entries.push_back(timeline.entries[0]);
  timeline.entries[1].date = {kMorning.seconds + 60, 0};
  asker.timelines[0].then(timeline);
  changes.clear();
  clock.advanceTo({kMorning.seconds + 60, 0});
  EXPECT_THAT(changes, ElementsAre("w1"));
  EXPECT_EQ(asker.timelines.size(), 1U);
  EXPECT_EQ(reloader.find("w1")->timeline.entryAt(clock.now())->date.seconds,
            kMorning.seconds + 60);
}

TEST_F(ReloaderTest, AsksForAllWhenTheDocumentChanges) {
  add("w1");
  add("w2");
  reloader.documentChanged();
  EXPECT_EQ(asker.timelines.size(), 4U);
  EXPECT_EQ(reloader.outlook("w2").lastCause, Cause::document);
}

TEST_F(ReloaderTest, SendsTheZoneOfTheMoment) {
  add("w1");
  zone = "Asia/Tokyo";
  reloader.reloadAll(Cause::zone);
  EXPECT_EQ(asker.timelines[1].parameters.device.timeZone.identifier, "Asia/Tokyo");
}

TEST_F(ReloaderTest, FollowsAClockThatIsSetForthAndBackOverMidnight) {
  add("w1");
  answer(0);
  clock.set({kMorning.seconds + 86'400, 0});
  ASSERT_EQ(asker.timelines.size(), 2U);
  EXPECT_EQ(asker.timelines[1].parameters.device.now, clock.now());
  answer(1);
  EXPECT_EQ(clock.wake, (Instant{kMorning.seconds + 2 * 86'400, 0}));
  clock.set(kMorning);
  ASSERT_EQ(asker.timelines.size(), 3U);
  answer(2);
  EXPECT_EQ(clock.wake, (Instant{kMorning.seconds + 86'400, 0}));
}

TEST_F(ReloaderTest, AsksOnceAfterAWeekOfSleep) {
  add("w1");
  answer(0);
  clock.advanceTo({kMorning.seconds + 7 * 86'400, 0});
  EXPECT_EQ(asker.timelines.size(), 2U);
}

TEST_F(ReloaderTest, DoesWhatAPersonAsksFirst) {
  add("w1");
  reloader.reload("w1", Cause::person);
  EXPECT_EQ(asker.timelines[0].urgency, Urgency::reload);
  EXPECT_EQ(asker.timelines[1].urgency, Urgency::person);
}

TEST_F(ReloaderTest, StillServesAPersonWhenTheDocumentChangesMeanwhile) {
  add("w1");
  answer(0);
  reloader.reload("w1", Cause::person);
  reloader.documentChanged();
  EXPECT_EQ(asker.timelines[2].urgency, Urgency::person);
  urgencies.clear();
  answer(2);
  EXPECT_THAT(urgencies, ElementsAre(Urgency::person));
}

TEST_F(ReloaderTest, ShowsEachAnswerHoweverOftenItIsAskedAgain) {
  add("w1");
  for (std::size_t i = 0; i < 20; ++i) {
    reloader.reload("w1", Cause::person);
    // The request before the newest comes back.
    answer(i);
    EXPECT_EQ(changes.size(), i + 1);
    EXPECT_EQ(stateOf("w1"), State::live);
  }
}

TEST_F(ReloaderTest, ShowsAFailureHoweverOftenItIsAskedAgain) {
  add("w1");
  answer(0);
  reloader.documentChanged();
  reloader.reload("w1", Cause::person);
  fail(1);
  EXPECT_EQ(stateOf("w1"), State::stale);
  EXPECT_TRUE(reloader.find("w1")->timeline.isDoubtful(reloader.documentVersion()));
  answer(2);
  EXPECT_EQ(stateOf("w1"), State::live);
}

TEST_F(ReloaderTest, KeepsTheLastAnswerThroughAFailure) {
  add("w1");
  answer(0);
  reloader.reload("w1", Cause::person);
  fail(1);
  EXPECT_EQ(stateOf("w1"), State::stale);
  EXPECT_NE(reloader.find("w1")->timeline.entryAt(clock.now()), nullptr);
  EXPECT_EQ(reloader.find("w1")->timeline.failingSince(), clock.now());
}

TEST_F(ReloaderTest, RetriesAllThatFailedAfterThePause) {
  add("w1");
  add("w2");
  add("w3");
  fail(0, 1ms);
  answer(1);
  fail(2, 1ms);
  EXPECT_EQ(asker.timelines.size(), 3U);
  loop.step(1s);
  ASSERT_EQ(asker.timelines.size(), 5U);
  EXPECT_EQ(asker.timelines[3].key, "w1");
  EXPECT_EQ(asker.timelines[4].key, "w3");
  EXPECT_EQ(reloader.outlook("w1").lastCause, Cause::retry);
}

TEST_F(ReloaderTest, LetsOneFailWhileTheOthersLive) {
  add("w1");
  add("w2");
  fail(0);
  answer(1);
  EXPECT_EQ(stateOf("w1"), State::failed);
  EXPECT_EQ(stateOf("w2"), State::live);
}

TEST_F(ReloaderTest, TakesATimelineWithoutEntriesForAFailure) {
  add("w1");
  asker.timelines[0].then(widgetruntime::EntriesAnswer{.entries = {}, .policy = {}});
  EXPECT_EQ(stateOf("w1"), State::failed);
}

TEST_F(ReloaderTest, ShowsAtOnceThatAFailingAnswerNoLongerAgreesWithTheDocument) {
  add("w1");
  answer(0);
  reloader.reload("w1", Cause::person);
  fail(1);
  changes.clear();
  urgencies.clear();
  reloader.documentChanged();
  EXPECT_THAT(changes, ElementsAre("w1"));
  EXPECT_THAT(urgencies, ElementsAre(Urgency::person));
  EXPECT_TRUE(reloader.find("w1")->timeline.isDoubtful(reloader.documentVersion()));
}

TEST_F(ReloaderTest, HeedsNoAnswerForWhatWasConfiguredMeanwhile) {
  add("w1");
  reloader.add({.id = "w1", .kind = "Kind", .configuration = {{"style", "ring"}}},
               Cause::configuration);
  answer(0);
  EXPECT_THAT(changes, IsEmpty());
  EXPECT_EQ(stateOf("w1"), State::placeholder);
  answer(1);
  EXPECT_EQ(stateOf("w1"), State::live);
}

TEST_F(ReloaderTest, HeedsNoAnswerForWhatIsGone) {
  add("w1");
  reloader.remove("w1");
  answer(0);
  EXPECT_THAT(changes, IsEmpty());
}

TEST_F(ReloaderTest, AsksForTheTreesOfEveryMode) {
  add("w1");
  reloader.setModes({viewkit::RenderingMode::fullColor, viewkit::RenderingMode::vibrant});
  EXPECT_EQ(asker.timelines.back().parameters.environments.size(), 4U);
  const std::size_t asked = asker.timelines.size();
  reloader.setModes({viewkit::RenderingMode::fullColor, viewkit::RenderingMode::vibrant});
  EXPECT_EQ(asker.timelines.size(), asked);
}

}  // namespace
}  // namespace resident
