// Where the safe-to-spend layouts put their parts, and what a host can read of them when hidden.
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"
#include "Rendering/Layout/Layout.hpp"
#include "Rendering/Output/AccessibilityTree.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"

namespace quorvel {
namespace {

using rendering::PlacedNode;
using rendering::Rect;
using rendering::Size;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

/// Every character is half an em wide, so that widths can be worked out by hand.
class HalfEmMeasurer : public rendering::TextMeasurer {
 public:
  std::shared_ptr<const rendering::ShapedParagraph> shape(
      std::string_view text, const rendering::TextStyle& style) override {
    auto paragraph = std::make_shared<rendering::ShapedParagraph>();
    paragraph->text = text;
    paragraph->ellipsisAdvance = 0.5;
    paragraph->direction = style.direction;
    for (std::uint32_t i = 0; i < text.size(); ++i) {
      const bool space = text[i] == ' ';
      paragraph->clusters.push_back(
          {.begin = i, .end = i + 1, .advance = 0.5, .breakAfter = space, .isSpace = space});
    }
    return paragraph;
  }
};

WidgetSnapshot usual() {
  return testsupport::snapshotWith(testsupport::budgetOf(3000, 1834, "2025-03-25", "2025-02-24"));
}

rendering::LayoutTree placed(const WidgetSnapshot& snapshot,
                             SafeToSpendStyle style,
                             WidgetFamily family,
                             Size size) {
  Environment environment;
  environment.widgetFamily = family;
  HalfEmMeasurer measurer;
  return rendering::layOut(
      testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), environment),
      {.size = size},
      measurer);
}

/// The frame of the element that `matches`; the first in drawing order.
template <class Matches>
const PlacedNode* find(const PlacedNode& node, const Matches& matches) {
  if (node.element() && matches(node)) return &node;
  for (const PlacedNode& child : node.children) {
    if (const PlacedNode* found = find(child, matches)) return found;
  }
  return nullptr;
}

Rect frameOfComponent(const rendering::LayoutTree& tree, std::string_view name) {
  const auto* node =
      find(tree.root, [&](const PlacedNode& n) { return n.source->component == name; });
  return node ? node->frame : Rect{};
}

Rect frameOfText(const rendering::LayoutTree& tree, std::string_view text) {
  const auto* node = find(tree.root, [&](const PlacedNode& n) {
    const auto* element = std::get_if<viewkit::TextElement>(n.element());
    return element && element->text == text;
  });
  return node ? node->frame : Rect{};
}

/// The figures of a layout that are semibold; the smallest figure has 17 points.
std::set<std::string> semiboldFigures(SafeToSpendStyle style, WidgetFamily family, Size size) {
  const auto tree = placed(usual(), style, family, size);
  std::set<std::string> figures;
  for (const auto& text : testsupport::find(tree).texts) {
    const viewkit::TextElement& element = text.element();
    if (element.size >= 17 && element.weight == viewkit::FontWeight::semibold) {
      figures.insert(element.text);
    }
  }
  return figures;
}

constexpr Size kSmall{170, 170};
constexpr Size kMedium{364, 170};
constexpr Size kWithoutTile{268, 141};

TEST(SafeToSpendLayout, TheRingsGaugeIsTheWidthOfTheContentAnd63High) {
  const auto tree = placed(usual(), SafeToSpendStyle::ring, WidgetFamily::systemSmall, kSmall);
  const Rect gauge = frameOfComponent(tree, "SpentGauge");
  EXPECT_NEAR(gauge.width, 138, 0.01);
  EXPECT_NEAR(gauge.height, 63, 0.01);
  // Under it 6, a line of 21, 3 and a line of 11.5: 6 + 25.41 + 3 + 13.91 above the margin of 16.
  EXPECT_NEAR(gauge.y + gauge.height, 170 - 16 - 48.32, 0.05);
}

TEST(SafeToSpendLayout, TheRingsGaugeGivesWayInASmallerWidget) {
  const auto tree = placed(usual(), SafeToSpendStyle::ring, WidgetFamily::systemSmall, {158, 158});
  // 126 less 14.5 of the header, 7, and the 48.32 below.
  EXPECT_NEAR(frameOfComponent(tree, "SpentGauge").height, 56.18, 0.05);
}

TEST(SafeToSpendLayout, TheMeterStaysInItsPlaceInEveryState) {
  WidgetSnapshot hidden = usual();
  hidden.isHidden = true;
  for (const WidgetSnapshot& snapshot :
       {usual(),
        testsupport::snapshotWith(testsupport::budgetOf(3000, 3210, "2025-03-25")),
        testsupport::snapshotWith(testsupport::budgetOf(3000, 1834, "2025-03-14")),
        hidden}) {
    const auto tree = placed(snapshot, SafeToSpendStyle::accent, WidgetFamily::systemSmall, kSmall);
    const Rect meter = frameOfComponent(tree, "WidgetMeter");
    EXPECT_NEAR(meter.x, 16, 0.01);
    EXPECT_NEAR(meter.width, 138, 0.01);
    // Above the margin: a footer of 14.5 under a gap of 6.
    EXPECT_NEAR(meter.y + meter.height, 170 - 16 - 14.5 - 6, 0.01);
  }
}

