#include <gmock/gmock.h>

#include <string>
#include <tuple>

#include "Foundation/JsonWriter.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/TreeJson.hpp"

namespace quorvel {
namespace {

using namespace viewkit;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

constexpr const char* kTenDaysAfter = "2025-03-24";
constexpr const char* kTwentyDaysBefore = "2025-02-22";
constexpr const char* kToday = "2025-03-14";

Environment in(WidgetFamily family) {
  Environment environment;
  environment.widgetFamily = family;
  return environment;
}

View draw(WidgetSnapshot::Budget budget,
          SafeToSpendStyle style = SafeToSpendStyle::accent,
          const Environment& environment = {}) {
  return testsupport::safeToSpendView(
      testsupport::entryWith(testsupport::snapshotWith(std::move(budget)), style), environment);
}

WidgetSnapshot::Budget usual() {
  return testsupport::budgetOf(1000, 400, kTenDaysAfter, kTwentyDaysBefore);
}

std::string linkOf(const View& view) {
  return testsupport::modifier<WidgetURL>(view)->url;
}

// ---- which layout, and what it says

TEST(SafeToSpendView, TheAccentTileSaysWhatADayAllows) {
  EXPECT_THAT(testsupport::texts(draw(usual())),
              ElementsAre("Safe to spend", "$60", "/ day", "10d left", "$600", "left"));
}

TEST(SafeToSpendView, OnTheLastDayTheAmountIsTheWholeRemainder) {
  EXPECT_THAT(testsupport::texts(draw(testsupport::budgetOf(1000, 400, kToday))),
              ElementsAre("Safe to spend", "$600", "Last day", "Left for today"));
}

TEST(SafeToSpendView, AnOverspentBudgetEndsInOverBudget) {
  const View view = draw(testsupport::budgetOf(1000, 1210, kTenDaysAfter));
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Safe to spend", "$0", "/ day", "10d left", "$210", "over budget"));
  EXPECT_THAT(testsupport::symbols(view), Contains("exclamationmark.circle.fill"));
}

TEST(SafeToSpendView, OverspentOnTheLastDayHasNoUnit) {
  EXPECT_THAT(testsupport::texts(draw(testsupport::budgetOf(1000, 1210, kToday))),
              ElementsAre("Safe to spend", "$0", "Last day", "$210", "over budget"));
}

TEST(SafeToSpendView, SpendingExactlyTheBudgetIsNotExceeded) {
  const View view = draw(testsupport::budgetOf(1000, 1000, kTenDaysAfter));
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Safe to spend", "$0", "/ day", "10d left", "$0", "left"));
}

TEST(SafeToSpendView, APeriodThatIsOverAsksForABudget) {
  for (const char* end : {"2025-03-13", "soon"}) {
    const View view = draw(testsupport::budgetOf(1000, 400, end));
    EXPECT_THAT(testsupport::texts(view),
                ElementsAre("Safe to spend", "Set a monthly budget in Quorvel", "Set a budget"));
  }
}

TEST(SafeToSpendView, ASnapshotWithoutABudgetAsksForOne) {
  const View view =
      testsupport::safeToSpendView(testsupport::entryWith(testsupport::emptySnapshot("id")));
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Aman dibelanjakan", "Atur budget bulanan di Quorvel", "Atur budget"));
}

TEST(SafeToSpendView, WithoutASnapshotItSpeaksTheUsersLanguage) {
  Environment environment;
  environment.preferredLanguages = {"nl-NL", "in-ID"};
  const View view = testsupport::safeToSpendView(testsupport::entryWith(std::nullopt), environment);
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Aman dibelanjakan", "Buka Quorvel untuk mulai", "Buka Quorvel"));
  EXPECT_THAT(testsupport::symbols(view), ElementsAre("gauge.with.needle"));
}

TEST(SafeToSpendView, TheRingShowsPercentageAndVerdict) {
  EXPECT_THAT(testsupport::texts(draw(usual(), SafeToSpendStyle::ring)),
              ElementsAre("Safe to spend", "40%", "$60", "/ day", "10d left", "On pace"));
}

TEST(SafeToSpendView, TheRingOnTheLastDaySaysLeft) {
  const View view =
      draw(testsupport::budgetOf(1000, 400, kToday, "2025-03-01"), SafeToSpendStyle::ring);
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Safe to spend", "40%", "$600", "left", "Last day", "On pace"));
}

TEST(SafeToSpendView, TheMediumFamilyIsTheSameInEitherStyle) {
  const Environment medium = in(WidgetFamily::systemMedium);
  const View accent = draw(usual(), SafeToSpendStyle::accent, medium);
  EXPECT_EQ(accent, draw(usual(), SafeToSpendStyle::ring, medium));
  EXPECT_THAT(testsupport::texts(accent),
              ElementsAre("Safe to spend",
                          "On pace",
                          "Left to spend",
                          "$600",
                          "Spent",
                          "40%",
                          "used",
                          "10d left",
                          "$60",
                          "per day",
                          "Days left",
                          "10"));
}

TEST(SafeToSpendView, TheMediumTileOnTheLastDayHoldsWhatIsLeftForToday) {
  const View view = draw(testsupport::budgetOf(1000, 400, kToday),
                         SafeToSpendStyle::accent,
                         in(WidgetFamily::systemMedium));
  EXPECT_THAT(testsupport::texts(view), Contains("Left for today"));
  EXPECT_THAT(testsupport::texts(view), Not(Contains("per day")));
  EXPECT_THAT(testsupport::texts(view), Contains("Last day"));
}

TEST(SafeToSpendView, TheMediumFamilySaysByHowMuchTheBudgetIsExceeded) {
  const View view = draw(testsupport::budgetOf(1000, 1210, kTenDaysAfter),
                         SafeToSpendStyle::accent,
                         in(WidgetFamily::systemMedium));
  EXPECT_THAT(testsupport::texts(view), Contains("$210"));
  EXPECT_THAT(testsupport::texts(view), Contains("over budget"));
  EXPECT_THAT(testsupport::texts(view), Contains("100%"));
}

TEST(SafeToSpendView, APreviewFamilyWinsOverTheHosts) {
  Environment environment = in(WidgetFamily::systemSmall);
  environment.previewFamily = WidgetFamily::systemMedium;
  EXPECT_THAT(testsupport::texts(draw(usual(), SafeToSpendStyle::accent, environment)),
              Contains("Days left"));
}

TEST(SafeToSpendView, UndeclaredFamiliesTakeTheLayoutThatFits) {
  const auto textsIn = [](WidgetFamily family) {
    return testsupport::texts(draw(usual(), SafeToSpendStyle::accent, in(family)));
  };
  EXPECT_EQ(textsIn(WidgetFamily::systemLarge), textsIn(WidgetFamily::systemMedium));
  EXPECT_THAT(textsIn(WidgetFamily::accessoryCircular), ElementsAre("$60", "per day"));
  EXPECT_THAT(textsIn(WidgetFamily::accessoryInline), ElementsAre("$60", "/ day"));
  EXPECT_THAT(textsIn(WidgetFamily::accessoryRectangular),
              ElementsAre("Safe to spend", "$60", "/ day", "10d left"));
}

// ---- link, direction, ground

TEST(SafeToSpendView, EveryStateOpensTheBudget) {
  for (const WidgetFamily family : widgetruntime::kAllFamilies) {
    EXPECT_EQ(linkOf(draw(usual(), SafeToSpendStyle::ring, in(family))),
              "quorvel-widget://open/budget");
    EXPECT_EQ(linkOf(testsupport::safeToSpendView(
                  testsupport::entryWith(testsupport::emptySnapshot()), in(family))),
              "quorvel-widget://open/budget");
    EXPECT_EQ(
        linkOf(testsupport::safeToSpendView(testsupport::entryWith(std::nullopt), in(family))),
        "quorvel-widget://open/budget");
  }
}

TEST(SafeToSpendView, ArabicRunsFromRightToLeftAndNumbersDoNot) {
  const View view = testsupport::safeToSpendView(
      testsupport::entryWith(testsupport::snapshotWith(usual(), "ar"), SafeToSpendStyle::ring));
  EXPECT_EQ(testsupport::modifier<Direction>(view)->direction, LayoutDirection::rightToLeft);
  for (const char* number : {"$60", "40%"}) {
    const auto* node = testsupport::textNode(view, number);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(std::get<TextElement>(node->element).direction, LayoutDirection::leftToRight);
  }
}

TEST(SafeToSpendView, WithoutASnapshotTheHostsDirectionHolds) {
  Environment environment;
  environment.layoutDirection = LayoutDirection::rightToLeft;
  const View view = testsupport::safeToSpendView(testsupport::entryWith(std::nullopt), environment);
  EXPECT_EQ(testsupport::modifier<Direction>(view)->direction, LayoutDirection::rightToLeft);
}

Color groundOf(const View& view) {
  const View ground = testsupport::modifier<ContainerBackground>(view)->content;
  return std::get<Color>(std::get<ShapeElement>(ground.node().element).paint);
}

TEST(SafeToSpendView, OnlyTheAccentTileStandsOnTheAccent) {
  EXPECT_EQ(groundOf(draw(usual())), WAccent{}.fill);
  EXPECT_EQ(groundOf(draw(usual(), SafeToSpendStyle::ring)), palette::canvas);
  EXPECT_EQ(groundOf(testsupport::safeToSpendView(testsupport::entryWith(std::nullopt))),
            palette::canvas);
}

// A host's plate has other corners.
TEST(SafeToSpendView, WithoutTheHostsBackgroundTheTileIsPlainPrimaryWithoutAGround) {
  Environment environment;
  environment.showsWidgetContainerBackground = false;
  const View bare = draw(usual(), SafeToSpendStyle::accent, environment);
  EXPECT_EQ(testsupport::component(bare, "AccessoryBackdrop"), nullptr);
  const std::string text = dump(bare);
  EXPECT_EQ(text.find(dump(WAccent{}.glyph)), std::string::npos);

  const View full = draw(usual());
  EXPECT_EQ(testsupport::texts(bare), testsupport::texts(full));
}

TEST(SafeToSpendView, AccessoriesStandOnTheBackdropExceptTheLine) {
  const auto backdrop = [](WidgetFamily family, bool showsBackground) {
    Environment environment = in(family);
    environment.showsWidgetContainerBackground = showsBackground;
    const View view = draw(usual(), SafeToSpendStyle::accent, environment);
    return testsupport::component(view, "AccessoryBackdrop") != nullptr;
  };
  EXPECT_TRUE(backdrop(WidgetFamily::accessoryCircular, false));
  EXPECT_TRUE(backdrop(WidgetFamily::accessoryRectangular, false));
  EXPECT_FALSE(backdrop(WidgetFamily::accessoryInline, false));
  EXPECT_FALSE(backdrop(WidgetFamily::accessoryRectangular, true));
}

TEST(SafeToSpendView, TheMediumSurfaceGivesWayToTheBackdrop) {
  Environment environment = in(WidgetFamily::systemMedium);
  EXPECT_EQ(testsupport::component(draw(usual(), SafeToSpendStyle::ring, environment),
                                   "AccessoryBackdrop"),
            nullptr);
  environment.showsWidgetContainerBackground = false;
  EXPECT_NE(testsupport::component(draw(usual(), SafeToSpendStyle::ring, environment),
                                   "AccessoryBackdrop"),
            nullptr);
}

TEST(SafeToSpendView, TextsOnTheAccentTileAreLegible) {
  const WAccent accent;
  const auto fill = std::get<Color::Pair>(accent.fill.value);
  const auto glyph = std::get<Color::Pair>(accent.glyph.value);
  // The header stands at 0.92, the secondary lines at 0.88.
  for (const double opacity : {1.0, 0.92, 0.88}) {
    EXPECT_GE(contrastRatio(mixed(fill.light, glyph.light, opacity), fill.light), kTextContrast);
    EXPECT_GE(contrastRatio(mixed(fill.dark, glyph.dark, opacity), fill.dark), kTextContrast);
  }
}

// ---- gauge

const ShapeElement* progressOf(const View& view) {
  const auto* gauge = testsupport::component(view, "SpentGauge");
  return gauge->children.size() < 2 ? nullptr
                                    : &std::get<ShapeElement>(gauge->children[1].node().element);
}

TEST(SpentGauge, CoversItsFractionInTheVerdictsColour) {
  const View view = draw(usual(), SafeToSpendStyle::ring);
  EXPECT_DOUBLE_EQ(progressOf(view)->trimTo, 0.4);
  EXPECT_EQ(std::get<Color>(progressOf(view)->paint), palette::statusGood);
  EXPECT_DOUBLE_EQ(progressOf(view)->lineWidth, 10);
}

TEST(SpentGauge, ProgressAloneIsAccentableAndNothingIsReadOut) {
  const View gauge = SpentGauge{.spentFraction = 0.4};
  EXPECT_EQ(testsupport::modifier<Accentable>(gauge.node().children[0]), nullptr);
  EXPECT_NE(testsupport::modifier<Accentable>(gauge.node().children[1]), nullptr);
  EXPECT_TRUE(testsupport::modifier<Accessibility>(gauge)->hidden);
  EXPECT_NE(testsupport::modifier<PrivacySensitive>(gauge), nullptr);
}

TEST(SpentGauge, NeverCoversMoreThanTheArc) {
  const View view = SpentGauge{.spentFraction = 1.7};
  EXPECT_DOUBLE_EQ(std::get<ShapeElement>(view.node().children[1].node().element).trimTo, 1);
}

TEST(SpentGauge, DrawsNoProgressOfNothing) {
  const View view = SpentGauge{.spentFraction = 0};
  EXPECT_EQ(view.node().children.size(), 1U);
}

// ---- privacy

/// 7391.42 of 9876.54 spent: 75 %; 2485.12 left, 248.512 per day.
WidgetSnapshot secretSnapshot(const std::string& periodEnd) {
  WidgetSnapshot snapshot = testsupport::snapshotWith(
      testsupport::budgetOf(9876.54, 7391.42, periodEnd, kTwentyDaysBefore));
  snapshot.money.showDecimals = true;
  return snapshot;
}

std::string everythingIn(const View& view) {
  foundation::JsonWriter writer;
  writeView(writer, view);
  return dump(view) + writer.take();
}

using Privacy = std::tuple<SafeToSpendStyle, WidgetFamily, bool, std::string>;

/// "ring_systemSmall_byHost_20250314".
std::string privacyName(const ::testing::TestParamInfo<Privacy>& info) {
  const auto& [style, family, byHost, periodEnd] = info.param;
  std::string name = style == SafeToSpendStyle::ring ? "ring_" : "accent_";
  name += nameOf(family);
  name += byHost ? "_byHost_" : "_byApplication_";
  for (const char c : periodEnd) name += c == '-' ? "" : std::string{c};
  return name;
}

class SafeToSpendPrivacy : public ::testing::TestWithParam<Privacy> {};

TEST_P(SafeToSpendPrivacy, LeavesNoDigitOfAnAmountOrPercentage) {
  const auto& [style, family, byHost, periodEnd] = GetParam();
  WidgetSnapshot snapshot = secretSnapshot(periodEnd);
  Environment environment = in(family);
  environment.redactionReasons.privacy = byHost;
  const std::string open = everythingIn(
      testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), in(family)));
  snapshot.isHidden = !byHost;
  const std::string hidden = everythingIn(
      testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), environment));

  EXPECT_NE(open, hidden);
  for (const char* secret :
       {"$", "7391", "7,391", "9876", "9,876", "2485", "2,485", "248.", "%", "0.748", "74.8"}) {
    EXPECT_EQ(hidden.find(secret), std::string::npos) << secret << " in\n" << hidden;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryLayout,
                         SafeToSpendPrivacy,
                         ::testing::Combine(::testing::Values(SafeToSpendStyle::accent,
                                                              SafeToSpendStyle::ring),
                                            ::testing::ValuesIn(widgetruntime::kAllFamilies),
                                            ::testing::Bool(),
                                            ::testing::Values(kTenDaysAfter, kToday)),
                         privacyName);

