// What a layout rule promises at every size: figures are whole, cells square, piles clear of texts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "QuorvelWidgets/CardLimit/CardLimitWidget.hpp"
#include "QuorvelWidgets/Due/DueWidget.hpp"
#include "QuorvelWidgets/Spending/SpendingWidget.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Devices.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "Tests/Support/WidgetSamples.hpp"

namespace quorvel {
namespace {

using rendering::LayoutTree;
using rendering::PlacedNode;
using rendering::Size;
using testsupport::Device;
using testsupport::FoundText;
using testsupport::layoutOf;
using testsupport::WidgetLayout;
using testsupport::WidgetState;
using widgetruntime::WidgetFamily;

class NarrowScreen : public ::testing::Test {
 protected:
  LayoutTree place(const WidgetLayout& layout, const WidgetState& state, Size size) {
    rendering::RenderOptions options;
    options.size = size;
    options.redaction = state.environment.redactionReasons;
    return renderer_.place(testsupport::viewOf(layout, state), options).value();
  }

  rendering::Renderer renderer_;
};

/// An amount or a percentage: left to right whatever the language, with a figure or a bullet.
bool isFigure(const FoundText& text) {
  const auto& element = text.element();
  return element.direction == viewkit::LayoutDirection::leftToRight &&
         (element.text.find_first_of("0123456789") != std::string::npos ||
          element.text.find("•") != std::string::npos);
}

std::vector<WidgetState> heavyStates(std::string_view lang) {
  const auto now = testsupport::morningOf("2025-03-14");
  std::vector<WidgetState> states;
  const auto add = [&](std::string_view name, const auto& change) {
    states.push_back({name, now, testsupport::richSnapshot(lang, now), {}});
    change(*states.back().snapshot);
  };
  const auto heavy = [](WidgetSnapshot& s, double factor) { s = quorvel::scaled(s, factor); };
  for (const std::string symbol : {"$", "₽", "Rp ", "CHF ", "د.إ "}) {
    add("nine digits", [&](auto& s) {
      heavy(s, 1234.5678);
      s.money = {.symbol = symbol, .showDecimals = true};
    });
    add("over budget", [&](auto& s) {
      heavy(s, 1234.5678);
      s.money = {.symbol = symbol, .showDecimals = true};
      s.budget->spent = s.budget->total * 2;
    });
    add("seven digits", [&](auto& s) {
      heavy(s, 95);
      s.money = {.symbol = symbol, .showDecimals = false};
    });
  }
  add("hidden over budget", [&](auto& s) {
    s.isHidden = true;
    s.budget->spent = s.budget->total * 2;
  });
  add("no comparison", [&](auto& s) {
    s.spending->lastMonthSpent = 0;
    s.netWorth->changePercent.reset();
  });
  add("one of each", [&](auto& s) {
    s.cards.resize(1);
    s.dues.resize(1);
  });
  return states;
}

TEST_F(NarrowScreen, NoFigureIsEverCut) {
  std::map<std::string, int> cut;
  for (const std::string_view lang : kLanguageCodes) {
    for (const WidgetState& state : heavyStates(lang)) {
      for (const WidgetLayout& layout : testsupport::layouts()) {
        for (const Device& device : testsupport::kDevices) {
          const Size size = device.sizeOf(layout.family);
          const LayoutTree tree = place(layout, state, size);
          for (const FoundText& text : testsupport::find(tree).texts) {
            if (!isFigure(text) || !text.node->text->isCut()) continue;
            ++cut[layout.name + " " + std::string{state.name} + " at " +
                  std::to_string(std::lround(size.width)) + ": " + text.element().text];
          }
        }
      }
    }
  }
  std::string lines;
  for (const auto& [what, count] : cut) lines += what + " x" + std::to_string(count) + "\n";
  EXPECT_EQ(lines, "");
}

/// The fullest child of each Fitting that was not taken, by its place.
void collectLeftOut(const PlacedNode& node, const std::string& place, std::string& out) {
  if (node.element() != nullptr &&
      std::holds_alternative<viewkit::FittingElement>(*node.element())) {
    const bool isFullest =
        node.children.size() == 1 && node.children[0].source == &node.source->children[0].node();
    if (!isFullest) out += place + ": " + std::string{node.source->component} + "\n";
  }
  for (const PlacedNode& child : node.children) collectLeftOut(child, place, out);
}

TEST_F(NarrowScreen, NothingIsLeftOutOfTheSampleOnScreensThatExist) {
  std::string leftOut;
  const auto now = testsupport::morningOf("2025-03-14");
  const WidgetState state{"full", now, testsupport::richSnapshot("en", now), {}};
  for (const WidgetLayout& layout : testsupport::layouts()) {
    for (const Device& device : testsupport::kRealDevices) {
      const Size size = device.sizeOf(layout.family);
      const LayoutTree tree = place(layout, state, size);
      collectLeftOut(
          tree.root, layout.name + " at " + std::to_string(std::lround(size.width)), leftOut);
    }
  }
  EXPECT_EQ(leftOut, "");
}

void collect(const PlacedNode& node,
             std::string_view component,
             bool isInside,
             std::vector<const PlacedNode*>& out) {
  if (node.source && node.source->component == component) isInside = true;
  if (isInside && node.element() != nullptr &&
      std::holds_alternative<viewkit::ShapeElement>(*node.element())) {
    out.push_back(&node);
  }
  for (const PlacedNode& child : node.children) collect(child, component, isInside, out);
}

TEST_F(NarrowScreen, HeatCellsAreSquareAtEverySize) {
  const WidgetLayout layout = layoutOf(SpendingWidget::kKind, WidgetFamily::systemLarge);
  // March 2025 has six rows.
  const auto now = testsupport::morningOf("2025-03-14");
  const WidgetState state{"full", now, testsupport::richSnapshot("en", now), {}};
  for (const Device& device : testsupport::kDevices) {
    const LayoutTree tree = place(layout, state, device.sizeOf(layout.family));
    std::vector<const PlacedNode*> cells;
    collect(tree.root, "MonthHeatmap", false, cells);
    ASSERT_GE(cells.size(), 31U);
    for (const PlacedNode* cell : cells) {
      EXPECT_NEAR(cell->frame.width, cell->frame.height, 1e-6);
      EXPECT_GE(cell->frame.width, 8);
    }
  }
}

TEST_F(NarrowScreen, TheCardLimitsAmountEndsBeforeThePile) {
  const WidgetLayout layout = layoutOf(CardLimitWidget::kKind, WidgetFamily::systemMedium);
  for (const std::string_view lang : kLanguageCodes) {
    for (const WidgetState& state : heavyStates(lang)) {
      for (const Device& device : testsupport::kDevices) {
        const Size size = device.sizeOf(layout.family);
        const LayoutTree tree = place(layout, state, size);
        // The pile is 152 wide and 14 from the trailing edge.
        const double edge = size.width - 152 - 14;
        for (const FoundText& text : testsupport::find(tree).texts) {
          const auto& frame = text.node->frame;
          const bool isTotal = isFigure(text) && text.element().size == 24;
          if (!isTotal) continue;
          if (lang == "ar") {
            EXPECT_GE(frame.x, size.width - edge) << text.element().text;
          } else {
            EXPECT_LE(frame.right(), edge) << text.element().text;
          }
        }
      }
    }
  }
}

TEST_F(NarrowScreen, ADueLinksOverAllOfItsCardThatIsVisible) {
  const WidgetLayout layout = layoutOf(DueWidget::kKind, WidgetFamily::systemMedium);
  WidgetSnapshot snapshot = testsupport::smallSnapshot();
  for (auto& due : snapshot.dues) due.cardId = "a";
  const auto heights = [&](std::size_t dues) {
    WidgetState state{"full", testsupport::februaryTenth(), snapshot, {}};
    // The first one is over.
    state.snapshot->dues.resize(dues + 1);
    std::vector<double> result;
    const LayoutTree tree = place(layout, state, {364, 170});
    for (const auto& link : testsupport::find(tree).links) result.push_back(link.height);
    return result;
  };
  EXPECT_THAT(heights(1), ::testing::ElementsAre(66));
  EXPECT_THAT(heights(2), ::testing::ElementsAre(46, 66));
  // Three are 158 high in a box of 150.
  EXPECT_THAT(heights(3), ::testing::ElementsAre(46, 46, 58));
}

WidgetState withNames(const std::string& name) {
  const auto now = testsupport::morningOf("2025-03-14");
  return {"names", now, quorvel::renamed(testsupport::richSnapshot("en", now), name), {}};
}

std::size_t amountsIn(const LayoutTree& tree, double size) {
  const auto texts = testsupport::find(tree).texts;
  return static_cast<std::size_t>(std::ranges::count_if(
      texts, [&](const FoundText& t) { return isFigure(t) && t.element().size == size; }));
}

TEST_F(NarrowScreen, ALongNameCostsNoPaymentAndNoCategory) {
  const WidgetState state = withNames("The Account That Somebody Gave A Very Long Name");
  const WidgetLayout due = layoutOf(DueWidget::kKind, WidgetFamily::systemMedium);
  const WidgetLayout spending = layoutOf(SpendingWidget::kKind, WidgetFamily::systemMedium);
  for (const Device& device : testsupport::kRealDevices) {
    EXPECT_EQ(amountsIn(place(due, state, device.sizeOf(due.family)), 13.5), 3U);
    const Size size = device.sizeOf(spending.family);
    EXPECT_EQ(amountsIn(place(spending, state, size), 13), 1U);
  }
}

TEST_F(NarrowScreen, ANameThatIsALittleTooLongShrinksBeforeItsSubtitleLeaves) {
  const WidgetLayout layout = layoutOf(DueWidget::kKind, WidgetFamily::systemSmall);
  WidgetState state = withNames("Northbank Everyday");
  for (auto& due : state.snapshot->dues) due.subtitle = "Card";
  const LayoutTree tree = place(layout, state, {158, 158});
  std::vector<std::string> words;
  for (const FoundText& text : testsupport::find(tree).texts) {
    EXPECT_FALSE(text.node->text->isCut()) << text.element().text;
    words.push_back(text.element().text);
  }
  EXPECT_THAT(words, ::testing::Contains("\u2068Card\u2069"));
}

TEST_F(NarrowScreen, ALongCategoryTakesASecondLineInTheLargeSpending) {
  const WidgetLayout layout = layoutOf(SpendingWidget::kKind, WidgetFamily::systemLarge);
  const WidgetState state = withNames("Restaurants, bars and takeaway");
  for (const Device& device : testsupport::kDevices) {
    const LayoutTree tree = place(layout, state, device.sizeOf(layout.family));
    int names = 0;
    for (const FoundText& text : testsupport::find(tree).texts) {
      if (text.element().text != "Restaurants, bars and takeaway") continue;
      ++names;
      EXPECT_EQ(text.node->text->lines.size(), 2U) << device.name;
      EXPECT_FALSE(text.node->text->isCut()) << device.name;
    }
    EXPECT_EQ(names, 1);
  }
}

TEST_F(NarrowScreen, ALongCategoryTakesASecondLineInTheMediumSpending) {
  const WidgetLayout layout = layoutOf(SpendingWidget::kKind, WidgetFamily::systemMedium);
  const WidgetState state = withNames("Restaurants, bars and takeaway");
  for (const Device& device : testsupport::kDevices) {
    const LayoutTree tree = place(layout, state, device.sizeOf(layout.family));
    int names = 0;
    int labels = 0;
    for (const FoundText& text : testsupport::find(tree).texts) {
      labels += text.element().size == 9.5 ? 1 : 0;
      if (text.element().text != "Restaurants, bars and takeaway") continue;
      ++names;
      EXPECT_EQ(text.node->text->lines.size(), 2U) << device.name;
      EXPECT_FALSE(text.node->text->isCut()) << device.name;
    }
    EXPECT_EQ(names, 1);
    EXPECT_EQ(labels, device.name == "stress" ? 0 : 5) << device.name;
  }
}

TEST_F(NarrowScreen, ANameOfOneLineLeavesTheBarsTheirHeight) {
  const WidgetLayout layout = layoutOf(SpendingWidget::kKind, WidgetFamily::systemMedium);
  const auto barsOf = [&](const std::string& category) {
    const LayoutTree tree = place(layout, withNames(category), {364, 170});
    std::vector<const PlacedNode*> bars;
    collect(tree.root, "DailyBars", false, bars);
    double top = 170;
    for (const PlacedNode* bar : bars) top = std::min(top, bar->frame.y);
    return top;
  };
  // A row of 75 or 84 below the margin, then 8 and 6.
  EXPECT_NEAR(barsOf("Food"), 16 + 75 + 14, 0.01);
  EXPECT_NEAR(barsOf("Restaurants, bars and takeaway"), 16 + 84 + 14, 0.01);
}

// "CHF 1,561.93" has 60 points of the 91 that it needs in one of three tiles.
TEST_F(NarrowScreen, TheAverageLeavesBeforeTheStatisticsAreTooSmallToRead) {
  const auto now = testsupport::morningOf("2025-03-14");
  WidgetState state{"francs", now, testsupport::richSnapshot("en", now), {}};
  state.snapshot->money = {.symbol = "CHF ", .showDecimals = true};
  state.snapshot->spending->spent = 1561.93 * 14;
  const auto statistics = [&](Size size) {
    const WidgetLayout layout = layoutOf(SpendingWidget::kKind, WidgetFamily::systemLarge);
    const LayoutTree tree = place(layout, state, size);
    std::vector<std::string> labels;
    for (const FoundText& text : testsupport::find(tree).texts) {
      const auto& element = text.element();
      if (element.size == 11 && element.text != "Top category") labels.push_back(element.text);
      if (element.size != 13.5) continue;
      EXPECT_GE(text.node->text->scale, 0.75) << element.text;
    }
    return labels;
  };
  EXPECT_THAT(statistics({364, 382}), ::testing::ElementsAre("Today", "Average", "Last month"));
  EXPECT_THAT(statistics({292, 311}), ::testing::ElementsAre("Today", "Last month"));
}

TEST_F(NarrowScreen, TheSmallCardStaysInsideItsMargins) {
  const WidgetLayout layout = layoutOf(CardLimitWidget::kKind, WidgetFamily::systemSmall);
  for (const Device& device : testsupport::kDevices) {
    const Size size = device.sizeOf(layout.family);
    const LayoutTree tree = place(layout, withNames("Everyday"), size);
    const auto found = testsupport::find(tree);
    ASSERT_FALSE(found.texts.empty());
    const auto isFace = [](const PlacedNode* node) {
      return node->source && node->source->component == "CardArtTile";
    };
    const auto face = std::ranges::find_if(found.all, isFace);
    ASSERT_NE(face, found.all.end());
    EXPECT_GE((*face)->frame.y, 16 - 1e-6) << size.width;
    EXPECT_GE((*face)->frame.height, 40 - 1e-6);
    for (const FoundText& text : found.texts) {
      EXPECT_LE(text.node->frame.bottom(), size.height - 16 + 1e-6) << text.element().text;
    }
  }
}

// A bar is at least 2 em wide, but a letter's stays in its tile and a label's below its bar.
TEST_F(NarrowScreen, APlaceholderStaysWhereItsTextStands) {
  WidgetState state = withNames("Rent");
  state.environment.redactionReasons.placeholder = true;
  for (auto& due : state.snapshot->dues) due.symbol = due.brandId = std::nullopt;
  const WidgetLayout due = layoutOf(DueWidget::kKind, WidgetFamily::systemMedium);
  const LayoutTree dues = place(due, state, {364, 170});
  std::size_t letters = 0;
  for (const FoundText& text : testsupport::find(dues).texts) {
    if (!text.around.isInDueTile) continue;
    ++letters;
    EXPECT_LE(text.node->frame.width, 0.6 * 28 + 1e-6);
  }
  EXPECT_EQ(letters, 3U);
  const WidgetLayout spending = layoutOf(SpendingWidget::kKind, WidgetFamily::systemMedium);
  const LayoutTree month = place(spending, state, {364, 170});
  std::size_t labels = 0;
  for (const FoundText& text : testsupport::find(month).texts) {
    if (text.element().size != 9.5) continue;
    ++labels;
    EXPECT_LE(text.node->frame.width, 14 + 1e-6);
  }
  EXPECT_EQ(labels, 5U);
}

}  // namespace
}  // namespace quorvel
