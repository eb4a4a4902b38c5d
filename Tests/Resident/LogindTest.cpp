// Locking, sleeping and screen savers, over a private bus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "FakeLogind.hpp"
#include "HostProcess.hpp"
#include "Resident/Logind.hpp"
#include "Resident/Privacy.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LogindTest : public ::testing::Test {
 protected:
  LogindTest() {
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", bus.address().c_str(), 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
  }

  void listen() {
    const auto hear = [this](auto change) {
      change();
      ++events;
    };
    logind.emplace(
        loop,
        SessionEvents{
            .onLocked = [=, this](bool is) { hear([&] { privacy.setLocked(is); }); },
            .onGoingToSleep = [=, this] { hear([&] { privacy.setGoingToSleep(); }); },
            .onScreenSaver = [=, this](bool is) { hear([&] { privacy.setScreenSaver(is); }); },
            .onWithoutSession =
                [=, this](const std::string&) { hear([&] { privacy.setWithoutSession(); }); }});
  }
  /// Until one more thing has been heard.
  void hearNext() {
    const int before = events;
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (events == before && std::chrono::steady_clock::now() < end) loop.step(100ms);
    EXPECT_GT(events, before);
  }

  PrivateBus bus;
  Loop loop;
  Privacy privacy{false};
  int events = 0;
  std::optional<Logind> logind;
};

TEST_F(LogindTest, HearsWhetherTheSessionIsLocked) {
  FakeLogind session{loop, bus.address()};
  listen();
  EXPECT_THAT(privacy.reasons(), ElementsAre("unsure"));
  hearNext();
  EXPECT_THAT(privacy.reasons(), IsEmpty());
  session.setLockedHint(true);
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
  session.setLockedHint(false);
  hearNext();
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST_F(LogindTest, StartsHiddenInALockedSession) {
  FakeLogind session{loop, bus.address()};
  session.isLocked = true;
  listen();
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
}

TEST_F(LogindTest, HearsTheOrdersToLockAndUnlock) {
  FakeLogind session{loop, bus.address()};
  listen();
  hearNext();
  session.sendLock();
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
  session.sendUnlock();
  hearNext();
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST_F(LogindTest, HidesFromFallingAsleepToTheFirstWordAfterIt) {
  FakeLogind session{loop, bus.address()};
  listen();
  hearNext();
  session.sendPrepareForSleep(true);
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("sleep"));
  session.isLocked = true;
  session.sendPrepareForSleep(false);
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("locked"));
}

TEST_F(LogindTest, HearsTheScreenSaver) {
  FakeLogind session{loop, bus.address()};
  listen();
  hearNext();
  session.sendScreenSaver(true);
  hearNext();
  EXPECT_THAT(privacy.reasons(), ElementsAre("screen saver"));
}

TEST_F(LogindTest, CountsAsUnlockedWithoutAGraphicalSession) {
  FakeLogind session{loop, bus.address()};
  session.hasSession = false;
  listen();
  hearNext();
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST_F(LogindTest, CountsAsUnlockedWithoutLogind) {
  listen();
  hearNext();
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST_F(LogindTest, CountsAsUnlockedWithoutABus) {
  ::setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  listen();
  EXPECT_EQ(events, 1);
  EXPECT_THAT(privacy.reasons(), IsEmpty());
}

TEST_F(LogindTest, MasksTheWidgetsOfARunningHost) {
  FakeLogind session{loop, bus.address()};
  HostProcess host;
  host.variables = {{"DBUS_SYSTEM_BUS_ADDRESS", bus.address()}};
  host.writeDocument(household());
  host.start();
  const auto until = [&](auto condition) {
    return HostProcess::until([&] {
      loop.step(1ms);  // the session answers
      return condition();
    });
  };
  ASSERT_TRUE(until([&] { return host.areAll("live") && !host.picture("w3").empty(); }));
  const auto isHidden = [&] { return *host.ask("status").member("hidden")->boolean(); };
  ASSERT_TRUE(until([&] { return !isHidden(); }));
  ASSERT_TRUE(until([&] { return host.areAll("live"); }));
  const std::string before = host.picture("w3");
  session.setLockedHint(true);
  ASSERT_TRUE(until(isHidden));
  EXPECT_TRUE(until([&] { return host.picture("w3") != before; }));
  session.setLockedHint(false);
  EXPECT_TRUE(until([&] { return host.picture("w3") == before; }));
}

}  // namespace
}  // namespace resident