TEST(SafeToSpendView, TheApplicationsFlagAndTheHostsRedactionLookTheSame) {
  for (const WidgetFamily family : widgetruntime::kAllFamilies) {
    for (const SafeToSpendStyle style : kSafeToSpendStyles) {
      WidgetSnapshot snapshot = secretSnapshot(kTenDaysAfter);
      Environment redacted = in(family);
      redacted.redactionReasons.privacy = true;
      const View byHost =
          testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), redacted);
      snapshot.isHidden = true;
      EXPECT_EQ(byHost,
                testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), in(family)));
    }
  }
}

TEST(SafeToSpendView, TheHiddenAccentTileHasANoteAndOnlyTheTrack) {
  WidgetSnapshot snapshot = testsupport::snapshotWith(usual());
  snapshot.isHidden = true;
  const View view = testsupport::safeToSpendView(testsupport::entryWith(snapshot));
  EXPECT_THAT(testsupport::texts(view), ElementsAre("Safe to spend", "Amounts hidden", "10d left"));
  const auto* meter = testsupport::component(view, "WidgetMeter");
  EXPECT_EQ(testsupport::modifier<Overlay>(*meter), nullptr);
}

TEST(SafeToSpendView, TheHiddenRingKeepsTrackDaysAndVerdict) {
  WidgetSnapshot snapshot = testsupport::snapshotWith(usual());
  snapshot.isHidden = true;
  const View view =
      testsupport::safeToSpendView(testsupport::entryWith(snapshot, SafeToSpendStyle::ring));
  EXPECT_THAT(testsupport::texts(view),
              ElementsAre("Safe to spend", "••••", "/ day", "10d left", "On pace"));
  EXPECT_EQ(progressOf(view), nullptr);
}

}  // namespace
}  // namespace quorvel
