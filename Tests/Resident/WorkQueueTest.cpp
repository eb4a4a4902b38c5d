#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(WorkQueue, DropsWhatANewerRequestReplaces) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "a", "old a");
  queue.push(Urgency::reload, "b", "b");
  queue.push(Urgency::reload, "a", "new a");
  EXPECT_THAT(drain(queue), ElementsAre("b", "new a"));
}

TEST(WorkQueue, KeepsTheUrgencyOfWhatIsReplaced) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "other");
  queue.push(Urgency::person, "a", "asked");
  queue.push(Urgency::reload, "a", "reloaded");
  EXPECT_THAT(drain(queue), ElementsAre("reloaded", "other"));
}

TEST(WorkQueue, ReplacesNothingWithoutAKey) {
  WorkQueue<std::string> queue;
  queue.push(Urgency::reload, "", "one");
  queue.push(Urgency::reload, "", "two");
  EXPECT_EQ(queue.size(), 2U);
}

}  // namespace
}  // namespace resident