TEST(SafeToSpendLayout, TheMediumPartsAre104AndTheRestAnd92) {
  const auto tree = placed(usual(), SafeToSpendStyle::accent, WidgetFamily::systemMedium, kMedium);
  const Rect gauge = frameOfComponent(tree, "SpentGauge");
  EXPECT_NEAR(gauge.x, 16, 0.01);
  EXPECT_NEAR(gauge.width, 104, 0.01);
  EXPECT_NEAR(gauge.y + gauge.height, 154, 0.01);
  EXPECT_NEAR(frameOfText(tree, "Left to spend").x, 16 + 104 + 12, 0.01);
  EXPECT_NEAR(frameOfText(tree, "Days left").x, 364 - 16 - 92 + 12, 0.01);
}

TEST(SafeToSpendLayout, TheNarrowMediumSharesWhatTheTileLeaves) {
  const auto tree =
      placed(usual(), SafeToSpendStyle::accent, WidgetFamily::systemMedium, {338, 158});
  // 338 - 32 - 24 - 92 is 190 for two parts.
  EXPECT_NEAR(frameOfComponent(tree, "SpentGauge").width, 95, 0.01);
  EXPECT_NEAR(frameOfText(tree, "Left to spend").x, 16 + 95 + 12, 0.01);
}

// "Left for today" is 14 * 11 / 2 = 77 wide in the tile's 68: at 0.88 it fits on one line.
TEST(SafeToSpendLayout, ALabelThatIsALittleTooWideShrinksOnItsLine) {
  const WidgetSnapshot lastDay =
      testsupport::snapshotWith(testsupport::budgetOf(3000, 1834, "2025-03-14", "2025-02-24"));
  const auto tree = placed(lastDay, SafeToSpendStyle::ring, WidgetFamily::systemMedium, kMedium);
  const auto* label = find(tree.root, [](const PlacedNode& n) {
    const auto* element = std::get_if<viewkit::TextElement>(n.element());
    return element && element->text == "Left for today";
  });
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text->lines.size(), 1U);
  EXPECT_NEAR(label->text->scale, 68.0 / 77, 0.01);
}

// The arc of 72 is open for 72 - 2 * 9.5 = 53 on its foot, of which the words take 44: "On pace", 7
// * 11.5 / 2 = 40.25 wide, keeps its size.
TEST(SafeToSpendLayout, TheVerdictTakesTheWidthThatTheArcLeavesOpen) {
  const auto tree = placed(usual(), SafeToSpendStyle::ring, WidgetFamily::systemMedium, {292, 141});
  const Rect gauge = frameOfComponent(tree, "SpentGauge");
  EXPECT_NEAR(gauge.width, 72, 0.01);
  const Rect verdict = frameOfText(tree, "On pace");
  EXPECT_NEAR(verdict.width, 40.25, 0.01);
  EXPECT_NEAR(verdict.x + verdict.width / 2, gauge.x + gauge.width / 2, 0.01);
}

// At 268 three parts leave the gauge 60 and "On pace" 32 of the 32.2 that it needs at its smallest.
TEST(SafeToSpendLayout, WithoutRoomForTheTileTheDaysStandBesideTheAmountPerDay) {
  const auto tree =
      placed(usual(), SafeToSpendStyle::ring, WidgetFamily::systemMedium, kWithoutTile);
  const Rect amount = frameOfText(tree, "$106");
  const Rect days = frameOfText(tree, "11");
  EXPECT_GT(amount.width, 0);
  EXPECT_GT(days.x, amount.right());
  EXPECT_DOUBLE_EQ(days.y, amount.y);
  EXPECT_GT(frameOfText(tree, "Days left").y, days.y);
  EXPECT_EQ(frameOfText(tree, "Spent").width, 0);
  EXPECT_EQ(frameOfText(tree, "11d left").width, 0);
}

TEST(SafeToSpendLayout, EveryFigureIsSemibold) {
  using ::testing::ElementsAre;
  EXPECT_THAT(semiboldFigures(SafeToSpendStyle::accent, WidgetFamily::systemSmall, kSmall),
              ElementsAre("$106"));
  EXPECT_THAT(semiboldFigures(SafeToSpendStyle::ring, WidgetFamily::systemSmall, kSmall),
              ElementsAre("$106", "61%"));
  EXPECT_THAT(semiboldFigures(SafeToSpendStyle::accent, WidgetFamily::systemMedium, kMedium),
              ElementsAre("$1,166", "$106", "11", "61%"));
  EXPECT_THAT(semiboldFigures(SafeToSpendStyle::accent, WidgetFamily::systemMedium, kWithoutTile),
              ElementsAre("$1,166", "$106", "11"));
}

TEST(SafeToSpendLayout, AnAmountOfAnySizeStaysInTheWidget) {
  WidgetSnapshot snapshot = testsupport::snapshotWith(testsupport::budgetOf(9e14, 1, "2025-03-15"));
  snapshot.money.symbol = "CHF ";
  for (const SafeToSpendStyle style : kSafeToSpendStyles) {
    const auto tree = placed(snapshot, style, WidgetFamily::systemSmall, kSmall);
    const Rect amount = frameOfComponent(tree, "Amount");
    EXPECT_GE(amount.x, 16);
    EXPECT_LE(amount.x + amount.width, 154.01);
  }
}

