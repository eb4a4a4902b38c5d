// `render` and `sheet` as whole programs: every form, every refusal that is a picture instead, and
// the child's bytes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "CommandRunner.hpp"

namespace cli {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kPngSignature{"\x89PNG\r\n\x1a\n", 8};
const Words kToday{"--now",
                   "2025-03-14T09:30:00Z",
                   "--time-zone",
                   "UTC",
                   "--locale",
                   "en_US",
                   "--languages",
                   "en"};
const std::string kHousehold = example("household.json").string();

Words operator+(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

std::string drawn(const Words& words) {
  const Outcome outcome = runHost(Words{"render"} + words + kToday);
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.errors, IsEmpty());
  return outcome.out;
}

/// Width and height stand in the first chunk, big endian.
std::pair<unsigned, unsigned> pngSize(const std::string& png) {
  const auto number = [&](std::size_t at) {
    unsigned value = 0;
    for (std::size_t i = 0; i < 4; ++i)
      value = value << 8 | static_cast<unsigned char>(png.at(at + i));
    return value;
  };
  return {number(16), number(20)};
}

TEST(Render, PngHasTheFamilysSizeTimesTheScale) {
  const Words document{"--snapshot", kHousehold};
  const std::string small = drawn(Words{"QuorvelSpendingWidget"} + document);
  EXPECT_THAT(small, StartsWith(kPngSignature));
  EXPECT_EQ(pngSize(small), (std::pair{340u, 340u}));
  EXPECT_EQ(pngSize(drawn(Words{"QuorvelSpendingWidget",
                                "--family",
                                "systemLarge",
                                "--preset",
                                "stress",
                                "--scale",
                                "3"} +
                          document)),
            (std::pair{876u, 933u}));
  EXPECT_EQ(
      pngSize(drawn(Words{"QuorvelDueWidget", "--size", "200x100", "--scale", "1"} + document)),
      (std::pair{200u, 100u}));
}

TEST(Render, BothPngSizesHoldTheSamePictureAndSmallIsSmaller) {
  const Words words{"QuorvelNetWorthWidget", "--family", "systemMedium", "--snapshot", kHousehold};
  EXPECT_LT(drawn(words + Words{"--png", "small"}).size(), drawn(words).size());
}

TEST(Render, TextFormsSayWhatTheWidgetSays) {
  const Words words{
      "QuorvelSpendingWidget", "--family", "systemLarge", "--snapshot", kHousehold, "--format"};
  for (const char* form : {"text", "tree", "placed", "accessibility"}) {
    const std::string text = drawn(words + Words{form});
    EXPECT_FALSE(text.empty()) << form;
    EXPECT_THAT(text, HasSubstr("591")) << form;
  }
}

TEST(Render, RedactionLeavesNoAmountInAnyForm) {
  for (const char* form : {"text", "tree", "placed", "accessibility", "svg"}) {
    const std::string text = drawn({"QuorvelSpendingWidget",
                                    "--family",
                                    "systemLarge",
                                    "--snapshot",
                                    kHousehold,
                                    "--redact",
                                    "privacy",
                                    "--format",
                                    form});
    EXPECT_THAT(text, Not(HasSubstr("$591"))) << form;
    EXPECT_THAT(text, Not(HasSubstr("591.00"))) << form;
  }
}

TEST(Render, SvgBearsTheWidgetsNameAndThePrefix) {
  const std::string svg = drawn({"QuorvelSpendingWidget",
                                 "--snapshot",
                                 kHousehold,
                                 "--format",
                                 "svg",
                                 "--id-prefix",
                                 "spending-"});
  EXPECT_THAT(svg, HasSubstr("<title id=\"spending-title\">Spending This Month</title>"));
  EXPECT_THAT(svg, HasSubstr("href=\"#spending-f"));
}

TEST(Render, PrefixBelongsToSvg) {
  const Outcome png = runHost({"render", "QuorvelDueWidget", "--id-prefix", "a"});
  EXPECT_EQ(png.status, 2);
  EXPECT_EQ(png.errors, "quorvel-host render: --id-prefix: only with --format svg\n");
  const Outcome digit = runHost({"render", "QuorvelDueWidget", "--id-prefix", "1"});
  EXPECT_EQ(digit.status, 2);
  EXPECT_THAT(digit.errors, HasSubstr("\"1\" is not a prefix"));
}

TEST(Render, AMalformedDocumentDrawsTheMessageAndWarns) {
  const TemporaryFolder folder;
  const std::string file = folder.write("broken.json", "{\n \"isHidden\": maybe\n}");
  const Outcome outcome =
      runHost(Words{"render", "QuorvelDueWidget", "--snapshot", file, "--format", "text"} + kToday);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, StartsWith("warning: " + file + ":2:14: "));
  EXPECT_THAT(outcome.errors, HasSubstr("expected "));
  EXPECT_THAT(outcome.errors, HasSubstr(", found "));
  EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1);
  EXPECT_THAT(outcome.out, HasSubstr("Quorvel"));
}

