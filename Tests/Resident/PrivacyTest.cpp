// When amounts are hidden, as rows of what is heard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Resident/Privacy.hpp"

namespace resident {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Privacy unlocked(bool asked = false) {
  Privacy privacy{asked};
  privacy.setLocked(false);
  return privacy;
}

TEST(Privacy, HidesUntilTheSessionHasSpoken) {
  Privacy privacy{false};
  EXPECT_THAT(privacy.reasons(), ElementsAre("unsure"));
  privacy.setLocked(false);
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST(Privacy, CountsAsUnlockedWithoutASession) {
  Privacy privacy{false};
  privacy.setWithoutSession();
  EXPECT_FALSE(privacy.isHidden());
}

TEST(Privacy, FollowsTheLock) {
  Privacy privacy = unlocked();
  privacy.setLocked(true);
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
  privacy.setLocked(false);
  EXPECT_FALSE(privacy.isHidden());
}

TEST(Privacy, HidesFromFallingAsleepToTheFirstWordAfterIt) {
  Privacy privacy = unlocked();
  privacy.setGoingToSleep();
  EXPECT_THAT(privacy.reasons(), ElementsAre("sleep"));
  privacy.setLocked(true);
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
}

TEST(Privacy, LiftsOnlyWhatWasAskedFor) {
  Privacy privacy = unlocked(true);
  privacy.setLocked(true);
  EXPECT_THAT(privacy.reasons(), ElementsAre("hide", "locked"));
  privacy.ask(false);
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
}

TEST(Privacy, HidesWhileAScreenSaverRuns) {
  Privacy privacy = unlocked();
  privacy.setScreenSaver(true);
  EXPECT_THAT(privacy.reasons(), ElementsAre("screen saver"));
  privacy.setScreenSaver(false);
  EXPECT_FALSE(privacy.isHidden());
}

}  // namespace
}  // namespace resident