/// How often a text is drawn.
std::size_t countOf(const rendering::LayoutTree& tree, const std::string& words) {
  const auto texts = testsupport::find(tree).texts;
  return static_cast<std::size_t>(
      std::ranges::count_if(texts, [&](const auto& text) { return text.element().text == words; }));
}

/// How often an element says exactly that.
std::size_t spokenCountOf(const rendering::LayoutTree& tree, const std::string& words) {
  const auto elements = rendering::accessibleElements(tree, {.redaction = {}, .name = "Name"});
  return static_cast<std::size_t>(
      std::ranges::count(elements, words, [](const auto& element) { return element.label; }));
}

rendering::LayoutTree mediumIn(rendering::Renderer& renderer,
                               const WidgetSnapshot& snapshot,
                               Size size) {
  Environment environment;
  environment.widgetFamily = WidgetFamily::systemMedium;
  const auto view = testsupport::safeToSpendView(testsupport::entryWith(snapshot), environment);
  return renderer.place(view, {.size = size}).value();
}

// The phrase and the pair say the same, and either may have no room.
TEST(SafeToSpendForms, TheDaysAreSpokenOnceWhereverTheyAreDrawn) {
  struct Period {
    const char* end;
    std::int64_t daysLeft;
  };
  constexpr Period kPeriods[] = {{"2025-03-14", 0}, {"2025-03-15", 1}, {"2025-03-31", 17}};
  rendering::Renderer renderer;
  std::size_t pairsAlone = 0;
  std::size_t phrasesAlone = 0;
  const auto check = [&](const WidgetSnapshot& snapshot, std::int64_t days, Size size) {
    const auto tree = mediumIn(renderer, snapshot, size);
    const std::string phrase = dayPhrase(days, snapshot.lang);
    const std::size_t phrases = countOf(tree, phrase);
    const std::size_t pairs = countOf(tree, WidgetStrings::text("daysLeft", snapshot.lang));
    const std::string spoken = days == 0 ? phrase : spokenDaysLeft(days, snapshot.lang);
    EXPECT_EQ(spokenCountOf(tree, spoken), phrases + pairs > 0 ? 1U : 0U)
        << snapshot.lang << ", " << days << " days at " << size.width << "x" << size.height;
    pairsAlone += phrases == 0 ? pairs : 0;
    phrasesAlone += pairs == 0 ? phrases : 0;
  };
  for (const char* lang : {"en", "de", "es", "ja", "ar", "ru"}) {
    for (const Period& period : kPeriods) {
      for (const double spent : {1834.0, 3210.0}) {
        const WidgetSnapshot snapshot = testsupport::snapshotWith(
            testsupport::budgetOf(3000, spent, period.end, "2025-02-24"), lang);
        for (const double width : {268.0, 292.0, 338.0, 364.0}) {
          for (double height = 110; height <= 170; height += 5) {
            check(snapshot, period.daysLeft, {width, height});
          }
        }
      }
    }
  }
  EXPECT_GT(pairsAlone, 50U);
  EXPECT_GT(phrasesAlone, 5U);
}

/// 7391.42 of 9876.54 spent: 75 %; 2485.12 left, 248.51 per day.
TEST(SafeToSpendForms, HiddenOnesHoldNoDigitOfAnAmountOrPercentage) {
  rendering::Renderer renderer;
  WidgetSnapshot snapshot = testsupport::snapshotWith(
      testsupport::budgetOf(9876.54, 7391.42, "2025-03-24", "2025-02-22"));
  snapshot.money.showDecimals = true;
  for (const WidgetFamily family : {WidgetFamily::systemSmall, WidgetFamily::systemMedium}) {
    for (const SafeToSpendStyle style : kSafeToSpendStyles) {
      for (const bool byHost : {false, true}) {
        Environment environment;
        environment.widgetFamily = family;
        environment.redactionReasons.privacy = byHost;
        snapshot.isHidden = !byHost;
        const auto view =
            testsupport::safeToSpendView(testsupport::entryWith(snapshot, style), environment);
        const rendering::RenderOptions options{
            .size = family == WidgetFamily::systemSmall ? kSmall : kMedium,
            .redaction = environment.redactionReasons};
        const std::string words = renderer.plainText(view, options).value() +
                                  renderer.accessibilityTree(view, options).value();
        EXPECT_NE(words.find("10d left"), std::string::npos) << words;
        for (const char* secret : {"$", "%", "7391", "7,391", "9,876", "2,485", "248.", "75"}) {
          EXPECT_EQ(words.find(secret), std::string::npos) << secret << " in\n" << words;
        }
        const std::string svg = renderer.svg(view, options).value();
        for (const char* secret : {"$", "7,391", "9,876", "2,485", "75%"}) {
          EXPECT_EQ(svg.find(secret), std::string::npos) << secret;
        }
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
