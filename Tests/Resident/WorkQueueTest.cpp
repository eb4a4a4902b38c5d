#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "Resident/WorkQueue.hpp"

namespace resident {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> drain(WorkQueue<std::string>& queue) {
  std::vector<std::string> all;
  while (auto work = queue.pop()) all.push_back(*work);
  return all;
}

TEST(WorkQueue, DoesWhatAPersonAskedFirstAndPreviewsLast) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::preview, "", "preview");
  queue.push(Urgency::reload, "", "reload 1");
  queue.push(Urgency::reload, "", "reload 2");
  queue.push(Urgency::person, "", "person 1");
  queue.push(Urgency::person, "", "person 2");
  EXPECT_THAT(drain(queue), ElementsAre("person 1", "person 2", "reload 1", "reload 2", "preview"));
}

TEST(WorkQueue, ReplacesWhatWaitsWhereItStands) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "a", "old a");
  queue.push(Urgency::reload, "b", "b");
  queue.push(Urgency::reload, "a", "new a");
  EXPECT_THAT(drain(queue), ElementsAre("new a", "b"));
}

TEST(WorkQueue, KeepsTheUrgencyOfWhatIsReplaced) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "other");
  queue.push(Urgency::person, "a", "asked");
  queue.push(Urgency::reload, "a", "reloaded");
  EXPECT_THAT(drain(queue), ElementsAre("reloaded", "other"));
}

TEST(WorkQueue, RaisesTheUrgencyOfWhatIsReplaced) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "other");
  queue.push(Urgency::reload, "a", "reloaded");
  queue.push(Urgency::person, "a", "asked");
  EXPECT_THAT(drain(queue), ElementsAre("asked", "other"));
}

TEST(WorkQueue, LetsLaterWorkGoBeforeOnlySoOften) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "reload");
  queue.push(Urgency::preview, "", "preview");
  for (int i = 0; i < WorkQueue<std::string>::kPatience; ++i) {
    queue.push(Urgency::person, "", "person");
    EXPECT_EQ(queue.pop(), "person") << i;
  }
  queue.push(Urgency::person, "", "person");
  EXPECT_EQ(queue.pop(), "reload");
  EXPECT_EQ(queue.pop(), "preview");
  EXPECT_EQ(queue.pop(), "person");
}

/// Somebody asks for everything again and again: how often, and how long a piece of work takes.
struct Rate {
  int period;
  int duration;
};
void PrintTo(const Rate& rate, std::ostream* out) {
  *out << rate.period << " of " << rate.duration;
}

class WorkQueueRate : public ::testing::TestWithParam<Rate> {};

TEST_P(WorkQueueRate, LetsEachWaitForOnePieceOfEveryOther) {
  WorkQueue<std::string> queue;
  const std::vector<std::string> keys{"a", "b", "c", "d", "e"};
  std::map<std::string, int> waitingSince;  // in pieces of work done
  int done = 0;
  int freeAt = 0;
  for (int now = 0; now < 10'000; ++now) {
    if (now % GetParam().period == 0) {
      for (const std::string& key : keys) {
        queue.push(Urgency::person, key, key);
        waitingSince.emplace(key, done);
      }
    }
    for (const auto& [key, since] : waitingSince) {
      ASSERT_LE(done - since, static_cast<int>(keys.size())) << key << " at " << now;
    }
    if (now < freeAt) continue;
    if (const auto work = queue.pop()) {
      waitingSince.erase(*work);
      ++done;
      freeAt = now + GetParam().duration;
    }
  }
  EXPECT_GT(done, 100);
}

INSTANTIATE_TEST_SUITE_P(,
                         WorkQueueRate,
                         ::testing::Values(Rate{1, 1},
                                           Rate{1, 7},
                                           Rate{7, 7},
                                           Rate{8, 7},
                                           Rate{10, 7},
                                           Rate{21, 7},
                                           Rate{35, 7},
                                           Rate{50, 7}),
                         [](const auto& test) {
                           return "Every" + std::to_string(test.param.period) + "Taking" +
                                  std::to_string(test.param.duration);
                         });

TEST(WorkQueue, ReplacesNothingWithoutAKey) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "one");
  queue.push(Urgency::reload, "", "two");
  EXPECT_EQ(queue.size(), 2U);
}

}  // namespace
}  // namespace resident
