// What `cmake --install` puts in place, and that the programs find each other there and after a
// move.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "CommandRunner.hpp"

namespace cli {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

class Installation : public ::testing::Test {
 protected:
  Installation() : prefix_(folder_.path() / "prefix") {
    const Outcome outcome = runProgram(
        "/usr/bin/cmake", {"--install", QUORVEL_BINARY_DIR, "--prefix", prefix_.string()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
  }

  [[nodiscard]] std::set<std::string> files() const {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(prefix_)) {
      if (!entry.is_directory()) files.insert(entry.path().lexically_relative(prefix_));
    }
    return files;
  }

  [[nodiscard]] Outcome runInstalled(const Words& words) const {
    return runProgram(prefix_ / "bin/quorvel-host", words);
  }

  /// "what" of `doctor` to where it was found.
  [[nodiscard]] std::map<std::string, std::string> findings() const {
    const Outcome outcome = runInstalled(
        {"doctor", "--isolated", "--json", "--snapshot", example("household.json").string()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    std::map<std::string, std::string> found;
    const json answer = json::parse(outcome.out, nullptr, false);
    for (const json& finding : answer["findings"]) {
      if (finding["found"]) found[finding["what"]] = finding["where"];
    }
    return found;
  }

  void expectItFindsItself() const {
    auto found = findings();
    EXPECT_EQ(found["extension program"], (prefix_ / "libexec/quorvel-widgets").string());
    EXPECT_EQ(found["Info.plist"], (prefix_ / "share/quorvel-widgets/Info.plist").string());
    EXPECT_EQ(found["extension, isolated"],
              std::to_string(offeredKinds().size()) + " widgets, 1 controls");
  }

  TemporaryFolder folder_;
  fs::path prefix_;
};

TEST_F(Installation, PutsEverythingWhereDebianLooksForIt) {
  EXPECT_THAT(files(),
              ::testing::ElementsAre("bin/quorvel-host",
                                     "bin/quorvel-hostd",
                                     "bin/quorvel-import",
                                     "lib/systemd/user/quorvel-hostd.service",
                                     "lib/systemd/user/quorvel-hostd.socket",
                                     "libexec/quorvel-watch",
                                     "libexec/quorvel-widgets",
                                     "share/applications/quorvel-board.desktop",
                                     "share/applications/quorvel-import.desktop",
                                     "share/bash-completion/completions/quorvel-host",
                                     "share/bash-completion/completions/quorvel-import",
                                     "share/doc/quorvel-widgets/application.md",
                                     "share/doc/quorvel-widgets/bars/i3blocks.conf",
                                     "share/doc/quorvel-widgets/bars/polybar.ini",
                                     "share/doc/quorvel-widgets/bars/sway.conf",
                                     "share/doc/quorvel-widgets/bars/waybar.css",
                                     "share/doc/quorvel-widgets/bars/waybar.jsonc",
                                     "share/doc/quorvel-widgets/board.md",
                                     "share/doc/quorvel-widgets/changelog.gz",
                                     "share/doc/quorvel-widgets/copyright",
                                     "share/doc/quorvel-widgets/examples/README.md",
                                     "share/doc/quorvel-widgets/examples/household.journal",
                                     "share/doc/quorvel-widgets/examples/household.json",
                                     "share/doc/quorvel-widgets/examples/household.toml",
                                     "share/doc/quorvel-widgets/examples/minimal.json",
                                     "share/doc/quorvel-widgets/ledger.md",
                                     "share/doc/quorvel-widgets/protocol.md",
                                     "share/doc/quorvel-widgets/snapshot.md",
                                     "share/doc/quorvel-widgets/widget-snapshot.schema.json",
                                     "share/icons/hicolor/scalable/apps/quorvel-board.svg",
                                     "share/man/man1/quorvel-host.1.gz",
                                     "share/man/man1/quorvel-hostd.1.gz",
                                     "share/man/man1/quorvel-import.1.gz",
                                     "share/quorvel-widgets/Info.plist"));
}

TEST_F(Installation, FindsItselfThereAndAfterAMove) {
  expectItFindsItself();
  const fs::path moved = folder_.path() / "elsewhere";
  fs::rename(prefix_, moved);
  prefix_ = moved;
  expectItFindsItself();
}

TEST_F(Installation, DrawsAsFromTheBuild) {
  const Words words{"render",
                    "QuorvelSpendingWidget",
                    "--isolated",
                    "--now",
                    "2025-03-14T09:30:00Z",
                    "--snapshot",
                    example("household.json").string()};
  const Outcome installed = runInstalled(words);
  EXPECT_EQ(installed.status, 0);
  EXPECT_THAT(installed.errors, IsEmpty());
  EXPECT_TRUE(installed.out.starts_with("\x89PNG"));
  EXPECT_EQ(installed.out, runHost(words).out);
}

TEST_F(Installation, FindsTheProgramOfABarsWatch) {
  const Outcome outcome = runProgram(
      "/bin/sh",
      {"-c", "\"$0\" watch due </dev/null | head -n 1", (prefix_ / "bin/quorvel-host").string()},
      {{"XDG_RUNTIME_DIR", folder_.path().string()}});
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.out, "due\n");
}

TEST_F(Installation, SaysThatTheProgramOfABarsWatchIsMissing) {
  fs::remove(prefix_ / "libexec/quorvel-watch");
  const Outcome outcome = runProgram(prefix_ / "bin/quorvel-host",
                                     {"watch", "due"},
                                     {{"XDG_RUNTIME_DIR", folder_.path().string()}});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors,
            "quorvel-host watch: the program quorvel-watch is not beside " +
                (prefix_ / "bin/quorvel-host").string() + "\n");
}

TEST_F(Installation, HasUnitsThatSystemdUnderstands) {
  const std::string start = "ExecStart=/usr/";
  std::string service = contentsOf(prefix_ / "lib/systemd/user/quorvel-hostd.service");
  const auto at = service.find(start);
  ASSERT_NE(at, std::string::npos);
  service.replace(at, start.size(), "ExecStart=" + prefix_.string() + "/");
  const Outcome outcome = runProgram("/usr/bin/systemd-analyze",
                                     {"verify",
                                      "--user",
                                      "--man=no",
                                      folder_.write("units/quorvel-hostd.service", service),
                                      prefix_ / "lib/systemd/user/quorvel-hostd.socket"},
                                     {{"XDG_RUNTIME_DIR", folder_.path().string()}});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.errors, "");
}

// A property list in the working directory is not the extension's.
TEST_F(Installation, WithoutTheExtensionsProgramItsPropertyListIsStillFound) {
  fs::remove(prefix_ / "libexec/quorvel-widgets");
  const fs::path stray = folder_.path() / "stray";
  fs::create_directories(stray);
  fs::copy_file(prefix_ / "share/quorvel-widgets/Info.plist", stray / "Info.plist");
  const Outcome outcome = runProgram("/bin/sh",
                                     {"-c",
                                      "cd \"$0\" && exec \"$1\" doctor --json",
                                      stray.string(),
                                      (prefix_ / "bin/quorvel-host").string()});
  const json answer = json::parse(outcome.out, nullptr, false);
  for (const json& finding : answer["findings"]) {
    if (finding["what"] != "Info.plist") continue;
    EXPECT_EQ(finding["where"], (prefix_ / "share/quorvel-widgets/Info.plist").string());
    return;
  }
  ADD_FAILURE() << outcome.out;
}

TEST_F(Installation, TheManualAndTheCopyrightAreWhole) {
  const Outcome manual =
      runProgram("/bin/gzip", {"-dc", prefix_ / "share/man/man1/quorvel-host.1.gz"});
  EXPECT_EQ(manual.out, contentsOf(QUORVEL_SOURCE_DIR "/Install/quorvel-host.1"));
  EXPECT_NE(contentsOf(prefix_ / "share/doc/quorvel-widgets/copyright")
                .find(contentsOf(QUORVEL_SOURCE_DIR "/NOTICE")),
            std::string::npos);
}

}  // namespace
}  // namespace cli
