// The real resident host with the real extension.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

#include "HostFixture.hpp"
#include "Tests/Support/Waiting.hpp"

namespace resident {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using testsupport::contentsOf;

TEST_F(HostTest, PlacesAndDrawsOneOfEachWidget) {
  startLive();
  const foundation::JsonDocument status = host.ask("status");
  std::set<std::string> kinds;
  for (const foundation::JsonValue& placement : *status.member("placements")->array()) {
    const std::string id = placement.textOf("id");
    EXPECT_THAT(host.picture(id), ::testing::StartsWith("\x89PNG")) << id;
    EXPECT_NE(host.textOf(id, "nextReload"), "") << id;
    kinds.insert(placement.textOf("kind"));
  }
  EXPECT_THAT(
      kinds,
      ::testing::IsSupersetOf({"card-limit", "due", "net-worth", "safe-to-spend", "spending"}));
  EXPECT_EQ(kinds.size(), status.member("placements")->array()->size());
  EXPECT_EQ(host.textOf("w4", "kind"), "safe-to-spend");
  EXPECT_EQ(host.log(), "");
}

TEST_F(HostTest, DrawsAChangedDocument) {
  startLive();
  const std::string before = host.picture("w3");
  host.writeDocument(household(2));
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") != before; }));
  EXPECT_EQ(host.textOf("w3", "lastCause"), "document");
}

TEST_F(HostTest, DrawsAContainerThatIsMadeLater) {
  fs::remove(host.path("container"));
  host.start();
  ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live") && hasKept(host, "w3"); }));
  const std::string without = host.picture("w3");
  fs::create_directory(host.path("container"));
  host.writeDocument(household());
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") != without; }));
}

TEST_F(HostTest, DrawsAContainerThatWasReplacedByAFileMeanwhile) {
  startLive();
  const std::string with = host.picture("w3");
  fs::remove_all(host.path("container"));
  std::ofstream(host.path("container")) << "x";
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != with; }));
  fs::remove(host.path("container"));
  fs::create_directory(host.path("container"));
  host.writeDocument(household());
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == with; }));
}

TEST_F(HostTest, DrawsOnlyWhatWasWritten) {
  const std::set<std::string> possible{pictureOf(1), pictureOf(2), pictureOf(3)};
  ASSERT_THAT(possible, SizeIs(3));
  startLive();
  ASSERT_TRUE(HostProcess::until([&] { return possible.contains(host.picture("w3")); }));
  const std::string documents[]{household(1), household(2), household(3)};
  for (int i = 0; i < 1000; ++i) {
    host.writeDocument(documents[i % 3]);
    if (i % 10 == 0) {
      EXPECT_TRUE(possible.contains(host.picture("w3"))) << i;
    }
  }
  host.writeDocument(documents[1]);
  const std::string last = pictureOf(2);
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == last; }));
}

TEST_F(HostTest, HidesWithoutTheExtensionAndStaysHidden) {
  startLive();
  const std::string open = host.picture("w3");
  ::kill(host.extensionId(), SIGKILL);
  host.ask("hide", R"({"hide":"on"})");
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != open; }));
  const std::string hidden = host.picture("w3");
  EXPECT_EQ(host.stop(), 0);
  host.start();
  ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live"); }));
  EXPECT_EQ(host.picture("w3"), hidden);
  host.ask("hide", R"({"hide":"off"})");
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == open; }));
}

TEST_F(HostTest, KeepsRedactedPicturesForTheNextStart) {
  startLive();
  const std::string kept = host.path("state/quorvel-host/pictures/w3.pictures.light.fullColor.png");
  ASSERT_TRUE(HostProcess::until([&] { return fs::exists(kept); }));
  struct stat status {};
  ASSERT_EQ(::stat(kept.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
  host.ask("hide", R"({"hide":"on"})");
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == contentsOf(kept); }));
  host.ask("remove", R"({"id":"w3"})");
  EXPECT_TRUE(HostProcess::until([&] { return !fs::exists(kept); }));
  EXPECT_FALSE(fs::exists(host.path("pictures/w3.png")));
}

TEST_F(HostTest, RunsOnce) {
  startLive();
  HostProcess second;
  second.variables["XDG_RUNTIME_DIR"] = host.path("run");
  second.start();
  EXPECT_EQ(second.wait(), 1);
  EXPECT_THAT(second.log(), HasSubstr("a resident host runs already"));
  EXPECT_TRUE(host.areAll("live"));
}

