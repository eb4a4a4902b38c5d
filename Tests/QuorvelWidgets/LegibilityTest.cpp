// Everything that the widgets write can be read: every layout in every state and language, on large
// and small devices, laid out with the real fonts.
#include <gmock/gmock.h>

#include <cmath>
#include <set>

#include "QuorvelWidgets/Spending/SpendingWidget.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Devices.hpp"
#include "Tests/Support/Faults.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {
namespace {

using rendering::LayoutTree;
using rendering::PlacedLine;
using rendering::Rect;
using rendering::Size;
using testsupport::Device;
using testsupport::Faults;
using testsupport::FoundText;
using testsupport::inkBox;
using testsupport::intersection;
using testsupport::WidgetLayout;
using testsupport::WidgetState;
using widgetruntime::WidgetFamily;

bool isInside(const Rect& inner, const Rect& outer) {
  constexpr double kTolerance = 0.5;
  return inner.x >= outer.x - kTolerance && inner.y >= outer.y - kTolerance &&
         inner.right() <= outer.right() + kTolerance &&
         inner.bottom() <= outer.bottom() + kTolerance;
}

bool overlaps(const Rect& a, const Rect& b) {
  constexpr double kTolerance = 0.5;
  const Rect both = intersection(a, b);
  return both.width > kTolerance && both.height > kTolerance;
}

/// A person's own name, alone or as a part of a line.
bool isUsersOwn(const std::string& text, const std::set<std::string>& names) {
  return std::ranges::any_of(names, [&](const std::string& name) {
    return text == name || text.find("\u2068" + name + "\u2069") != std::string::npos;
  });
}

/// The width of the whole text on one line, as small as it may become.
double leastWidth(const FoundText& text) {
  const auto& element = text.element();
  double width = 0;
  for (const auto& cluster : text.node->text->paragraph->clusters) {
    width += cluster.advance * element.size + element.tracking;
  }
  return width * element.minimumScaleFactor;
}

/// A line that ends where no line may end parts a word that is wider than its room.
bool partsAWord(const rendering::PlacedText& text) {
  for (std::size_t i = 1; i < text.lines.size(); ++i) {
    const std::uint32_t first = text.lines[i].first;
    if (first > 0 && !text.paragraph->clusters[first - 1].breakAfter) return true;
  }
  return false;
}

/// 11 points at the least scale that a caption has. Amounts and percentages, which run left to
/// right in every language, shrink further.
constexpr double kLeastWords = 8.8;

bool isTooSmall(const FoundText& text) {
  const bool isFigure = text.element().direction == viewkit::LayoutDirection::leftToRight;
  return !isFigure && !text.node->text->lines.empty() && text.node->text->size < kLeastWords - 1e-9;
}

void checkText(const FoundText& text,
               const WidgetState& state,
               const std::function<void(const std::string&)>& fail) {
  const auto& placed = *text.node->text;
  const auto& element = text.element();
  const std::string quoted = "\"" + element.text.substr(0, 60) + "\" ";
  if (placed.isCut() && !isUsersOwn(element.text, testsupport::userTexts(state.snapshot))) {
    fail(quoted + "is cut: its least width is " + std::to_string(std::lround(leastWidth(text))) +
         " of " + std::to_string(std::lround(text.node->frame.width)));
  }
  if (partsAWord(placed) && !isUsersOwn(element.text, testsupport::userTexts(state.snapshot))) {
    fail(quoted + "is parted inside a word");
  }
  if (placed.scale < element.minimumScaleFactor - 1e-9) fail(quoted + "is smaller than allowed");
  if (isTooSmall(text)) fail(quoted + "is drawn at " + std::to_string(placed.size) + " points");
  if (!element.text.empty() && placed.lines.empty()) fail(quoted + "has no room");
  for (const PlacedLine& line : placed.lines) {
    if (!isInside(inkBox(placed, line), text.around.clip)) fail(quoted + "leaves what is shown");
  }
}

void checkOverlaps(const testsupport::FoundNodes& found,
                   const std::function<void(const std::string&)>& fail) {
  std::vector<std::pair<Rect, const FoundText*>> lines;
  for (const FoundText& text : found.texts) {
    for (const PlacedLine& line : text.node->text->lines) {
      lines.emplace_back(inkBox(*text.node->text, line), &text);
    }
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string& words = lines[i].second->element().text;
    for (std::size_t j = i + 1; j < lines.size(); ++j) {
      if (!overlaps(lines[i].first, lines[j].first)) continue;
      fail("\"" + words + "\" overlaps \"" + lines[j].second->element().text + "\"");
    }
    for (const Rect& symbol : found.symbols) {
      const Rect drawn{symbol.x + 1, symbol.y + 1, symbol.width - 2, symbol.height - 2};
      if (overlaps(lines[i].first, drawn)) fail("\"" + words + "\" overlaps a symbol");
    }
  }
}

void checkLinks(const testsupport::FoundNodes& found,
                const std::function<void(const std::string&)>& fail) {
  for (const Rect& link : found.links) {
    if (link.height < 24) fail("a link is " + std::to_string(link.height) + " high");
  }
}

class Legibility : public ::testing::Test {
 protected:
  rendering::Renderer renderer_;
};

TEST_F(Legibility, NoTextIsCutLeavesTheWidgetOrOverlapsAnother) {
  Faults faults;
  std::size_t trees = 0;
  for (const std::string_view lang : kLanguageCodes) {
    for (const WidgetState& state : testsupport::widgetStates(lang)) {
      for (const WidgetLayout& layout : testsupport::layouts()) {
        const viewkit::View view = testsupport::viewOf(layout, state);
        for (const Device& device : testsupport::kDevices) {
          const LayoutTree tree =
              renderer_.place(view, testsupport::optionsFor(layout, state, device)).value();
          const auto found = testsupport::find(tree);
          const auto fail = [&](const std::string& what) {
            faults.add(layout.name + " " + std::string{lang} + ": " + what,
                       std::string{state.name} + " on " + std::string{device.name});
          };
          for (const FoundText& text : found.texts) checkText(text, state, fail);
          checkOverlaps(found, fail);
          checkLinks(found, fail);
          ++trees;
        }
      }
    }
  }
  RecordProperty("trees", static_cast<int>(trees));
  EXPECT_EQ(faults.lines(), "");
}

// Hosts may draw a widget in a family that it is not declared for.
TEST_F(Legibility, NoAccessoryDrawsWordsTooSmallToRead) {
  Faults faults;
  for (const std::string_view lang : kLanguageCodes) {
    for (const WidgetState& state : testsupport::widgetStates(lang)) {
      for (const auto& widget : testsupport::bundle().widgets) {
        for (const WidgetFamily family : widgetruntime::kAllFamilies) {
          if (!isAccessory(family)) continue;
          const WidgetLayout layout = testsupport::layoutOf(widget.description.kind, family);
          const viewkit::View view = testsupport::viewOf(layout, state);
          for (const Device& device : testsupport::kDevices) {
            const LayoutTree tree =
                renderer_.place(view, testsupport::optionsFor(layout, state, device)).value();
            for (const FoundText& text : testsupport::find(tree).texts) {
              if (!isTooSmall(text)) continue;
              faults.add(layout.name + " " + std::string{lang} + ": " + text.element().text +
                             " is drawn at " + std::to_string(text.node->text->size),
                         std::string{state.name} + " on " + std::string{device.name});
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(faults.lines(), "");
}

// March 2025 takes six rows of the heat map.
TEST_F(Legibility, ALongMonthStaysInsideTheMarginsOfTheSmallestScreen) {
  const WidgetLayout layout =
      testsupport::layoutOf(SpendingWidget::kKind, WidgetFamily::systemLarge);
  const WidgetState state = testsupport::widgetStates("en").front();
  const viewkit::View view = testsupport::viewOf(layout, state);
  for (const Size& size : {Size{364, 382}, Size{338, 354}, Size{292, 311}}) {
    const LayoutTree tree = renderer_.place(view, {.size = size}).value();
    const auto found = testsupport::find(tree);
    ASSERT_FALSE(found.texts.empty());
    const Rect margins{16, 16, size.width - 32, size.height - 32};
    for (const FoundText& text : found.texts) {
      EXPECT_TRUE(isInside(text.node->frame, margins))
          << text.element().text << " on " << size.width << "x" << size.height;
    }
  }
}

// A view in which everything is wrong, so that the checks above are known to see it.
TEST_F(Legibility, TheChecksSeeWhatIsWrong) {
  using namespace viewkit;
  const View words = Text{"Some words"}.font(12).lineLimit(1);
  const View wrong =
      ZStack{
          {.alignment = Alignment::topLeading},
          words.offset(-20, 50),
          words.offset(40, 0),
          words.offset(42, 2),
          words.frame(FixedFrame{.width = 20}).offset(0, 30),
          Text{"Unbreakable"}.font(12).frame(FixedFrame{.width = 40}).offset(0, 80),
          Text{"Tiny"}.font(8.7).offset(0, 110),
          Text{"7"}.font(8.7).direction(LayoutDirection::leftToRight).offset(60, 110),
          Rectangle().frame(FixedFrame{.width = 50, .height = 20}).link("quorvel-widget://open/x"),
      }
          .frame(FixedFrame{.width = 170, .height = 170, .alignment = Alignment::topLeading});
  const LayoutTree tree = renderer_.place(wrong, {.size = {170, 170}}).value();
  const auto found = testsupport::find(tree);
  std::set<std::string> seen;
  const auto fail = [&](const std::string& what) { seen.insert(what.substr(0, what.find(':'))); };
  for (const FoundText& text : found.texts) checkText(text, {}, fail);
  checkOverlaps(found, fail);
  checkLinks(found, fail);
  EXPECT_THAT(seen,
              ::testing::ElementsAre("\"Some words\" is cut",
                                     "\"Some words\" leaves what is shown",
                                     "\"Some words\" overlaps \"Some words\"",
                                     "\"Tiny\" is drawn at 8.700000 points",
                                     "\"Unbreakable\" is parted inside a word",
                                     "a link is 20.000000 high"));
}

}  // namespace
}  // namespace quorvel
