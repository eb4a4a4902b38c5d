// Everything that the widgets write can be read: every layout in every state and language, on large
// and small devices, laid out with the real fonts.
#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <map>

#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"
#include "Rendering/Recording/RecorderColors.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "Tests/Support/WidgetStates.hpp"

namespace quorvel {
namespace {

using rendering::LayoutTree;
using rendering::PlacedLine;
using rendering::Rect;
using rendering::Size;
using testsupport::FoundText;
using testsupport::inkBox;
using testsupport::intersection;
using testsupport::WidgetLayout;
using testsupport::WidgetState;
using viewkit::Appearance;
using viewkit::Rgb;
using widgetruntime::WidgetFamily;

struct Device {
  std::string_view name;
  std::array<Size, 6> sizes;  ///< in the order of the families
};

constexpr Device kDevices[] = {
    {"standard", {{{170, 170}, {364, 170}, {364, 382}, {76, 76}, {172, 76}, {257, 26}}}},
    {"compact", {{{158, 158}, {338, 158}, {338, 354}, {72, 72}, {160, 72}, {234, 26}}}},
    {"stress", {{{141, 141}, {292, 141}, {292, 311}, {68, 68}, {153, 68}, {225, 26}}}},
};

rendering::RenderOptions optionsFor(const WidgetLayout& layout,
                                    const WidgetState& state,
                                    const Device& device) {
  rendering::RenderOptions options;
  options.size = device.sizes[static_cast<std::size_t>(layout.family)];
  options.scale = 1;
  options.cornerRadius = 0;
  options.mode = state.environment.widgetRenderingMode;
  options.showsBackground = state.environment.showsWidgetContainerBackground;
  options.redaction = state.environment.redactionReasons;
  return options;
}

/// One line for each thing that is wrong, with the number of pictures that show it.
class Faults {
 public:
  void add(const std::string& what, const std::string& where) {
    auto& [count, first] = found_[what];
    if (count++ == 0) first = where;
  }
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    for (const auto& [what, places] : found_) {
      lines.push_back(what + " (" + std::to_string(places.first) + " times, first in " +
                      places.second + ")");
    }
    return lines;
  }

 private:
  std::map<std::string, std::pair<int, std::string>> found_;
};

std::string joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += line + "\n";
  return all;
}

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
      for (const WidgetLayout& layout : testsupport::kLayouts) {
        const viewkit::View view = testsupport::viewOf(layout, state);
        for (const Device& device : kDevices) {
          const LayoutTree tree = renderer_.place(view, optionsFor(layout, state, device)).value();
          const auto found = testsupport::find(tree);
          const auto fail = [&](const std::string& what) {
            faults.add(std::string{layout.name} + " " + std::string{lang} + ": " + what,
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
  EXPECT_EQ(joined(faults.lines()), "");
}

// March 2025 takes six rows of the heat map.
TEST_F(Legibility, ALongMonthStaysInsideTheMarginsOfTheSmallestScreen) {
  const WidgetLayout layout{
      "spending-large", testsupport::WidgetKind::spending, WidgetFamily::systemLarge};
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
                                     "\"Unbreakable\" is parted inside a word",
                                     "a link is 20.000000 high"));
}

// ---- contrast

/// Where less than the usual contrast is accepted, because the palette fixes both colours or they
/// are the document's. Nothing else is.
struct Exception {
  std::string_view why;
  Appearance appearance;
  Rgb text;
  Rgb ground;
  double ratio;
};

constexpr Exception kExceptions[] = {
    {"the warning colour on the canvas", Appearance::light, 0xB4750B, 0xFCFCFB, 3.7},
    {"a favourable change on the canvas", Appearance::light, 0x2A78D6, 0xFCFCFB, 4.2},
    {"the critical colour on a surface", Appearance::light, 0xD03B3B, 0xF0EFEA, 4.1},
    {"secondary text on the other surface", Appearance::light, 0x6B6A65, 0xE7E6E1, 4.2},
    {"secondary text on the other surface", Appearance::dark, 0x8F8D87, 0x302F2C, 3.9},
};

struct Drawn {
  Rgb text = 0;
  Rgb ground = 0;
  double ratio = 21;
};

bool isExcepted(const FoundText& text, const Drawn& drawn, Appearance appearance) {
  // A payment's mark stands on its face; the name stands beside it.
  if (text.around.isInDueTile) return true;
  return std::ranges::any_of(kExceptions, [&](const Exception& exception) {
    return exception.appearance == appearance && exception.text == drawn.text &&
           exception.ground == drawn.ground && drawn.ratio >= exception.ratio;
  });
}

/// The same view with every text drawn in nothing.
viewkit::View withoutTexts(const viewkit::View& view) {
  viewkit::Node node = view.node();
  for (viewkit::View& child : node.children) child = withoutTexts(child);
  for (viewkit::Modifier& modifier : node.modifiers) {
    if (auto* m = std::get_if<viewkit::Background>(&modifier))
      m->content = withoutTexts(m->content);
    if (auto* m = std::get_if<viewkit::Overlay>(&modifier)) m->content = withoutTexts(m->content);
  }
  if (std::holds_alternative<viewkit::TextElement>(node.element)) {
    node.modifiers.insert(node.modifiers.begin(),
                          viewkit::ForegroundStyle{viewkit::Paint{viewkit::Color::clear()}});
  }
  return viewkit::View::of(std::move(node));
}

Rgb blended(Rgb under, Rgb over, double alpha) {
  Rgb result = 0;
  for (const int shift : {16, 8, 0}) {
    const double a = (under >> shift) & 0xFF;
    const double b = (over >> shift) & 0xFF;
    result |= static_cast<Rgb>(std::lround(a + (b - a) * alpha)) << shift;
  }
  return result;
}

Rgb canvasIn(Appearance appearance) {
  return appearance == Appearance::light ? 0xFCFCFB : 0x1A1A19;
}

/// Colours of the pixels in a box. What the widget leaves open shows what lies below it.
std::vector<Rgb> pixelsIn(const rendering::Bitmap& bitmap, const Rect& box, Rgb canvas) {
  std::vector<Rgb> colors;
  const int right = std::min(bitmap.width, static_cast<int>(std::floor(box.right())));
  const int bottom = std::min(bitmap.height, static_cast<int>(std::floor(box.bottom())));
  for (int y = std::max(0, static_cast<int>(std::ceil(box.y))); y < bottom; ++y) {
    for (int x = std::max(0, static_cast<int>(std::ceil(box.x))); x < right; ++x) {
      const std::uint32_t pixel = bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)];
      const double open = 1 - (pixel >> 24) / 255.0;
      Rgb color = 0;
      for (const int shift : {16, 8, 0}) {
        const double part = ((pixel >> shift) & 0xFF) + ((canvas >> shift) & 0xFF) * open;
        color |= static_cast<Rgb>(std::min(255L, std::lround(part))) << shift;
      }
      colors.push_back(color);
    }
  }
  return colors;
}