TEST_F(HostTest, EndsWithItsExtension) {
  startLive();
  const pid_t child = host.extensionId();
  ASSERT_GT(child, 0);
  EXPECT_EQ(host.stop(), 0);
  // On a busy machine it is killed, but not gone yet.
  EXPECT_TRUE(HostProcess::until([&] { return ::kill(child, 0) != 0; }));
  EXPECT_FALSE(fs::exists(host.path("run/quorvel-host/control")));
}

TEST_F(HostTest, KeepsPlacementsOverARestart) {
  startLive();
  const auto added =
      host.ask("add", R"({"kind":"safe-to-spend","configuration":{"style":"ring"}})");
  ASSERT_NE(added.member("id"), nullptr);
  EXPECT_EQ(*added.member("id")->string(), "w6");
  host.ask("configure", R"({"id":"w1","family":"systemLarge"})");
  host.ask("remove", R"({"id":"w2"})");
  host.ask("move", R"({"id":"w3","surface":"board","column":2,"row":1})");
  host.stop();
  EXPECT_THAT(contentsOf(host.path("config/quorvel-host/placements.json")),
              HasSubstr(R"("board":{"column":2,"row":1})"));
  host.start();
  ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live"); }));
  EXPECT_EQ(host.textOf("w1", "family"), "systemLarge");
  EXPECT_TRUE(host.placement("w2").isNull());
  EXPECT_EQ(*host.placement("w6").member("configuration")->member("style")->string(), "ring");
  EXPECT_EQ(*host.ask("add", R"({"kind":"due"})").member("id")->string(), "w7");
}

TEST_F(HostTest, RefusesWhatIsNotOffered) {
  startLive();
  const auto error = [&](const char* method, const char* parameters) {
    return host.ask(method, parameters).textOf("error");
  };
  EXPECT_THAT(error("add", R"({"kind":"weather"})"), HasSubstr("safe-to-spend"));
  EXPECT_THAT(error("add", R"({"kind":"due","family":"systemLarge"})"), HasSubstr("systemLarge"));
  EXPECT_THAT(error("add", R"({"kind":"due","family":"huge"})"), HasSubstr("family"));
  EXPECT_THAT(error("add", R"({"kind":"safe-to-spend","configuration":{"style":"x"}})"),
              HasSubstr("\"x\" is no style"));
  EXPECT_THAT(error("add", R"({"kind":"due","configuration":{"style":"ring"}})"),
              HasSubstr("no parameter"));
  EXPECT_THAT(error("remove", R"({"id":"w9"})"), HasSubstr("w9"));
  EXPECT_THAT(error("reload", R"({"target":"weather"})"), HasSubstr("weather"));
  EXPECT_THAT(error("hide", R"({"hide":"maybe"})"), HasSubstr("/hide: expected on, off, toggle"));
  EXPECT_THAT(error("move", R"({"id":"w1","surface":"board","column":-1,"row":0})"),
              HasSubstr("/column: expected a number in 0...999"));
  EXPECT_THAT(error("nonsense", "{}"), HasSubstr("nonsense"));
  EXPECT_TRUE(host.areAll("live"));
}

TEST_F(HostTest, PutsBrokenPlacementsAsideAndStarts) {
  fs::create_directories(host.path("config/quorvel-host"));
  std::ofstream(host.path("config/quorvel-host/placements.json")) << "{\"version\":1}";
  startLive();
  EXPECT_THAT(host.log(), HasSubstr("placements.json.broken-1"));
  EXPECT_TRUE(fs::exists(host.path("config/quorvel-host/placements.json.broken-1")));
}

TEST_F(HostTest, PutsPlacementsOfALaterVersionAsideAndStarts) {
  fs::create_directories(host.path("config/quorvel-host"));
  std::ofstream(host.path("config/quorvel-host/placements.json")) << R"({"version":2,"more":[]})";
  startLive();
  EXPECT_THAT(host.log(), HasSubstr("it is kept as"));
  EXPECT_EQ(contentsOf(host.path("config/quorvel-host/placements.json.later-1")),
            R"({"version":2,"more":[]})");
}

