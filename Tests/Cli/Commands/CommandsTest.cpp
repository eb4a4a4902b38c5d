// Transcripts of the commands that answer in words, in one process and with the extension as a
// child.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "CommandRunner.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kHousehold = example("household.json").string();

/// Every command answers the same in one process and through a child.
class Commands : public ::testing::TestWithParam<bool> {
 protected:
  static Outcome run(Words words) {
    if (GetParam()) words.emplace_back("--isolated");
    return runHost(words);
  }
  static json asked(const Words& words) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.errors, IsEmpty());
    return json::parse(outcome.out, nullptr, false);
  }
};

INSTANTIATE_TEST_SUITE_P(Extension, Commands, ::testing::Bool(), [](const auto& mode) {
  return mode.param ? "isolated" : "inOneProcess";
});

TEST_P(Commands, ListNamesTheFiveWidgetsAndTheControl) {
  const json answer = asked({"list", "--json"});
  std::vector<std::string> kinds;
  for (const json& widget : answer["widgets"]) kinds.push_back(widget["kind"]);
  EXPECT_THAT(kinds,
              ::testing::UnorderedElementsAre("QuorvelCardLimitWidget",
                                              "QuorvelDueWidget",
                                              "QuorvelNetWorthWidget",
                                              "QuorvelSafeToSpendWidget",
                                              "QuorvelSpendingWidget"));
  EXPECT_EQ(answer["controls"],
            json::parse(R"([{"kind":"QuorvelAddExpenseControl","name":"Add Expense",
                             "description":"Open Quorvel to log an expense.",
                             "label":"Add Expense","symbol":"plus",
                             "intent":"AddExpenseIntent","intentTitle":"Add Expense"}])"));
}

TEST_P(Commands, ListNamesInTheLanguageThatIsPreferred) {
  const json answer = asked({"list", "--json", "--languages", "nl,fr"});
  EXPECT_EQ(answer["widgets"][2]["name"], "Patrimoine net");
  EXPECT_EQ(answer["widgets"][2]["description"], "Your net worth and how it's trending.");
  EXPECT_EQ(answer["controls"][0]["name"], "Ajouter une dépense");
}

TEST_P(Commands, ListDescribesConfigurations) {
  const json answer = asked({"list", "--json"});
  for (const json& widget : answer["widgets"]) {
    if (widget["kind"] == "QuorvelSafeToSpendWidget") {
      EXPECT_EQ(widget, json::parse(R"({
          "kind": "QuorvelSafeToSpendWidget", "name": "Safe to Spend",
          "description": "How much you can spend per day to stay on budget.",
          "families": ["systemSmall", "systemMedium"],
          "configuration": {"intent": "SafeToSpendIntent", "title": "Choose Style", "parameters": [
            {"name": "style", "title": "Style", "type": "enumeration", "typeName": "Style",
             "default": "accent",
             "cases": [{"id": "accent", "title": "Accent Tile"}, {"id": "ring", "title": "Budget Ring"}]}]}})"));
    } else if (widget["kind"] == "QuorvelDueWidget") {
      EXPECT_TRUE(widget["configuration"].is_null());
    } else if (widget["kind"] == "QuorvelCardLimitWidget") {
      EXPECT_EQ(
          widget["configuration"],
          json::parse(R"({"intent": "SelectCardIntent", "title": "Choose Card", "parameters": [
                  {"name": "card", "title": "Card", "type": "entity", "typeName": "Card", "default": null,
                   "cases": []}]})"));
    }
  }
}

TEST_P(Commands, TheTimelineReloadsFiveSecondsAfterLocalMidnight) {
  const json answer = asked({"timeline",
                             "QuorvelDueWidget",
                             "--json",
                             "--snapshot",
                             kHousehold,
                             "--now",
                             "2025-03-14T22:59:59Z",
                             "--time-zone",
                             "Europe/Berlin"});
  EXPECT_EQ(answer, json::parse(R"({"entries":[{"date":"2025-03-14T22:59:59Z","hasSnapshot":true,
                                    "generatedAt":"2025-03-14T09:30:00Z","summary":{"state":"none",
                                    "text":"in 3 days · \u2068Northbank Everyday\u2069 · \u2066$412\u2069"}}],
                                    "policy":{"type":"after","date":"2025-03-14T23:00:05Z"}})"));
}

