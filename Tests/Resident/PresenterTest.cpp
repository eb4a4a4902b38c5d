// What surfaces are shown, and that no open picture comes after hiding.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Fakes.hpp"
#include "Resident/Presenter.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using surfaces::State;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PresenterTest : public ::testing::Test {
 protected:
  PresenterTest() { presenter.add(surface); }

  InstanceTimeline answered(const std::string& text = "7391.42") {
    widgetruntime::EntriesParameters parameters{.kind = "Kind"};
    parameters.device.now = kMorning;
    parameters.environments.resize(2);
    parameters.environments[1].redactionReasons.privacy = true;
    InstanceTimeline timeline;
    timeline.answered(answerTo(parameters, text), {viewkit::RenderingMode::fullColor}, 0);
    return timeline;
  }
  void present(const InstanceTimeline& timeline, bool hidden, DocumentVersion version = 0) {
    presenter.present(subject,
                      timeline,
                      {.now = kMorning, .version = version, .isHidden = hidden},
                      Urgency::reload);
  }

  Loop loop;
  FakePictureMaker pictureMaker;
  FakeSurface surface;
  Presenter presenter{loop, pictureMaker, 1ms};
  surfaces::Subject subject{.id = "w1", .kind = "Kind"};
};

TEST_F(PresenterTest, ShowsWhatWasDrawn) {
  present(answered(), false);
  ASSERT_THAT(pictureMaker.drawings, SizeIs(1));
  EXPECT_FALSE(pictureMaker.drawings[0].isRedacted());
  pictureMaker.drawings[0].finish();
  ASSERT_THAT(surface.history, SizeIs(1));
  EXPECT_EQ(surface.last().state, State::live);
  EXPECT_EQ(surface.last().link, "quorvel-widget://Kind");
  EXPECT_NE(surface.last().picture, nullptr);
}

TEST_F(PresenterTest, KnowsTheLinkBeforeThePictureIsDrawn) {
  present(answered(), false);
  EXPECT_EQ(presenter.linkOf("w1", std::nullopt), "quorvel-widget://Kind");
  present({}, false);
  EXPECT_EQ(presenter.linkOf("w1", std::nullopt), "");
}

TEST_F(PresenterTest, DrawsTheMaskedTreeWhileHidden) {
  present(answered(), true);
  EXPECT_TRUE(pictureMaker.drawings[0].isRedacted());
  EXPECT_EQ(pictureMaker.drawings[0].request.view, viewkit::View(viewkit::Text{"masked"}));
}

TEST_F(PresenterTest, NeverShowsAnOpenPictureThatWasDrawnWhileHiding) {
  const auto timeline = answered();
  present(timeline, false);
  present(timeline, true);
  pictureMaker.drawings[0].finish();
  EXPECT_THAT(surface.history, IsEmpty());
  pictureMaker.drawings[1].finish();
  ASSERT_THAT(surface.history, SizeIs(1));
  EXPECT_TRUE(surface.last().isHidden);
  EXPECT_TRUE(surface.last().picture->isRedacted);
}

TEST_F(PresenterTest, DrawsAgainWhatWasHeldBack) {
  const auto timeline = answered();
  present(timeline, false);
  pictureMaker.drawings[0].finish();
  present(answered("8402.53"), false);
  present(timeline, true);
  pictureMaker.drawings[1].finish();  // held back: the picture maker takes it for drawn
  present(answered("8402.53"), false);
  EXPECT_TRUE(pictureMaker.drawings[3].request.isForced);
}

TEST_F(PresenterTest, SaysNothingWhenNothingHasChanged) {
  const auto timeline = answered();
  present(timeline, false);
  pictureMaker.drawings[0].finish();
  present(timeline, false);
  EXPECT_FALSE(pictureMaker.drawings[1].request.isForced);
  pictureMaker.drawings[1].finishUnchanged();
  EXPECT_THAT(surface.history, SizeIs(1));
}