/// The contrast that all but the worst twentieth of the pixels below a line reach: that many may be
/// the edge of a shape.
Drawn drawnLine(const FoundText& text,
                const PlacedLine& line,
                const rendering::Bitmap& ground,
                Rgb below,
                const rendering::RenderOptions& options) {
  const rendering::Rgba drawn = rendering::resolveColor(text.around.foreground, options, false);
  const Rgb ink = static_cast<Rgb>(drawn.red << 16 | drawn.green << 8 | drawn.blue);
  const double alpha = static_cast<double>(drawn.alpha) * text.around.opacity;
  std::vector<Drawn> all;
  for (const Rgb under : pixelsIn(ground, inkBox(*text.node->text, line), below)) {
    const Rgb shown = blended(under, ink, alpha);
    all.push_back({shown, under, contrastRatio(shown, under)});
  }
  if (all.empty()) return {};
  const auto worst = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 20);
  std::ranges::nth_element(all, worst, {}, &Drawn::ratio);
  return *worst;
}

double neededContrast(const rendering::PlacedText& text, viewkit::FontWeight weight) {
  const bool isLarge = text.size >= 18 || (text.size >= 14 && weight >= viewkit::FontWeight::bold);
  return isLarge ? 3 : 4.5;
}

std::string hex(Rgb color) {
  std::array<char, 8> digits{};
  std::snprintf(digits.data(), digits.size(), "#%06X", color);
  return digits.data();
}

TEST_F(Legibility, EveryTextStandsOutFromWhatLiesUnderIt) {
  Faults faults;
  std::size_t pictures = 0;
  const auto check = [&](const WidgetLayout& layout, const WidgetState& state) {
    if (state.environment.redactionReasons.placeholder) return;
    const viewkit::View view = testsupport::viewOf(layout, state);
    const viewkit::View ground = withoutTexts(view);
    for (const Device& device : kDevices) {
      auto options = optionsFor(layout, state, device);
      const LayoutTree tree = renderer_.place(view, options).value();
      const auto found = testsupport::find(tree);
      for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        options.appearance = appearance;
        const rendering::Bitmap bitmap = renderer_.bitmap(ground, options).value();
        ++pictures;
        for (const FoundText& text : found.texts) {
          if (text.around.isCovered && options.redaction.privacy) continue;
          for (const PlacedLine& line : text.node->text->lines) {
            const Drawn drawn = drawnLine(text, line, bitmap, canvasIn(appearance), options);
            const double needed = neededContrast(*text.node->text, text.element().weight);
            if (drawn.ratio >= needed || isExcepted(text, drawn, appearance)) continue;
            faults.add(std::string{layout.name} + ": \"" + text.element().text + "\" " +
                           hex(drawn.text) + " on " + hex(drawn.ground) + " has " +
                           std::to_string(drawn.ratio),
                       std::string{state.name} + " on " + std::string{device.name});
          }
        }
      }
    }
  };
  for (const WidgetState& state : testsupport::widgetStates("en")) {
    for (const WidgetLayout& layout : testsupport::kLayouts) check(layout, state);
  }
  RecordProperty("pictures", static_cast<int>(pictures));
  EXPECT_EQ(joined(faults.lines()), "");
}

