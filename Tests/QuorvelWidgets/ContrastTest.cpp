// Every text stands out from what lies under it: in every layout and state, in full colour and
// tinted, and as a bar that stands for it.
#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <set>

#include "QuorvelWidgets/Due/DueWidget.hpp"
#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"
#include "Rendering/Recording/RecorderColors.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Devices.hpp"
#include "Tests/Support/Faults.hpp"
#include "Tests/Support/PlacedTexts.hpp"

namespace quorvel {
namespace {

using rendering::LayoutTree;
using rendering::PlacedLine;
using rendering::Rect;
using testsupport::Device;
using testsupport::Faults;
using testsupport::FoundText;
using testsupport::inkBox;
using testsupport::WidgetLayout;
using testsupport::WidgetState;
using viewkit::Appearance;
using viewkit::Rgb;
using widgetruntime::WidgetFamily;

class Contrast : public ::testing::Test {
 protected:
  rendering::Renderer renderer_;
};

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

TEST_F(Contrast, EveryTextStandsOutFromWhatLiesUnderIt) {
  Faults faults;
  std::size_t pictures = 0;
  const auto check = [&](const WidgetLayout& layout, const WidgetState& state) {
    if (state.environment.redactionReasons.placeholder) return;
    const viewkit::View view = testsupport::viewOf(layout, state);
    const viewkit::View ground = withoutTexts(view);
    for (const Device& device : testsupport::kDevices) {
      auto options = testsupport::optionsFor(layout, state, device);
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
            faults.add(layout.name + ": \"" + text.element().text + "\" " + hex(drawn.text) +
                           " on " + hex(drawn.ground) + " has " + std::to_string(drawn.ratio),
                       std::string{state.name} + " on " + std::string{device.name});
          }
        }
      }
    }
  };
  for (const WidgetState& state : testsupport::widgetStates("en")) {
    for (const WidgetLayout& layout : testsupport::layouts()) check(layout, state);
  }
  RecordProperty("pictures", static_cast<int>(pictures));
  EXPECT_EQ(faults.lines(), "");
}

// A desktop lays a plate of the canvas' colour under a widget that it tints.
TEST_F(Contrast, TintedTextsStandOutFromAPlateOverAnyWallpaper) {
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
    for (const WidgetLayout& layout : testsupport::layouts()) {
      const viewkit::View view = testsupport::viewOf(layout, state);
      const viewkit::View ground = withoutTexts(view);
      auto options = testsupport::optionsFor(layout, state, testsupport::kStandardDevice);
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
              faults.add(layout.name + ": \"" + text.element().text + "\" " + hex(drawn.text) +
                             " on " + hex(drawn.ground) + " has " + std::to_string(drawn.ratio),
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
  EXPECT_EQ(faults.lines(), "");
}

// Without a background of its own a pile lies on the wallpaper, whose edge it must hold against.
TEST_F(Contrast, PaleDueCardsEndBeforeAWhiteWallpaperBegins) {
  constexpr double kEdge = 3;  // of what is no text
  const auto now = testsupport::morningOf("2025-03-14");
  WidgetState state{"pale", now, inState(testsupport::richSnapshot("en", now), "light-faces"), {}};
  state.environment.showsWidgetContainerBackground = false;
  const WidgetLayout layout = testsupport::layoutOf(DueWidget::kKind, WidgetFamily::systemMedium);
  const viewkit::View view = testsupport::viewOf(layout, state);
  const auto options = testsupport::optionsFor(layout, state, testsupport::kStandardDevice);
  const rendering::Bitmap bitmap = renderer_.bitmap(withoutTexts(view), options).value();
  // Three cards fill the box between the margins of 10; its corners are 14.
  for (const Rect& strip :
       {Rect{24, 11, 316, 1}, Rect{24, 158, 316, 1}, Rect{11, 24, 1, 122}, Rect{352, 24, 1, 122}}) {
    const auto colors = pixelsIn(bitmap, strip, 0xFFFFFF);
    ASSERT_GT(colors.size(), 100U);
    for (const Rgb color : colors) EXPECT_GE(contrastRatio(color, 0xFFFFFF), kEdge) << hex(color);
  }
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
TEST_F(Contrast, PlaceholderBarsStandOutFromWhatLiesUnderThem) {
  constexpr double kLeastContrast = 1.25;
  std::size_t bars = 0;
  for (const WidgetState& state : placeholderStates()) {
    for (const WidgetLayout& layout : testsupport::layouts()) {
      const std::size_t before = bars;
      const viewkit::View view = testsupport::viewOf(layout, state);
      auto options = testsupport::optionsFor(layout, state, testsupport::kStandardDevice);
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
