// What the tabulator offers in bash, held to what the program says of itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "CommandRunner.hpp"
#include "HelpPages.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

using Offers = std::set<std::string>;

/// What the tabulator after `words` offers; the last is what is typed of the word at the cursor.
Offers offered(Words words) {
  const std::string tests = QUORVEL_SOURCE_DIR "/Tests/Cli/";
  words.insert(
      words.begin(),
      {tests + "complete.bash", QUORVEL_SOURCE_DIR "/Install/quorvel-host.bash", "quorvel-host"});
  const std::string path = builtProgram("").string() + ":/usr/bin:/bin";
  const Outcome outcome = runProgram("/bin/bash", words, {{"PATH", path}});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, IsEmpty());
  Offers offers;
  std::istringstream lines(outcome.out);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) offers.insert(line);
  }
  return offers;
}

/// Every option once, with a command that has it.
struct Option {
  std::string command;
  std::string spelling;
  std::string value;
};

std::vector<Option> everyOption() {
  std::vector<Option> options;
  Offers seen;
  for (const std::string& command : commandNames()) {
    for (const auto& [names, value] : helpOf(command).options) {
      for (const std::string& spelling : spellings(names)) {
        if (seen.insert(spelling).second) options.push_back({command, spelling, value});
      }
    }
  }
  return options;
}

json offeredByTheExtension() {
  return json::parse(runHost({"list", "--json"}).out, nullptr, false);
}

Offers widgetKinds() {
  Offers kinds;
  const json offers = offeredByTheExtension();
  for (const json& widget : offers["widgets"]) kinds.insert(widget["kind"]);
  return kinds;
}

TEST(Completion, OffersEveryCommand) {
  Offers expected{"--help"};
  for (const std::string& command : commandNames()) expected.insert(command);
  ASSERT_THAT(expected, SizeIs(::testing::Gt(1U)));
  EXPECT_EQ(offered({""}), expected);
  EXPECT_THAT(offered({"val"}), ElementsAre("validate"));
  EXPECT_THAT(offered({"draw", ""}), IsEmpty());
}

TEST(Completion, OffersEveryOptionOfACommandAndNoOther) {
  for (const std::string& command : commandNames()) {
    Offers expected;
    for (const auto& [names, value] : helpOf(command).options) {
      for (const std::string& spelling : spellings(names)) expected.insert(spelling);
    }
    EXPECT_EQ(offered({command, "-"}), expected) << command;
  }
  EXPECT_THAT(offered({"render", "--pre"}), ElementsAre("--preset", "--preview"));
}

TEST(Completion, KnowsWhichOptionsTakeAValue) {
  for (const auto& [command, spelling, value] : everyOption()) {
    if (value.empty()) {
      EXPECT_THAT(offered({command, spelling, "--h"}), ElementsAre("--help")) << spelling;
    } else {
      EXPECT_THAT(offered({command, spelling, "--h"}), Not(Contains("--help"))) << spelling;
      EXPECT_THAT(offered({command, spelling, "value", "--h"}), ElementsAre("--help")) << spelling;
    }
  }
}

TEST(Completion, OffersTheWordsThatAnOptionTakes) {
  const auto values = enumeratedValues();
  ASSERT_THAT(values, SizeIs(7));
  for (const auto& [option, words] : values) {
    Offers expected = words;
    if (option == "--redact") expected.insert("privacy,placeholder");
    EXPECT_EQ(offered({"render", option, ""}), expected);
    EXPECT_EQ(offered({"render", option + "="}), expected);
  }
  EXPECT_THAT(offered({"render", "--mode=v"}), ElementsAre("vibrant"));
  EXPECT_THAT(offered({"timeline", "--time-zone", "Europe/Berl"}), ElementsAre("Europe/Berlin"));
}

