// The resident host while its extension dies, hangs, floods or does not start.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "HostFixture.hpp"

namespace resident {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::Not;
using testsupport::contentsOf;

TEST_F(HostTest, ComesBackAfterAKillAtEveryRequest) {
  startLive();
  for (int i = 0; i < 30; ++i) {
    if (const pid_t child = host.extensionId(); child > 0) ::kill(child, SIGKILL);
    // Who is killed so often comes into quarantine; what a person asks passes all the same.
    ASSERT_TRUE(HostProcess::until([&] {
      host.ask("reload");
      return HostProcess::until([&] { return !host.isAsking(); }) && host.areAll("live");
    })) << i;
  }
}

TEST_F(HostTest, LivesWhileItsExtensionIsKilledAtAnyMoment) {
  startLive();
  for (int i = 0; i < 100; ++i) {
    host.ask("reload");
    if (const pid_t child = host.extensionId(); child > 0) ::kill(child, SIGKILL);
  }
  ASSERT_TRUE(comesBack()) << host.log();
}

class Misbehaviour : public HostTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(Misbehaviour, CostsNothingButCurrency) {
  startUnreliable();
  const std::string good = host.picture("w3");
  behave(GetParam());
  host.ask("reload");
  ASSERT_TRUE(HostProcess::until([&] { return host.textOf("w3", "state") == "stale"; }));
  EXPECT_NE(host.textOf("w3", "reason"), "");
  EXPECT_NE(host.textOf("w3", "since"), "");
  EXPECT_THAT(host.log(), HasSubstr(": widget/timeline: "));
  // The last picture stands, paler.
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != good; }));
  behave("");
  ASSERT_TRUE(comesBack()) << host.log();
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == good; }));
}

TEST_P(Misbehaviour, AtTheStartDelaysTheWidgets) {
  host.extension = UNRELIABLE_CHILD;
  host.writeDocument(household());
  behave(std::string(GetParam()) + " initialize");
  host.start();
  ASSERT_TRUE(HostProcess::until([&] {
    return host.log().find("the extension does not start: UnreliableChild: initialize: ") !=
           std::string::npos;
  }));
  behave("");
  ASSERT_TRUE(comesBack()) << host.log();
  EXPECT_TRUE(HostProcess::until([&] { return hasKept(host, "w5"); }));
}

TEST_P(Misbehaviour, AtTheControlsIntentIsSaid) {
  startUnreliable();
  behave(std::string(GetParam()) + " intent/perform");
  const auto refused = host.ask("perform", R"({"intent":"AddExpenseIntent"})");
  ASSERT_NE(refused.member("error"), nullptr);
  EXPECT_THAT(*refused.member("error")->string(), HasSubstr("intent/perform"));
  behave("");
  ASSERT_TRUE(comesBack()) << host.log();
}

INSTANTIATE_TEST_SUITE_P(,
                         Misbehaviour,
                         ::testing::Values("die", "hang", "flood", "garble"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(HostTest, ShowsNoAmountOfADocumentThatTheExtensionCannotRead) {
  startUnreliable();
  const std::string open = host.picture("w3");
  behave("die");
  host.writeDocument(household(2));
  ASSERT_TRUE(HostProcess::until([&] { return host.textOf("w3", "state") == "stale"; }));
  host.ask("hide", R"({"hide":"on"})");
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != open; }));
  const std::string redacted = host.picture("w3");
  host.ask("hide", R"({"hide":"off"})");
  EXPECT_EQ(host.picture("w3"), redacted);
}

TEST_F(HostTest, HidesWhileTheExtensionHangs) {
  startUnreliable();
  const std::string open = host.picture("w3");
  behave("hang");
  host.ask("reload");
  const auto begin = std::chrono::steady_clock::now();
  host.ask("hide", R"({"hide":"on"})");
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != open; }));
  // A hung timeline takes five seconds.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
}

TEST_F(HostTest, ShowsTheRedactedPictureWhileTheExtensionDoesNotStart) {
  startLive();
  const std::string kept = host.path("state/quorvel-host/pictures/w3.pictures.light.fullColor.png");
  ASSERT_TRUE(HostProcess::until([&] { return fs::exists(kept); }));
  host.stop();
  fs::remove(host.path("pictures/w3.png"));
  host.extension = "/bin/false";
  host.start();
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == contentsOf(kept); }));
  EXPECT_TRUE(HostProcess::until(
      [&] { return host.log().find("the extension does not start") != std::string::npos; }));
}

TEST_F(HostTest, EndsSoonWhileItsExtensionHangs) {
  startUnreliable();
  const pid_t child = host.extensionId();
  behave("hang");
  host.ask("reload");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(host.stop(), 0);
  // A hung timeline takes five seconds.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
  EXPECT_TRUE(HostProcess::until([&] { return ::kill(child, 0) != 0; }));
}

TEST_F(HostTest, LogsNoAmount) {
  startUnreliable();
  behave("garble");
  host.ask("reload");
  ASSERT_TRUE(HostProcess::until([&] { return host.textOf("w3", "state") == "stale"; }));
  for (const char* amount : {"412", "15.99", "2400", "591", "8320"}) {
    EXPECT_THAT(host.log(), Not(HasSubstr(amount)));
  }
}

}  // namespace
}  // namespace resident
