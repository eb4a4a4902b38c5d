#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"

namespace quorvel {
namespace {

using viewkit::Color;
using viewkit::Rgb;

constexpr Rgb kBlackGlyph = 0x0B0B0B;
constexpr Rgb kWhiteGlyph = 0xFFFFFF;
constexpr double kSoftOpacity = 0.1;
constexpr double kSoftDarkOpacity = 0.24;
/// Below this a heat colour disappears in the ground or cannot be told from today's bar.
constexpr double kLeastHeatContrast = 1.5;
constexpr double kHeatSteps[] = {0.30, 0.53, 0.76, 1};

const WidgetSnapshot::Accent& defaultAccent() {
  static const WidgetSnapshot::Accent accent{
      {"#6B1F3A", "#B4416A"}, {"#6B1F3A", "#B4416A"}, {"#FFFFFF", "#FFFFFF"}};
  return accent;
}

Color::Pair parsed(const WidgetSnapshot::Shade& shade) {
  return {parseHexColor(shade.light), parseHexColor(shade.dark)};
}

Color::Pair pairOf(const Color& color) {
  return std::get<Color::Pair>(color.value);
}

/// The dark shade as it is while it can be read on the canvas, else lightened.
Color::Pair inkPair(Color::Pair ink) {
  const bool legible = contrastRatio(ink.dark, pairOf(palette::canvas).dark) >= kTextContrast;
  return {ink.light, legible ? ink.dark : lighten30(ink.dark)};
}

Rgb glyphOn(Rgb fill) {
  return contrastRatio(kWhiteGlyph, fill) >= contrastRatio(kBlackGlyph, fill) ? kWhiteGlyph
                                                                              : kBlackGlyph;
}

Rgb heatPeak(Rgb heat, Rgb ink, Rgb canvas, Rgb text) {
  const bool distinct = contrastRatio(heat, canvas) >= kLeastHeatContrast &&
                        contrastRatio(heat, text) >= kLeastHeatContrast;
  return distinct ? heat : ink;
}

std::vector<Color> heatScale(Color::Pair heat, Color::Pair ink) {
  const Color::Pair canvas = pairOf(palette::canvas);
  const Color::Pair text = pairOf(palette::textPrimary);
  const Color::Pair empty = pairOf(palette::cellEmpty);
  const Rgb light = heatPeak(heat.light, ink.light, canvas.light, text.light);
  const Rgb dark = heatPeak(heat.dark, ink.dark, canvas.dark, text.dark);
  std::vector<Color> scale;
  for (const double step : kHeatSteps) {
    scale.push_back(Color::dynamic(mixed(empty.light, light, step), mixed(empty.dark, dark, step)));
  }
  return scale;
}

}  // namespace

WAccent::WAccent(const std::optional<WidgetSnapshot::Accent>& accent) {
  const WidgetSnapshot::Accent& shades = accent ? *accent : defaultAccent();
  const Color::Pair fillShade = parsed(shades.fill);
  const Color::Pair inkShade = parsed(shades.ink);
  const Color::Pair lifted{fillShade.light, lighten30(fillShade.dark)};
  const Color::Pair legibleInk = inkPair(inkShade);

  fill = Color::dynamic(lifted.light, lifted.dark);
  ink = Color::dynamic(legibleInk.light, legibleInk.dark);
  soft =
      Color::dynamic(inkShade.light, inkShade.dark).withOpacities(kSoftOpacity, kSoftDarkOpacity);
  glyph = Color::dynamic(glyphOn(lifted.light), glyphOn(lifted.dark));
  heat = heatScale(parsed(shades.heat), legibleInk);
}

}  // namespace quorvel
