// What a person gets who asks wrongly: usage errors are 2, refusals 1, each with one line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "CommandRunner.hpp"

namespace cli {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kKind = "QuorvelSpendingWidget";

void expectOneLine(const Outcome& outcome, int status, const std::string& part) {
  EXPECT_EQ(outcome.status, status) << outcome.errors;
  EXPECT_THAT(outcome.errors, HasSubstr(part));
  EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
  EXPECT_THAT(outcome.out, IsEmpty());
}

TEST(Usage, WithoutACommandShowsAllOfThem) {
  const Outcome nothing = runHost({});
  EXPECT_EQ(nothing.status, 2);
  EXPECT_THAT(nothing.out, IsEmpty());
  const Outcome help = runHost({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.out, nothing.errors);
  for (const char* command : {"list",
                              "render",
                              "sheet",
                              "gallery",
                              "timeline",
                              "options",
                              "validate",
                              "sample",
                              "perform",
                              "bench",
                              "doctor"}) {
    EXPECT_THAT(help.out, HasSubstr(std::string("\n  ") + command + " "));
    const Outcome own = runHost({command, "--help"});
    EXPECT_EQ(own.status, 0) << command;
    EXPECT_THAT(own.out, HasSubstr(std::string("Usage: quorvel-host ") + command));
    EXPECT_THAT(own.out, HasSubstr(std::string("Examples:\n  quorvel-host ") + command));
  }
}

TEST(Usage, UnknownCommandsAndOptions) {
  expectOneLine(runHost({"draw"}), 2, "there is no command \"draw\"");
  expectOneLine(runHost({"list", "--jsn"}), 2, "--jsn");
  expectOneLine(runHost({"render"}), 2, "KIND is required");
  expectOneLine(runHost({"render", kKind, "--scale"}), 2, "--scale");
}

struct BadValue {
  const char* option;
  const char* value;
};

TEST(Usage, MalformedValuesNameTheOptionAndTheForm) {
  const BadValue values[] = {
      {"--family", "systemHuge"},
      {"--family", "systemsmall"},
      {"--now", "2025-03-14"},
      {"--now", "2025-02-30T00:00:00Z"},
      {"--time-zone", "Mars/Phobos"},
      {"--time-zone", "../etc/passwd"},
      {"--size", "170"},
      {"--size", "0x170"},
      {"--preset", "tiny"},
      {"--appearance", "sepia"},
      {"--mode", "fullcolor"},
      {"--tint", "8A2BE2"},
      {"--redact", "all"},
      {"--scale", "0"},
      {"--scale", "9"},
      {"--format", "jpeg"},
      {"--png", "tiny"},
      {"--configure", "ring"},
  };
  for (const auto& [option, value] : values) {
    const Outcome outcome = runHost({"render", kKind, option, value, "-o", "/dev/null"});
    expectOneLine(outcome, 2, std::string(option) + ": \"" + value + "\" is not ");
  }
}

TEST(Usage, CountsAreWholeAndBounded) {
  expectOneLine(runHost({"bench", "--images", "0"}), 2, "--images: \"0\"");
  expectOneLine(runHost({"bench", "--images", "1.5"}), 2, "--images: \"1.5\"");
  expectOneLine(runHost({"bench", "--warmup", "-1"}), 2, "--warmup");
}

TEST(Usage, ContainerAndSnapshotExcludeEachOther) {
  expectOneLine(runHost({"list", "--container", "/tmp", "--snapshot", "x.json"}), 2, "excludes");
}

TEST(Refusal, UnknownKindsAndChoices) {
  const std::string file = example("household.json").string();
  expectOneLine(runHost({"render", "QuorvelWidget", "--snapshot", file, "-o", "/dev/null"}),
                1,
                "there is no widget \"QuorvelWidget\" (there are: QuorvelCardLimitWidget, ");
  expectOneLine(runHost({"timeline", "QuorvelWidget"}), 1, "there is no widget");
  expectOneLine(
      runHost({"options", kKind, "card"}), 1, "QuorvelSpendingWidget has no parameter \"card\"");
  expectOneLine(runHost({"render",
                         "QuorvelSafeToSpendWidget",
                         "--configure",
                         "style=rang",
                         "--snapshot",
                         file,
                         "-o",
                         "/dev/null"}),
                1,
                "\"rang\" is no style");
  expectOneLine(runHost({"perform", "NoSuchIntent", "--no-open"}), 1, "NoSuchIntent");
}

TEST(Refusal, OutputThatCannotBeWritten) {
  const std::string file = example("household.json").string();
  expectOneLine(runHost({"render", kKind, "--snapshot", file, "-o", "/nonexistent/picture.png"}),
                1,
                "cannot write /nonexistent/picture.png: No such file or directory");
  expectOneLine(runHost({"render", kKind, "--snapshot", file, "-o", "/dev/full"}),
                1,
                "No space left on device");
  expectOneLine(runHost({"sample", "-o", "/"}), 1, "cannot write /: Is a directory");
}

TEST(Refusal, SnapshotsThatAreNoFiles) {
  expectOneLine(runHost({"render", kKind, "--snapshot", "/nonexistent.json", "-o", "/dev/null"}),
                1,
                "cannot read /nonexistent.json: No such file or directory");
  expectOneLine(runHost({"render", kKind, "--snapshot", "/tmp", "-o", "/dev/null"}),
                1,
                "/tmp: not a regular file");
  expectOneLine(runHost({"render", kKind, "--snapshot", "/dev/zero", "-o", "/dev/null"}),
                1,
                "not a regular file");
}

TEST(Refusal, AnExtensionThatIsNone) {
  const Outcome outcome =
      runHost({"list", "--isolated", "--extension", "/nonexistent/quorvel-widgets"});
  expectOneLine(outcome, 1, "/nonexistent/quorvel-widgets");
  expectOneLine(runHost({"list", "--isolated", "--extension", "/bin/true"}), 1, "the extension: ");
}

}  // namespace
}  // namespace cli