TEST_F(HostTest, FollowsTheContainersPermissions) {
  // Root may read everything, but for what it gives up.
  if (::geteuid() == 0) {
    host.launcher = {"/usr/bin/setpriv", "--bounding-set=-all", "--inh-caps=-all"};
  }
  startLive();
  const std::string with = host.picture("w3");
  ::chmod(host.path("container").c_str(), 0);
  ASSERT_TRUE(HostProcess::until([&] { return host.picture("w3") != with; }));
  ::chmod(host.path("container").c_str(), 0700);
  EXPECT_TRUE(HostProcess::until([&] { return host.picture("w3") == with; }));
}

TEST_F(HostTest, LogsNothingThatATerminalObeys) {
  host.extension = host.path("no\x1B[2Jprogram");
  host.start();
  ASSERT_TRUE(HostProcess::until(
      [&] { return host.log().find("no\\u001B[2Jprogram") != std::string::npos; }));
  EXPECT_THAT(host.log(), Not(HasSubstr("\x1B")));
}

TEST_F(HostTest, SleepsWhileNothingHappens) {
  startLive();
  const auto switches = [&] {
    long sum = 0;
    for (const auto& task :
         fs::directory_iterator("/proc/" + std::to_string(host.id()) + "/task")) {
      std::ifstream status(task.path() / "status");
      for (std::string word; status >> word;) {
        if (!word.ends_with("_ctxt_switches:")) continue;
        long count = 0;
        status >> count;
        sum += count;
      }
    }
    return sum;
  };
  // The redacted pictures are written two seconds after the last change.
  ASSERT_TRUE(HostProcess::until([&] {
    return fs::exists(host.path("state/quorvel-host/pictures/w5.pictures.light.fullColor.png"));
  }));
  const char* seconds = std::getenv("QUORVEL_IDLE_SECONDS");
  const auto idle = std::chrono::seconds(seconds != nullptr ? std::atoi(seconds) : 3);
  long before = 0;
  // What was begun before is still being finished.
  ASSERT_TRUE(HostProcess::until([&] {
    before = switches();
    return !testsupport::endsWithin(host.id(), 50ms) && switches() == before;
  }));
  EXPECT_FALSE(testsupport::endsWithin(host.id(), idle));
  EXPECT_EQ(switches() - before, 0);
}

TEST_F(HostTest, GrowsWithNoReload) {
  const char* wanted = std::getenv("QUORVEL_RELOADS");
  const int reloads = wanted != nullptr ? std::atoi(wanted) : 400;
  startLive();
  const auto figure = [&](const std::string& name) {
    std::ifstream status("/proc/" + std::to_string(host.id()) + "/status");
    for (std::string word; status >> word;) {
      if (word != name) continue;
      long value = 0;
      status >> value;
      return value;
    }
    return 0L;
  };
  // Root alone sees those of a process that keeps its memory private.
  const auto descriptors = [&] {
    std::error_code hidden;
    return std::distance(
        fs::directory_iterator("/proc/" + std::to_string(host.id()) + "/fd", hidden), {});
  };
  const std::string documents[]{household(1), household(2)};
  int written = 0;
  const auto reload = [&](int count) {
    for (int i = 0; i < count; ++i) {
      const std::string before = host.picture("w3");
      host.writeDocument(documents[++written % 2]);
      if (!HostProcess::until([&] { return host.picture("w3") != before; })) {
        ADD_FAILURE() << "not drawn: " << i;
        return;
      }
    }
  };
  reload(reloads / 5);
  [[maybe_unused]] const long memory = figure("RssAnon:");
  const auto open = descriptors();
  reload(reloads);
#if !defined(__SANITIZE_ADDRESS__)  // which keeps freed memory for a while
  // In kilobytes.
  EXPECT_LE(figure("RssAnon:") - memory, 1024) << "from " << memory;
#endif
  EXPECT_EQ(descriptors(), open);
}

TEST_F(HostTest, TakesTheSocketOfSystemd) {
  host.writeDocument(household());
  const std::string socket = host.path("run/quorvel-host/control");
  fs::create_directory(host.path("run/quorvel-host"));
  host.activator = "/usr/bin/systemd-socket-activate";
  host.start();
  ASSERT_TRUE(HostProcess::until([&] { return fs::exists(socket); }));
  ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live"); })) << host.log();
  EXPECT_EQ(host.stop(), 0);
  EXPECT_TRUE(fs::exists(socket));  // it is systemd's
}

}  // namespace
}  // namespace resident