TEST(Completion, AsksBashForFileNames) {
  for (const auto& [command, spelling, value] : everyOption()) {
    if (value == "FILE" || value == "PATH") {
      EXPECT_THAT(offered({command, spelling, ""}), ElementsAre("<default>")) << spelling;
    } else if (value == "DIR") {
      EXPECT_THAT(offered({command, spelling, ""}), ElementsAre("<dirnames>")) << spelling;
    }
  }
  EXPECT_THAT(offered({"render", "--out="}), ElementsAre("<default>"));
  EXPECT_THAT(offered({"validate", ""}), ElementsAre("<default>"));
  EXPECT_THAT(offered({"validate", "one.json", "--json", "t"}), ElementsAre("<default>"));
}

TEST(Completion, OffersKindsWhereOneIsMissing) {
  const Offers kinds = widgetKinds();
  ASSERT_THAT(kinds, Not(IsEmpty()));
  const std::string any = *kinds.begin();
  for (const char* command : {"render", "timeline", "options", "sheet"}) {
    EXPECT_EQ(offered({command, ""}), kinds) << command;
    EXPECT_EQ(offered({command, "--isolated", "--now", "2025-03-14T09:30:00Z", ""}), kinds)
        << command;
  }
  EXPECT_EQ(offered({"bench", "--kind", ""}), kinds);
  EXPECT_EQ(offered({"sheet", any, ""}), kinds);
  EXPECT_THAT(offered({"render", any, ""}), IsEmpty());
  EXPECT_THAT(offered({"render", "-o", "picture.png", any, ""}), IsEmpty());
  EXPECT_THAT(offered({"doctor", ""}), IsEmpty());
}

TEST(Completion, OffersParametersTheirCasesAndIntents) {
  Offers intents;
  const json offers = offeredByTheExtension();
  for (const json& control : offers["controls"]) intents.insert(control["intent"]);
  ASSERT_THAT(intents, Not(IsEmpty()));
  EXPECT_EQ(offered({"perform", ""}), intents);
  for (const json& widget : offers["widgets"]) {
    const std::string kind = widget["kind"];
    Offers names;
    Offers assignments;
    if (!widget["configuration"].is_null()) {
      for (const json& parameter : widget["configuration"]["parameters"]) {
        const std::string name = parameter["name"];
        names.insert(name);
        assignments.insert(name + "=");
        Offers cases;
        for (const json& one : parameter["cases"]) cases.insert(one["id"]);
        EXPECT_EQ(offered({"render", kind, "--configure", name + "="}), cases);
        EXPECT_EQ(offered({"render", kind, "--configure=" + name + "="}), cases);
        EXPECT_EQ(offered({"bench", "--kind", kind, "--configure", name + "="}), cases);
      }
      assignments.insert("<nospace>");
    } else {
      assignments.insert("<nospace>");
    }
    EXPECT_EQ(offered({"options", kind, ""}), names);
    EXPECT_EQ(offered({"render", kind, "--configure", ""}), assignments);
  }
}

TEST(Completion, OffersTheCardsOfTheDocument) {
  EXPECT_THAT(offered({"render",
                       "QuorvelCardLimitWidget",
                       "--snapshot",
                       example("household.json").string(),
                       "--configure",
                       "card="}),
              ElementsAre("a", "b", "c"));
}

// An identifier is whatever the application made up: it is quoted, and nothing in it is run.
TEST(Completion, RunsNothingThatADocumentSays) {
  const TemporaryFolder folder;
  json document = json::parse(contentsOf(example("household.json")));
  document["cards"][0]["id"] = "$(touch${IFS}" + folder.at("ran") + ")";
  const std::string file = folder.write("widget-snapshot.json", document.dump());
  const Offers offers =
      offered({"render", "QuorvelCardLimitWidget", "--snapshot", file, "--configure", "card="});
  EXPECT_THAT(offers, Contains("\\$\\(touch\\$\\{IFS\\}" + folder.at("ran") + "\\)"));
  EXPECT_THAT(offers, IsSupersetOf({"b", "c"}));
  EXPECT_FALSE(std::filesystem::exists(folder.at("ran")));
}

}  // namespace
}  // namespace cli
