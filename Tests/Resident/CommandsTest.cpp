// The commands that speak to the resident host, and lines for bars.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "HostProcess.hpp"
#include "Subprocess.hpp"

namespace resident {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using testsupport::contentsOf;

class CommandsTest : public ::testing::Test {
 protected:
  void startLive() {
    host.writeDocument(household());
    host.start();
    ASSERT_TRUE(HostProcess::until([&] {
      return host.areAll("live") && !*host.ask("status").member("hidden")->boolean();
    })) << host.log();
  }

  struct Outcome {
    int status = -1;
    std::string out;
    std::string errors;
  };
  std::unique_ptr<Subprocess> begin(std::vector<std::string> words) {
    words.insert(words.begin(), QUORVEL_BINARY_DIR "/bin/quorvel-host");
    return std::make_unique<Subprocess>(words, host.environment());
  }
  Outcome run(const std::vector<std::string>& words) {
    const auto program = begin(words);
    Outcome outcome;
    while (const auto line = program->line()) outcome.out += *line + "\n";
    outcome.status = program->wait();
    outcome.errors = program->errors();
    return outcome;
  }
  /// A program on the session's search path.
  void program(const std::string& name, const std::string& script) {
    const std::string path = host.path("home/" + name);
    std::ofstream(path) << "#!/bin/sh\n" << script << "\n";
    ::chmod(path.c_str(), 0755);
    host.variables["PATH"] = host.path("home") + ":/usr/bin:/bin";
  }

  HostProcess host;
};

TEST_F(CommandsTest, SayHowToStartAHost) {
  for (const char* command : {"status", "reload"}) {
    const Outcome refused = run({command});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("systemctl --user enable --now quorvel-hostd.socket"));
    EXPECT_THAT(refused.errors, HasSubstr("`quorvel-hostd &`"));
  }
}

TEST_F(CommandsTest, ShowTheStatus) {
  startLive();
  const Outcome status = run({"status"});
  EXPECT_EQ(status.status, 0);
  EXPECT_THAT(status.out, StartsWith("amounts are shown\n"));
  EXPECT_THAT(status.out, HasSubstr("w3   live        net-worth systemSmall"));
  EXPECT_THAT(status.out, HasSubstr("as of 2025-03-14T09:30:00Z"));
  EXPECT_THAT(run({"status", "--json"}).out, StartsWith("{\"process\":"));
}

TEST_F(CommandsTest, PlaceConfigureMoveAndRemove) {
  startLive();
  EXPECT_EQ(run({"add", "safe-to-spend", "--configure", "style=ring"}).out, "w6\n");
  EXPECT_EQ(run({"configure", "w6", "--family", "systemMedium"}).status, 0);
  EXPECT_EQ(run({"move", "w6", "1", "2"}).status, 0);
  EXPECT_THAT(run({"status"}).out, HasSubstr("safe-to-spend systemMedium style=ring"));
  EXPECT_EQ(run({"remove", "w6"}).status, 0);
  EXPECT_THAT(run({"status"}).out, Not(HasSubstr("w6")));
  EXPECT_THAT(run({"remove", "w6"}).errors,
              StartsWith("quorvel-host remove: nothing is placed as \"w6\""));
  EXPECT_EQ(run({"move", "w1", "x", "0"}).status, 2);
  EXPECT_EQ(run({"hide", "perhaps"}).status, 2);
}

TEST_F(CommandsTest, HideAndShow) {
  startLive();
  EXPECT_EQ(run({"hide", "on"}).out, "amounts are hidden (hide)\n");
  EXPECT_EQ(run({"hide", "toggle"}).out, "amounts are shown\n");
}

TEST_F(CommandsTest, ReloadOneOrAll) {
  startLive();
  EXPECT_EQ(run({"reload", "net-worth"}).status, 0);
  EXPECT_EQ(host.textOf("w3", "lastCause"), "person");
  EXPECT_EQ(host.textOf("w1", "lastCause"), "start");
  EXPECT_EQ(run({"reload"}).status, 0);
  EXPECT_EQ(host.textOf("w1", "lastCause"), "person");
}

TEST_F(CommandsTest, OpenWhatAWidgetLinksTo) {
  program("xdg-mime", "echo app.desktop");
  program("xdg-open", "echo \"$1\" >" + host.path("home/opened"));
  startLive();
  const Outcome opened = run({"open", "due"});
  EXPECT_EQ(opened.status, 0) << opened.errors;
  // Who opens links is not waited for.
  EXPECT_TRUE(HostProcess::until(
      [&] { return contentsOf(host.path("home/opened")) == "quorvel-widget://open/bills\n"; }));
}

