// The host as a whole, with a clock, an extension, a picture maker and a surface of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Fakes.hpp"
#include "Resident/Resident.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using foundation::Instant;
using surfaces::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using widgetruntime::WidgetFamily;

constexpr Instant kNoon{kMorning.seconds + 9'000, 0};

class ResidentTest : public ::testing::Test {
 protected:
  static widgetruntime::InitializeAnswer offer() {
    widgetruntime::InitializeAnswer offer;
    for (const char* kind : {"QuorvelDueWidget", "QuorvelNetWorthWidget"}) {
      offer.bundle.widgets.push_back(
          {.description = {.kind = kind, .families = {WidgetFamily::systemSmall}}});
    }
    return offer;
  }
  void startShown() {
    host.addSurface(surface);
    host.start();
    host.withPrivacy([](Privacy& privacy) { privacy.setWithoutSession(); });
    asker.initializing.at(0)(offer());
  }
  /// One text until noon, another from then on.
  void answerWithTwoEntries(std::size_t index) {
    auto& request = asker.timelines.at(index);
    auto answer = answerTo(request.parameters, "before");
    auto later = answerTo(request.parameters, "after").entries[0];
    later.date = kNoon;
    answer.entries.push_back(std::move(later));
    request.then(std::move(answer));
  }
  static viewkit::View textOf(const std::string& words) { return viewkit::Text{words}; }

  testsupport::TemporaryFolder folder;
  Loop loop;
  ManualClock clock;
  FakeAsker asker;
  FakePictureMaker pictureMaker;
  FakeSurface surface;
  std::vector<std::string> logged;
  Resident host{{.loop = loop,
                 .clock = clock,
                 .asker = asker,
                 .pictureMaker = pictureMaker,
                 .file = PlacementsFile{folder.at("placements.json")},
                 .device = [](Instant now) { return foundation::Device{.now = now}; },
                 .log = [this](const std::string& line) { logged.push_back(line); }},
                std::nullopt};
};

TEST_F(ResidentTest, PlacesOneOfEachOnTheFirstStart) {
  startShown();
  ASSERT_THAT(host.placements().placements, SizeIs(2));
  EXPECT_EQ(host.placements().placements[1].kind, "QuorvelNetWorthWidget");
  ASSERT_THAT(asker.timelines, SizeIs(2));
  EXPECT_EQ(asker.timelines[0].key, "w1");
}

TEST_F(ResidentTest, SwapsAnEntryAtItsDateWithoutTheExtension) {
  startShown();
  answerWithTwoEntries(0);
  ASSERT_THAT(pictureMaker.drawings, SizeIs(1));
  EXPECT_EQ(pictureMaker.drawings[0].request.view, textOf("before"));
  EXPECT_EQ(clock.wake, kNoon);
  clock.advanceTo(kNoon);
  ASSERT_THAT(pictureMaker.drawings, SizeIs(2));
  EXPECT_EQ(pictureMaker.drawings[1].request.view, textOf("after"));
  EXPECT_THAT(asker.timelines, SizeIs(2));
}

TEST_F(ResidentTest, SwapsToTheRedactedTreeWhileHidden) {
  startShown();
  answerWithTwoEntries(0);
  host.hide(Hide::on);
  clock.advanceTo(kNoon);
  EXPECT_TRUE(pictureMaker.drawings.back().isRedacted());
  EXPECT_EQ(pictureMaker.drawings.back().request.view, textOf("masked"));
}

TEST_F(ResidentTest, HidesFirstAndWithoutTheExtension) {
  startShown();
  answerWithTwoEntries(0);
  pictureMaker.drawings.clear();
  host.hide(Hide::on);
  ASSERT_THAT(pictureMaker.drawings, SizeIs(1));
  EXPECT_TRUE(pictureMaker.drawings[0].isRedacted());
  EXPECT_EQ(pictureMaker.drawings[0].urgency, Urgency::person);
  EXPECT_THAT(asker.timelines, SizeIs(2));
}

TEST_F(ResidentTest, AsksOnceWhatIsOfferedHoweverOftenAPersonReloads) {
  host.addSurface(surface);
  host.start();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(host.reload(""), 0U);
  EXPECT_THAT(asker.initializing, SizeIs(1));
}

TEST_F(ResidentTest, TriesAgainAtOnceWhenAPersonHasAskedMeanwhile) {
  host.addSurface(surface);
  host.start();
  std::ignore = host.reload("");
  asker.initializing.at(0)(std::unexpected(AskFailure{"why", 1h}));
  EXPECT_THAT(logged, ElementsAre("the extension does not start: why"));
  while (asker.initializing.size() < 2) loop.step(1s);
  asker.initializing.at(1)(offer());
  EXPECT_EQ(host.problem(), "");
  EXPECT_THAT(asker.timelines, SizeIs(2));
}

TEST_F(ResidentTest, WaitsForThePauseWhenNobodyHasAsked) {
  host.addSurface(surface);
  host.start();
  asker.initializing.at(0)(std::unexpected(AskFailure{"why", 1h}));
  EXPECT_FALSE(loop.step(20ms));
  EXPECT_THAT(asker.initializing, SizeIs(1));
  // A person need not wait.
  std::ignore = host.reload("");
  EXPECT_THAT(asker.initializing, SizeIs(2));
}

TEST_F(ResidentTest, AsksAnewForAllAfterAWeekOfSleep) {
  startShown();
  answerWithTwoEntries(0);
  answerWithTwoEntries(1);
  // Resuming sets the clock.
  clock.set({kMorning.seconds + 7 * 86'400, 0});
  ASSERT_THAT(asker.timelines, SizeIs(4));
  EXPECT_EQ(asker.timelines[2].parameters.device.now, clock.now());
  // Meanwhile the entry in force is that of the date which has passed.
  EXPECT_EQ(pictureMaker.drawings.back().request.view, textOf("after"));
}

TEST_F(ResidentTest, ShowsTheEarlierEntryAgainWhenTheClockIsSetBack) {
  startShown();
  answerWithTwoEntries(0);
  clock.advanceTo(kNoon);
  clock.set(kMorning);
  EXPECT_EQ(pictureMaker.drawings.back().request.view, textOf("before"));
}

}  // namespace
}  // namespace resident
