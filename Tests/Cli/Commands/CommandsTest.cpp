// Transcripts of the commands that answer in words, in one process and with the extension as a
// child.

#include <algorithm>

#include "Commands/CommandsFixture.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::StartsWith;

INSTANTIATE_TEST_SUITE_P(Extension, Commands, ::testing::Bool(), [](const auto& mode) {
  return mode.param ? "isolated" : "inOneProcess";
});

TEST_P(Commands, ListNamesTheWidgetsAndTheControl) {
  const json answer = asked({"list", "--json"});
  std::vector<std::string> kinds;
  for (const json& widget : answer["widgets"]) kinds.push_back(widget["kind"]);
  EXPECT_THAT(kinds,
              ::testing::IsSupersetOf({"QuorvelCardLimitWidget",
                                       "QuorvelDueWidget",
                                       "QuorvelNetWorthWidget",
                                       "QuorvelSafeToSpendWidget",
                                       "QuorvelSpendingWidget"}));
  EXPECT_EQ(answer["controls"],
            json::parse(R"([{"kind":"QuorvelAddExpenseControl","name":"Add Expense",
                             "description":"Open Quorvel to log an expense.",
                             "label":"Add Expense","symbol":"plus",
                             "intent":"AddExpenseIntent","intentTitle":"Add Expense"}])"));
}

TEST_P(Commands, ListNamesInTheLanguageThatIsPreferred) {
  const json answer = asked({"list", "--json", "--languages", "nl,fr"});
  const auto worth = std::ranges::find(
      answer["widgets"], "QuorvelNetWorthWidget", [](const json& w) { return w["kind"]; });
  ASSERT_NE(worth, answer["widgets"].end());
  EXPECT_EQ((*worth)["name"], "Patrimoine net");
  EXPECT_EQ((*worth)["description"], "Your net worth and how it's trending.");
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

TEST_P(Commands, ADocumentOfItsOwnBringsImagesButNoPreferences) {
  const TemporaryFolder folder;
  const std::string file = folder.write("widget-snapshot.json", contentsOf(kHousehold));
  const Outcome outcome = run({"perform", "AddExpenseIntent", "--no-open", "--snapshot", file});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "quorvel-widget://\n");
  EXPECT_THAT(outcome.errors, StartsWith("warning: there is no container, so nothing is left"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "Library"));
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