TEST_F(CommandsTest, SayThatNothingIsRegisteredForALink) {
  program("xdg-mime", "true");
  startLive();
  const Outcome refused = run({"open", "due"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr("no application is registered for quorvel-widget links"));
}

TEST_F(CommandsTest, TakeShortKindsEverywhere) {
  host.writeDocument(household());
  const Outcome text = run({"render",
                            "net-worth",
                            "--format",
                            "text",
                            "--snapshot",
                            host.path("container/widget-snapshot.json")});
  EXPECT_EQ(text.status, 0) << text.errors;
  EXPECT_THAT(text.out, HasSubstr("97,260"));
}

TEST_F(CommandsTest, WatchALineThatFollowsTheDocument) {
  startLive();
  const auto watch = begin({"watch", "net-worth"});
  ASSERT_TRUE(watch->lineWith("97,260"));
  host.writeDocument(household(2));
  EXPECT_TRUE(watch->lineWith("194,520"));
}

TEST_F(CommandsTest, WatchALineThatIsMaskedWhileHidden) {
  startLive();
  const auto watch = begin({"watch", "net-worth", "--format", "json"});
  const auto open = watch->lineWith("97,260");
  ASSERT_TRUE(open);
  EXPECT_THAT(*open, HasSubstr("\"hidden\":false"));
  run({"hide", "on"});
  const auto masked = watch->lineWith("\"hidden\":true");
  ASSERT_TRUE(masked);
  EXPECT_THAT(*masked, Not(HasSubstr("97")));
  EXPECT_THAT(*masked, HasSubstr("••••"));
}

TEST_F(CommandsTest, WatchAcrossARestartWithoutAnAmountLeftStanding) {
  const auto watch = begin({"watch", "net-worth"});
  EXPECT_EQ(watch->line(), "net-worth");
  startLive();
  ASSERT_TRUE(watch->lineWith("97,260"));
  host.stop();
  EXPECT_EQ(watch->line(), "net-worth");
  host.start();
  EXPECT_TRUE(watch->lineWith("97,260"));
}

TEST_F(CommandsTest, WatchUntilNobodyReads) {
  startLive();
  const auto watch = begin({"watch", "net-worth"});
  ASSERT_TRUE(watch->lineWith("97,260"));
  watch->closeOutput();
  EXPECT_EQ(watch->wait(), 0);
}

TEST_F(CommandsTest, WatchUntilNobodyReadsWithoutAHost) {
  const auto watch = begin({"watch", "net-worth"});
  EXPECT_EQ(watch->line(), "net-worth");
  watch->closeOutput();
  EXPECT_EQ(watch->wait(), 0);
}

TEST_F(CommandsTest, RefuseToWatchWhatIsNoWidget) {
  startLive();
  const Outcome refused = run({"watch", "weather"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr("safe-to-spend"));
}

TEST_F(CommandsTest, FollowTheClicksOfI3bar) {
  program("xdg-mime", "echo app.desktop");
  program("xdg-open", "echo \"$1\" >" + host.path("home/opened"));
  startLive();
  const auto watch = begin({"watch", "net-worth", "--format", "i3bar"});
  EXPECT_EQ(watch->line(), R"({"version":1,"click_events":true})");
  EXPECT_EQ(watch->line(), "[");
  ASSERT_TRUE(watch->lineWith("97,260"));
  watch->write("[\n{\"name\":\"quorvel\",\"instance\":\"net-worth\",\"button\":3}\n");
  ASSERT_TRUE(watch->lineWith("••••"));
  watch->write(",{\"name\":\"quorvel\",\"instance\":\"net-worth\",\"button\":1}\n");
  EXPECT_TRUE(HostProcess::until([&] { return !contentsOf(host.path("home/opened")).empty(); }));
}

TEST_F(CommandsTest, LetTheWatchOfAPlacementFollowItsConfiguration) {
  startLive();
  const auto watch = begin({"watch", "w4", "--format", "json"});
  ASSERT_TRUE(watch->lineWith("\"kind\":\"safe-to-spend\""));
  run({"remove", "w4"});
  run({"add", "safe-to-spend"});
  const auto other = begin({"watch", "safe-to-spend", "--format", "json"});
  EXPECT_TRUE(other->lineWith("\"kind\":\"safe-to-spend\""));
}

}  // namespace
}  // namespace resident