TEST(Render, DocumentsThatAreNoFilesDrawTheMessage) {
  const TemporaryFolder folder;
  const auto document = folder.path() / "widget-snapshot.json";
  const auto expectMessage = [&](const char* what) {
    const Outcome outcome = runHost(
        Words{"render", "QuorvelDueWidget", "--container", folder.path(), "--format", "text"} +
        kToday);
    EXPECT_EQ(outcome.status, 0) << what;
    EXPECT_THAT(outcome.errors, StartsWith("warning: " + document.string())) << what;
    EXPECT_THAT(outcome.out, HasSubstr("Quorvel")) << what;
  };
  expectMessage("nothing");
  std::filesystem::create_directory(document);
  expectMessage("directory");
  std::filesystem::remove(document);
  ASSERT_EQ(::mkfifo(document.c_str(), 0600), 0);
  expectMessage("pipe");
  std::filesystem::remove(document);
  std::filesystem::create_symlink("/dev/zero", document);
  expectMessage("device");
  std::filesystem::remove(document);
  folder.write("widget-snapshot.json", std::string(100'000, '['));
  expectMessage("deep nesting");
}

TEST(Render, APreviewWithoutADocumentShowsTheSample) {
  const TemporaryFolder folder;
  const std::string text = drawn(
      {"QuorvelNetWorthWidget", "--container", folder.path(), "--preview", "--format", "text"});
  EXPECT_THAT(text, HasSubstr("97,260"));
}

TEST(Render, ConfigurationChoosesTheStyle) {
  const Words words{"QuorvelSafeToSpendWidget", "--snapshot", kHousehold, "--format", "tree"};
  const std::string accent = drawn(words);
  EXPECT_EQ(drawn(words + Words{"--configure", "style=accent"}), accent);
  EXPECT_NE(drawn(words + Words{"--configure", "style=ring"}), accent);
}

TEST(Isolated, TheChildsPictureIsTheSameByteForByte) {
  for (const std::string& kind : offeredKinds()) {
    for (const char* family : {"systemSmall", "systemMedium", "accessoryRectangular"}) {
      const Words words{kind, "--family", family, "--snapshot", kHousehold};
      EXPECT_EQ(drawn(words + Words{"--isolated"}), drawn(words)) << kind << " " << family;
    }
  }
}

class Damaged : public ::testing::Test {
 protected:
  /// The relay is known by the name that it is started by.
  Outcome runThrough(const std::string& relay, const std::string& format) const {
    const auto link = folder_.path() / relay;
    std::filesystem::create_symlink(builtProgram("test-relay"), link);
    return runHost(Words{"render",
                         "QuorvelNetWorthWidget",
                         "--snapshot",
                         kHousehold,
                         "--isolated",
                         "--extension",
                         link.string(),
                         "--format",
                         format} +
                   kToday);
  }
  Words direct(const std::string& format) const {
    return {"QuorvelNetWorthWidget", "--snapshot", kHousehold, "--format", format};
  }

  TemporaryFolder folder_;
};

TEST_F(Damaged, ARelayThatFlipsNothingChangesNothing) {
  const Outcome outcome = runThrough("flip-nothing", "png");
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, drawn(direct("png")));
}

TEST_F(Damaged, AFlippedBitOfTheFrameIsRefused) {
  const Outcome outcome = runThrough("flip-structure", "png");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.errors, HasSubstr("the extension: "));
}

TEST_F(Damaged, WhatTheChildSentIsWhatIsDrawn) {
  const Outcome outcome = runThrough("flip-text", "tree");
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const std::string own = drawn(direct("tree"));
  ASSERT_EQ(outcome.out.size(), own.size());
  std::vector<std::size_t> differences;
  for (std::size_t i = 0; i < own.size(); ++i) {
    if (own[i] != outcome.out[i]) differences.push_back(i);
  }
  ASSERT_EQ(differences.size(), 1u);
  EXPECT_EQ(own[differences[0]] ^ outcome.out[differences[0]], 1);
}

TEST(SheetCommand, ShowsKindsInTheirFamiliesInBothAppearances) {
  const Outcome outcome =
      runHost({"sheet", "--snapshot", kHousehold, "--now", "2025-03-14T09:30:00Z", "--scale", "1"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  // A column of the small and the medium widget beside the large one. A row per widget, as high as
  // its large family; without one, as its small one. Both looks of safe to spend share theirs.
  unsigned rows = 0;
  for (const auto& widget : offeredWidgets()) {
    const auto& families = widget["families"];
    const bool hasLarge = std::ranges::find(families, "systemLarge") != families.end();
    rows += 22 + 16 + 6 + (hasLarge ? 382 : 170);
  }
  const unsigned width = 2 * (364 + 20 + 364 + 2 * 28);
  const unsigned height = 28 - 22 + rows + 28;
  EXPECT_EQ(pngSize(outcome.out), (std::pair{width, height}));
}

TEST(SheetCommand, AxesMultiplyTheRows) {
  const Outcome outcome = runHost({"sheet",
                                   "QuorvelDueWidget",
                                   "--family",
                                   "systemSmall",
                                   "--states",
                                   "--modes",
                                   "--languages",
                                   "en,ar",
                                   "--snapshot",
                                   kHousehold,
                                   "--now",
                                   "2025-03-14T09:30:00Z",
                                   "--scale",
                                   "1"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  // 2 languages x 6 states x 5 modes, in columns of 170 with 44 between them; six columns of ten
  // rows make 2 * (6 * 170 + 5 * 44 + 56) = 2592 by 10 * 192 + 9 * 22 + 56 = 2174.
  EXPECT_EQ(pngSize(outcome.out), (std::pair{2592u, 2174u}));
}

TEST(SheetCommand, ExtremesShowWhatTheyChangeAlone) {
  const Words words{"sheet",
                    "QuorvelNetWorthWidget",
                    "--family",
                    "systemSmall",
                    "--extremes",
                    "--snapshot",
                    kHousehold,
                    "--now",
                    "2025-03-14T09:30:00Z",
                    "--scale",
                    "1"};
  const Outcome outcome = runHost(words);
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  // As usual, huge, tiny, many digits, below zero, one month, none, sixty, and three other days:
  // names, cards and budgets change nothing here. Three columns of four rows.
  EXPECT_EQ(pngSize(outcome.out),
            (std::pair{2u * (3 * 170 + 2 * 44 + 56), 4u * 192 + 3 * 22 + 56}));
}

TEST(SheetCommand, ComponentsStandBelowTheWidgets) {
  const Words words{"sheet", "QuorvelDueWidget", "--snapshot", kHousehold, "--scale", "0.5"};
  const auto without = pngSize(runHost(words).out);
  const Outcome outcome = runHost(words + Words{"--components"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_GE(pngSize(outcome.out).first, without.first + 900 - 554);
  EXPECT_GT(pngSize(outcome.out).second, without.second);
}

TEST(SheetCommand, IsolatedIsTheSamePicture) {
  const Words words{"sheet",
                    "QuorvelSafeToSpendWidget",
                    "--states",
                    "--snapshot",
                    kHousehold,
                    "--now",
                    "2025-03-14T09:30:00Z",
                    "--time-zone",
                    "UTC",
                    "--scale",
                    "1"};
  const Outcome own = runHost(words);
  const Outcome isolated = runHost(words + Words{"--isolated"});
  ASSERT_EQ(own.status, 0) << own.errors;
  ASSERT_EQ(isolated.status, 0) << isolated.errors;
  EXPECT_EQ(isolated.out, own.out);
}

}  // namespace
}  // namespace cli