TEST_P(Commands, TheTimelineInWordsSaysWhatTheWidgetSays) {
  // 591 of 2,400 spent leaves 1,809 for 17 days; 25 % spent of 14 days in 31 is on pace.
  const Outcome outcome = run({"timeline",
                               "QuorvelSafeToSpendWidget",
                               "--snapshot",
                               kHousehold,
                               "--now",
                               "2025-03-14T12:00:00Z",
                               "--time-zone",
                               "UTC"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "2025-03-14T12:00:00Z  \u2066$106\u2069 / day (good), from 2025-03-14T09:30:00Z\n"
            "asked again: after 2025-03-15T00:00:05Z\n");
}

TEST_P(Commands, ATimelineWithoutADocumentHasAnEntryAllTheSame) {
  const TemporaryFolder folder;
  const json answer = asked({"timeline",
                             "QuorvelSafeToSpendWidget",
                             "--json",
                             "--container",
                             folder.path(),
                             "--now",
                             "2025-03-14T00:00:04Z",
                             "--time-zone",
                             "UTC"});
  EXPECT_EQ(answer, json::parse(R"({"entries":[{"date":"2025-03-14T00:00:04Z","hasSnapshot":false,
                                    "summary":{"text":"Open Quorvel to get started","state":"none"}}],
                                    "policy":{"type":"after","date":"2025-03-14T00:00:05Z"}})"));
}

TEST_P(Commands, OptionsOfCardsAreThoseOfTheDocument) {
  const json answer =
      asked({"options", "QuorvelCardLimitWidget", "card", "--json", "--snapshot", kHousehold});
  EXPECT_EQ(answer, json::parse(R"({"options":[{"id":"a","title":"Northbank Everyday"},
                                               {"id":"b","title":"Harbour Credit Travel"},
                                               {"id":"c","title":"Kettle & Co"}],
                                   "default":"a","more":false})"));
}

TEST_P(Commands, OptionsWithoutADocumentAreNone) {
  const TemporaryFolder folder;
  const json answer =
      asked({"options", "QuorvelCardLimitWidget", "card", "--json", "--container", folder.path()});
  EXPECT_EQ(answer, json::parse(R"({"options":[],"default":null,"more":false})"));
}

TEST_P(Commands, ValidateAccepts) {
  const json answer = asked({"validate", kHousehold, "--json"});
  EXPECT_EQ(answer["file"], kHousehold);
  EXPECT_EQ(answer["accepted"], true);
  EXPECT_TRUE(answer["problems"].empty());
  EXPECT_EQ(answer["leftOut"], 0);
  ASSERT_EQ(answer["widgets"].size(), 5U);
  EXPECT_EQ(answer["widgets"][0], json::parse(R"({"kind":"QuorvelCardLimitWidget",
                            "shows":"The remaining limit of 3 cards."})"));
}

TEST_P(Commands, ValidateSaysWhatTheWidgetsWillShow) {
  const Outcome outcome =
      run({"validate", example("minimal.json").string(), "--now", "2025-03-14T09:30:00Z"});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.out, StartsWith(example("minimal.json").string() + ": accepted\n"));
  for (const char* kind : {"CardLimit", "Due", "NetWorth", "SafeToSpend", "Spending"}) {
    EXPECT_THAT(outcome.out, HasSubstr(std::string("  Quorvel") + kind + "Widget: "));
  }
}

