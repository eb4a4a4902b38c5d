// Who is called, on which thread, and when no more.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "Foundation/NotificationCenter.hpp"

namespace foundation {
namespace {

using testing::ElementsAre;

TEST(NotificationCenter, WithoutObserversNothingHappens) {
  EXPECT_NO_THROW(NotificationCenter().postNotificationName("a"));
}

TEST(NotificationCenter, CallsObserversOfTheNameBeforeItReturns) {
  const NotificationCenter center;
  std::vector<std::string> heard;
  center.addObserver(
      "a", nullptr, [&](const Notification& n) { heard.push_back("one " + n.name); });
  center.addObserver("b", nullptr, [&](const Notification&) { heard.push_back("other"); });
  center.addObserver(
      std::nullopt, nullptr, [&](const Notification& n) { heard.push_back("any " + n.name); });
  center.postNotificationName("a");
  EXPECT_THAT(heard, testing::UnorderedElementsAre("one a", "any a"));
}

TEST(NotificationCenter, CallsOnThePostingThread) {
  const NotificationCenter center;
  std::thread::id heardOn;
  center.addObserver(
      "a", nullptr, [&](const Notification&) { heardOn = std::this_thread::get_id(); });
  std::thread::id postedOn;
  std::thread([&] {
    postedOn = std::this_thread::get_id();
    center.postNotificationName("a");
  }).join();
  EXPECT_EQ(heardOn, postedOn);
}

TEST(NotificationCenter, SenderIsMatchedWhenAsked) {
  const NotificationCenter center;
  const int sender = 0;
  const int stranger = 0;
  std::vector<const void*> heard;
  center.addObserver("a", &sender, [&](const Notification& n) { heard.push_back(n.object); });
  center.postNotificationName("a");
  center.postNotificationName("a", &stranger);
  center.postNotificationName("a", &sender);
  EXPECT_THAT(heard, ElementsAre(&sender));
}

TEST(NotificationCenter, RemovedObserverIsNotCalled) {
  const NotificationCenter center;
  int calls = 0;
  const auto token = center.addObserver("a", nullptr, [&](const Notification&) { ++calls; });
  center.postNotificationName("a");
  center.removeObserver(token);
  center.removeObserver(token);
  center.postNotificationName("a");
  EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, ObserversMayAddRemoveAndPost) {
  const NotificationCenter center;
  std::vector<std::string> heard;
  NotificationCenter::Token token = 0;
  token = center.addObserver("a", nullptr, [&](const Notification&) {
    heard.push_back("a");
    center.removeObserver(token);
    center.addObserver("a", nullptr, [&](const Notification&) { heard.push_back("late"); });
    center.postNotificationName("b");
  });
  center.addObserver("b", nullptr, [&](const Notification&) { heard.push_back("b"); });
  center.postNotificationName("a");
  EXPECT_THAT(heard, ElementsAre("a", "b"));
  center.postNotificationName("a");
  EXPECT_THAT(heard, ElementsAre("a", "b", "late"));
}

TEST(NotificationCenter, CopiesAreTheSameCentreAndCentresAreSeparate) {
  const NotificationCenter center;
  const NotificationCenter copy = center;
  int calls = 0;
  copy.addObserver("a", nullptr, [&](const Notification&) { ++calls; });
  center.postNotificationName("a");
  NotificationCenter().postNotificationName("a");
  EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, DefaultCentreIsOne) {
  int calls = 0;
  const auto token = NotificationCenter::defaultCenter().addObserver(
      "a", nullptr, [&](const Notification&) { ++calls; });
  NotificationCenter::defaultCenter().postNotificationName("a");
  NotificationCenter::defaultCenter().removeObserver(token);
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace foundation