TEST_F(PresenterTest, TellsOfAnotherStateWithTheSamePicture) {
  auto timeline = answered();
  present(timeline, false);
  pictureMaker.drawings[0].finish();
  timeline.failed("why", kMorning);
  present(timeline, false);
  EXPECT_DOUBLE_EQ(pictureMaker.drawings[1].request.opacity, 0.62);
  pictureMaker.drawings[1].finishUnchanged();
  EXPECT_EQ(surface.last().state, State::stale);
  EXPECT_EQ(surface.last().reason, "why");
  EXPECT_EQ(surface.last().picture, nullptr);
}

TEST_F(PresenterTest, RedactsAStaleAnswerOfAnotherDocument) {
  auto timeline = answered();
  timeline.failed("why", kMorning);
  present(timeline, false, 0);
  EXPECT_FALSE(pictureMaker.drawings[0].isRedacted());
  present(timeline, false, 1);
  EXPECT_TRUE(pictureMaker.drawings[1].isRedacted());
}

TEST_F(PresenterTest, ShowsTheRedactedPictureOfTheLastRunUntilThereIsAnAnswer) {
  std::string recalled;
  presenter.onRecalled = [&](const std::string& id) { recalled = id; };
  present({}, true);
  EXPECT_EQ(surface.last().state, State::placeholder);
  ASSERT_THAT(pictureMaker.recalls, SizeIs(1));
  pictureMaker.recalls[0].second(std::make_shared<surfaces::Picture>());
  EXPECT_EQ(recalled, "w1");
  EXPECT_NE(surface.last().picture, nullptr);
  present({}, true);
  EXPECT_THAT(pictureMaker.recalls, SizeIs(1));
}

TEST_F(PresenterTest, PrefersAnAnswerToAPictureOfTheLastRun) {
  present({}, true);
  present(answered(), false);
  pictureMaker.drawings[0].finish();
  const std::size_t shown = surface.history.size();
  pictureMaker.recalls[0].second(std::make_shared<surfaces::Picture>());
  EXPECT_THAT(surface.history, SizeIs(shown));
}

TEST_F(PresenterTest, KeepsARedactedPictureSomeTimeAfterTheLastChange) {
  present(answered(), false);
  EXPECT_THAT(pictureMaker.kept, IsEmpty());
  while (pictureMaker.kept.empty()) ASSERT_TRUE(loop.step(10s));
  ASSERT_THAT(pictureMaker.kept, SizeIs(1));
  EXPECT_TRUE(pictureMaker.kept[0].demand.options.redaction.privacy);
  EXPECT_EQ(pictureMaker.kept[0].view, viewkit::View(viewkit::Text{"masked"}));
}

TEST_F(PresenterTest, KeepsNothingOfWhatOnlyPassesBy) {
  subject.isPlaced = false;
  present(answered(), false);
  EXPECT_THAT(pictureMaker.drawings, IsEmpty());
  EXPECT_FALSE(loop.step(0ms));
}

TEST_F(PresenterTest, ShowsNothingOfWhatIsGone) {
  present(answered(), false);
  presenter.remove("w1");
  pictureMaker.drawings[0].finish();
  EXPECT_THAT(surface.history, IsEmpty());
  EXPECT_THAT(surface.removed, ElementsAre("w1"));
  EXPECT_THAT(pictureMaker.forgotten, ElementsAre("w1"));
}

TEST_F(PresenterTest, AsksForDemandsAnewAndDrawsAllOfThem) {
  const auto timeline = answered();
  present(timeline, false);
  pictureMaker.drawings[0].finish();
  surface.mode = viewkit::RenderingMode::vibrant;
  presenter.forgetDemands(surface);
  EXPECT_THAT(presenter.modesFor({subject}), ElementsAre(viewkit::RenderingMode::vibrant));
}

}  // namespace
}  // namespace resident