TEST_P(Commands, ValidatePointsAtEveryProblem) {
  const TemporaryFolder folder;
  std::string text = contentsOf(example("minimal.json"));
  text.replace(text.find("\"en\""), 4, "7");
  text.replace(text.find("true"), 4, "\"x\"");
  const std::string file = folder.write("broken.json", text);
  const Outcome outcome = run({"validate", kHousehold, file, "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("1 of 2 documents refused"));
  const json answer = json::parse(outcome.out.substr(outcome.out.find('\n') + 1), nullptr, false);
  EXPECT_EQ(answer["accepted"], false);
  ASSERT_EQ(answer["problems"].size(), 2u) << answer;
  // The document has one member per line, behind the brace's own line.
  EXPECT_EQ(answer["problems"][0]["pointer"], "/lang");
  EXPECT_EQ(answer["problems"][0]["line"], 4);
  EXPECT_EQ(answer["problems"][0]["column"], 10);
  EXPECT_EQ(answer["problems"][1]["pointer"], "/money/showDecimals");
}

TEST_P(Commands, ValidateSurvivesWhatIsNoDocument) {
  const TemporaryFolder folder;
  const std::string deep = folder.write("deep.json", std::string(100'000, '['));
  const std::string empty = folder.write("empty.json", "");
  const std::string bytes = folder.write("bytes.json", std::string("\xFF\x00\xFE{", 4));
  for (const std::string& file : {deep,
                                  empty,
                                  bytes,
                                  folder.path().string(),
                                  std::string("/dev/zero"),
                                  std::string("/nonexistent.json")}) {
    const Outcome outcome = run({"validate", file, "--json"});
    EXPECT_EQ(outcome.status, 1) << file;
    const json answer = json::parse(outcome.out, nullptr, false);
    EXPECT_EQ(answer["accepted"], false) << file;
    EXPECT_FALSE(answer["problems"].empty()) << file;
  }
}

TEST_P(Commands, PerformLeavesTheRequestAndPrintsTheLink) {
  const TemporaryFolder folder;
  const Outcome outcome =
      run({"perform", "AddExpenseIntent", "--no-open", "--container", folder.path()});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "quorvel-widget://\n");
  std::string preferences;
  for (const auto& entry :
       std::filesystem::directory_iterator(folder.path() / "Library/Preferences")) {
    preferences += contentsOf(entry.path());
  }
  EXPECT_THAT(preferences, HasSubstr("widget.pendingAddExpense"));
}

TEST_P(Commands, ValidateCountsTheProblemsThatItDoesNotName) {
  const TemporaryFolder folder;
  std::string dues = "1";
  for (int i = 1; i < 1234; ++i) dues += ",1";
  std::string text = contentsOf(example("minimal.json"));
  text.replace(text.find("\"dues\": []"), 10, "\"dues\": [" + dues + "]");
  const Outcome outcome = run({"validate", folder.write("dues.json", text)});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("/dues/99: expected object, found number\n  and 1134 more\n"));
}

TEST_P(Commands, ADocumentOfItsOwnBringsImagesButNoPreferences) {
  const TemporaryFolder folder;
  const std::string file = folder.write("widget-snapshot.json", contentsOf(kHousehold));
  const Outcome outcome = run({"perform", "AddExpenseIntent", "--no-open", "--snapshot", file});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "quorvel-widget://\n");
  EXPECT_THAT(outcome.errors, StartsWith("warning: there is no container, so nothing is left"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "Library"));
}

TEST_P(Commands, PerformSaysThatThereIsNoContainer) {
  const TemporaryFolder home;
  const Outcome outcome =
      runHost({"perform", "AddExpenseIntent", "--no-open"}, {{"HOME", home.path().string()}});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.errors, HasSubstr("there is no container"));
}

TEST_P(Commands, AnIntentThatConfiguresHasNothingToDo) {
  for (const char* intent : {"SelectCardIntent", "SafeToSpendIntent"}) {
    const TemporaryFolder folder;
    const Outcome outcome = run({"perform", intent, "--no-open", "--container", folder.path()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.out + outcome.errors, IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  }
}

TEST_P(Commands, TheLastSecondHasATimeline) {
  const json answer = asked({"timeline",
                             "QuorvelDueWidget",
                             "--json",
                             "--snapshot",
                             kHousehold,
                             "--now",
                             "9999-12-31T23:59:59Z",
                             "--time-zone",
                             "UTC"});
  EXPECT_EQ(answer["entries"][0]["date"], "9999-12-31T23:59:59Z");
  EXPECT_EQ(answer["policy"], json::parse(R"({"type":"never"})"));
}

TEST_P(Commands, AGroupThatIsNoFolderNameHasNoContainer) {
  for (const char* group : {"..", ".", "a/b"}) {
    const TemporaryFolder home;
    home.write("share/a/b/widget-snapshot.json", contentsOf(kHousehold));
    home.write("widget-snapshot.json", contentsOf(kHousehold));
    const std::string plist = home.write(
        "Info.plist",
        std::string(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
                    R"(<key>QuorvelAppGroup</key><string>)") +
            group + "</string></dict></plist>");
    Words words{"doctor", "--info-plist", plist};
    if (GetParam()) words.emplace_back("--isolated");
    const Outcome outcome = runHost(words, {{"XDG_DATA_HOME", home.at("share")}});
    EXPECT_EQ(outcome.status, 1) << group;
    EXPECT_THAT(outcome.out, ::testing::ContainsRegex("MISSING +container +-")) << group;
    EXPECT_THAT(outcome.out, ::testing::ContainsRegex("MISSING +document +-")) << group;
  }
}

TEST_P(Commands, DoctorFindsTheContainerAndTheDocument) {
  const TemporaryFolder folder;
  folder.write("widget-snapshot.json", contentsOf(kHousehold));
  const Outcome outcome = run({"doctor", "--container", folder.path()});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +container +" + folder.path().string()));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +document +" + folder.path().string()));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +symbols +built in: [1-9][0-9]* names"));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +font +/.*/Inter-Regular.otf"));
  const Outcome missing = run({"doctor", "--container", (folder.path() / "none").string()});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.out, ::testing::ContainsRegex("MISSING +container"));
}