// A desktop lays a plate of the canvas' colour under a widget that it tints.
TEST_F(Legibility, TintedTextsStandOutFromAPlateOverAnyWallpaper) {
  constexpr double kPlate = 0.86;
  // On a tile's or a pill's own ground over a dark plate that a white wallpaper lightens.
  constexpr double kOnGround = 3.8;
  Faults faults;
  std::size_t texts = 0;
  std::size_t onGrounds = 0;
  std::set<viewkit::RenderingMode> modes;
  for (const WidgetState& state : testsupport::widgetStates("en")) {
    if (state.environment.widgetRenderingMode == viewkit::RenderingMode::fullColor) continue;
    modes.insert(state.environment.widgetRenderingMode);
    for (const WidgetLayout& layout : testsupport::kLayouts) {
      const viewkit::View view = testsupport::viewOf(layout, state);
      const viewkit::View ground = withoutTexts(view);
      auto options = optionsFor(layout, state, kDevices[0]);
      const LayoutTree tree = renderer_.place(view, options).value();
      for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        options.appearance = appearance;
        const rendering::Bitmap bitmap = renderer_.bitmap(ground, options).value();
        for (const Rgb wallpaper : {Rgb{0xFFFFFF}, Rgb{0x000000}}) {
          const Rgb plate = blended(wallpaper, canvasIn(appearance), kPlate);
          for (const FoundText& text : testsupport::find(tree).texts) {
            for (const PlacedLine& line : text.node->text->lines) {
              const Drawn drawn = drawnLine(text, line, bitmap, plate, options);
              const double needed = neededContrast(*text.node->text, text.element().weight);
              ++texts;
              const bool isOnGround = drawn.ground != plate;
              onGrounds += isOnGround ? 1 : 0;
              if (isOnGround && appearance == Appearance::dark && wallpaper == 0xFFFFFF &&
                  drawn.ratio >= kOnGround) {
                continue;
              }
              if (drawn.ratio >= needed || isExcepted(text, drawn, appearance)) continue;
              faults.add(std::string{layout.name} + ": \"" + text.element().text + "\" " +
                             hex(drawn.text) + " on " + hex(drawn.ground) + " has " +
                             std::to_string(drawn.ratio),
                         std::string{state.name});
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(modes.size(), 2U);
  EXPECT_GT(texts, 1000U);
  EXPECT_GT(onGrounds, 100U);
  EXPECT_EQ(joined(faults.lines()), "");
}

/// In full colour and tinted.
std::vector<WidgetState> placeholderStates() {
  std::vector<WidgetState> states;
  for (const WidgetState& state : testsupport::widgetStates("en")) {
    if (!state.environment.redactionReasons.placeholder) continue;
    for (const auto mode : {viewkit::RenderingMode::fullColor,
                            viewkit::RenderingMode::accented,
                            viewkit::RenderingMode::vibrant}) {
      states.push_back(state);
      states.back().environment.widgetRenderingMode = mode;
      states.back().environment.showsWidgetContainerBackground =
          mode == viewkit::RenderingMode::fullColor;
    }
  }
  return states;
}

// A bar takes its text's colour, so what lies under it decides whether it can be seen.
TEST_F(Legibility, PlaceholderBarsStandOutFromWhatLiesUnderThem) {
  constexpr double kLeastContrast = 1.25;
  std::size_t bars = 0;
  for (const WidgetState& state : placeholderStates()) {
    for (const WidgetLayout& layout : testsupport::kLayouts) {
      const std::size_t before = bars;
      const viewkit::View view = testsupport::viewOf(layout, state);
      auto options = optionsFor(layout, state, kDevices[0]);
      const LayoutTree tree = renderer_.place(view, options).value();
      for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        options.appearance = appearance;
        const rendering::Bitmap drawn = renderer_.bitmap(view, options).value();
        const rendering::Bitmap ground = renderer_.bitmap(withoutTexts(view), options).value();
        for (const FoundText& text : testsupport::find(tree).texts) {
          if (text.around.isInImage) continue;  // the picture has a bar of its own
          for (const PlacedLine& line : text.node->text->lines) {
            const Rect middle{line.x + line.width / 2 - 1, line.baseline - 5, 2, 2};
            const auto above = pixelsIn(drawn, middle, canvasIn(appearance));
            const auto below = pixelsIn(ground, middle, canvasIn(appearance));
            if (above.empty()) continue;
            ++bars;
            EXPECT_GE(contrastRatio(above.front(), below.front()), kLeastContrast)
                << layout.name << ": " << text.element().text;
          }
        }
      }
      EXPECT_GT(bars, before) << layout.name;
    }
  }
  EXPECT_GT(bars, 300U);
}

}  // namespace
}  // namespace quorvel