TEST(Doctor, ShowsTheTimeZoneAndWhereItComesFrom) {
  EXPECT_THAT(runHost({"doctor"}, {{"TZ", "Asia/Jakarta"}}).out,
              ::testing::ContainsRegex("found +time zone +Asia/Jakarta .TZ."));
  EXPECT_THAT(runHost({"doctor"}, {{"TZ", "<+0330>-3:30"}}).out,
              ::testing::ContainsRegex("found +time zone +<.0330>-3:30 .TZ."));
}

TEST(Doctor, NamesAVariableThatIsNoTimeZone) {
  const Outcome outcome = runHost({"doctor"}, {{"TZ", "Nowhere/Town"}});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("absent +time zone"));
  EXPECT_THAT(outcome.out, HasSubstr("TZ is \"Nowhere/Town\", which names no zone"));
}

TEST_P(Commands, ANamedPropertyListMustBeThereAndReadable) {
  const TemporaryFolder folder;
  const std::string garbage = folder.write("garbage.plist", "no plist");
  for (const std::string& file :
       {std::string("/nonexistent"), folder.path().string(), garbage, std::string("/dev/zero")}) {
    const Outcome outcome = run({"list", "--info-plist", file});
    EXPECT_EQ(outcome.status, 1) << file;
    EXPECT_THAT(outcome.out, IsEmpty()) << file;
    EXPECT_THAT(outcome.errors, HasSubstr("cannot read " + file)) << file;
    EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
  }
  EXPECT_THAT(run({"list", "--info-plist", "/nonexistent"}).errors, HasSubstr("no such file"));
  EXPECT_THAT(run({"list", "--info-plist", garbage}).errors, HasSubstr("no property list"));
}

TEST_P(Commands, DoctorSaysThatAPropertyListIsNone) {
  const TemporaryFolder folder;
  const std::string garbage = folder.write("garbage.plist", "no plist");
  const Outcome outcome = run({"doctor", "--info-plist", garbage});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("absent +Info.plist +" + garbage));
  EXPECT_THAT(outcome.out, HasSubstr("no property list"));
}

TEST(Perform, HandsTheLinkToAProgram) {
  const TemporaryFolder folder;
  const Outcome outcome = runHost(
      {"perform", "AddExpenseIntent", "--open-with", "echo open", "--container", folder.path()});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "open quorvel-widget://\n");
}

TEST(Perform, TellsAPersonWhenTheApplicationCannotBeOpened) {
  const TemporaryFolder folder;
  const Outcome failing = runHost(
      {"perform", "AddExpenseIntent", "--open-with", "false", "--container", folder.path()});
  EXPECT_EQ(failing.status, 1);
  EXPECT_THAT(failing.errors, HasSubstr("false could not open quorvel-widget:// (status 1)"));
  // A desktop on which nothing answers to the scheme: xdg-mime prints nothing.
  const std::string tool = folder.write("xdg-mime", "#!/bin/sh\nexit 0\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  const Outcome unregistered =
      runHost({"perform", "AddExpenseIntent", "--container", folder.path()},
              {{"PATH", folder.path().string() + ":/usr/bin:/bin"}});
  EXPECT_EQ(unregistered.status, 1);
  EXPECT_THAT(unregistered.errors,
              HasSubstr("no application is registered for quorvel-widget links"));
  EXPECT_THAT(unregistered.errors, HasSubstr("quorvel-widget://"));
}

TEST(Sample, IsACompleteDocumentInTheLanguage) {
  const TemporaryFolder folder;
  const std::string file = (folder.path() / "sample.json").string();
  ASSERT_EQ(runHost({"sample",
                     "--lang",
                     "de",
                     "--now",
                     "2025-03-14T09:30:00Z",
                     "--time-zone",
                     "UTC",
                     "-o",
                     file})
                .status,
            0);
  const json document = json::parse(contentsOf(file), nullptr, false);
  EXPECT_EQ(document["lang"], "de");
  EXPECT_EQ(document["generatedAt"], "2025-03-14T09:30:00Z");
  EXPECT_EQ(document["dues"][0]["dueDate"], "2025-03-17");
  EXPECT_EQ(document["totalRemaining"], 25730);
  EXPECT_EQ(runHost({"validate", file}).status, 0);
}

TEST(Sample, RefusesALanguageThatThereIsNot) {
  const Outcome outcome = runHost({"sample", "--lang", "klingon"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.errors, HasSubstr("--lang: there is no \"klingon\" (there are: en, id,"));
}

TEST(OutputFile, TakesThePlaceOfAnOlderOneOnlyWhenItIsWhole) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const std::string file = folder.write("sample.json", "old");
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  const std::string other = folder.at("other.json");
  fs::create_hard_link(file, other);
  ASSERT_EQ(runHost({"sample", "-o", file}).status, 0);
  EXPECT_THAT(contentsOf(file), StartsWith("{"));
  // The old file was not written into, and the new one is as private as it was.
  EXPECT_EQ(contentsOf(other), "old");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST(OutputFile, StaysWhenTheNewOneCannotBeMade) {
  const TemporaryFolder folder;
  const std::string file = folder.write("due.png", "old");
  EXPECT_NE(runHost({"render", "NoSuchWidget", "--snapshot", kHousehold, "-o", file}).status, 0);
  EXPECT_EQ(contentsOf(file), "old");
  EXPECT_THAT(runHost({"sample", "-o", folder.at("none/x.json")}).errors,
              HasSubstr("cannot write " + folder.at("none/x.json") + ": No such file"));
}

TEST(OutputFile, FollowsALinkAndWritesToADevice) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const std::string target = folder.write("target.json", "old");
  fs::create_symlink("target.json", folder.at("link.json"));
  ASSERT_EQ(runHost({"sample", "-o", folder.at("link.json")}).status, 0);
  EXPECT_TRUE(fs::is_symlink(folder.at("link.json")));
  EXPECT_THAT(contentsOf(target), StartsWith("{"));
  EXPECT_EQ(runHost({"sample", "-o", "/dev/null"}).status, 0);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(Bench, PrintsOneLineOfFigures) {
  const Outcome outcome = runHost({"bench",
                                   "--snapshot",
                                   kHousehold,
                                   "--now",
                                   "2025-03-14T09:30:00Z",
                                   "--images",
                                   "3",
                                   "--warmup",
                                   "1",
                                   "--family",
                                   "systemMedium"});
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  const json figures = json::parse(outcome.out, nullptr, false);
  EXPECT_EQ(figures["peer"], "ours");
  EXPECT_EQ(figures["n"], 3);
  EXPECT_GT(figures["total_ms"]["min"], 0);
  EXPECT_LE(figures["total_ms"]["min"], figures["total_ms"]["median"]);
  EXPECT_LE(figures["total_ms"]["median"], figures["total_ms"]["p95"]);
  EXPECT_LT(figures["draw_ms"]["min"], figures["total_ms"]["min"]);
  EXPECT_GT(figures["png_bytes"], 1000);
  EXPECT_GT(figures["peak_rss_kb"], 1000);
}

}  // namespace
}  // namespace cli
