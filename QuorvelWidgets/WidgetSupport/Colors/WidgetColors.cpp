#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "Foundation/HexScanner.hpp"

namespace quorvel {
namespace {

viewkit::Rgb channel(viewkit::Rgb color, int shift) {
  return (color >> shift) & 0xFF;
}

constexpr std::string_view kDarkFamily = NSAppearanceNameDarkAqua;
constexpr std::string_view kLightFamily = NSAppearanceNameAqua;

/// What each known appearance derives from, itself first.
struct Ancestry {
  std::string_view name;
  std::array<std::string_view, 3> derivesFrom;
};
constexpr std::array<Ancestry, 8> kAppearances{{
    {"NSAppearanceNameAqua", {kLightFamily}},
    {"NSAppearanceNameDarkAqua", {kDarkFamily}},
    {"NSAppearanceNameVibrantLight", {"NSAppearanceNameVibrantLight", kLightFamily}},
    {"NSAppearanceNameVibrantDark", {"NSAppearanceNameVibrantDark", kDarkFamily}},
    {"NSAppearanceNameAccessibilityHighContrastAqua",
     {"NSAppearanceNameAccessibilityHighContrastAqua", kLightFamily}},
    {"NSAppearanceNameAccessibilityHighContrastDarkAqua",
     {"NSAppearanceNameAccessibilityHighContrastDarkAqua", kDarkFamily}},
    {"NSAppearanceNameAccessibilityHighContrastVibrantLight",
     {"NSAppearanceNameAccessibilityHighContrastVibrantLight",
      "NSAppearanceNameVibrantLight",
      kLightFamily}},
    {"NSAppearanceNameAccessibilityHighContrastVibrantDark",
     {"NSAppearanceNameAccessibilityHighContrastVibrantDark",
      "NSAppearanceNameVibrantDark",
      kDarkFamily}},
}};

}  // namespace

viewkit::Rgb parseHexColor(std::string_view text) {
  std::string digits(text);
  std::erase(digits, '#');
  return static_cast<viewkit::Rgb>(foundation::scanHexLongLong(digits).value_or(0) & 0xFFFFFF);
}

viewkit::Color shadeColor(const WidgetSnapshot::Shade& shade) {
  return viewkit::Color::dynamic(parseHexColor(shade.light), parseHexColor(shade.dark));
}

viewkit::Rgb mixed(viewkit::Rgb from, viewkit::Rgb to, double fraction) {
  viewkit::Rgb result = 0;
  for (const int shift : {16, 8, 0}) {
    const double start = channel(from, shift);
    const double end = channel(to, shift);
    result |= static_cast<viewkit::Rgb>(std::round(start + (end - start) * fraction)) << shift;
  }
  return result;
}

viewkit::Rgb lighten30(viewkit::Rgb color) {
  return mixed(color, 0xFFFFFF, 0.3);
}

std::optional<ResolvedColor> resolved(const viewkit::Color& color, viewkit::Appearance appearance) {
  const auto* pair = std::get_if<viewkit::Color::Pair>(&color.value);
  if (!pair) return std::nullopt;
  const viewkit::Rgb rgb = appearance == viewkit::Appearance::dark ? pair->dark : pair->light;
  return ResolvedColor{channel(rgb, 16) / 255.0,
                       channel(rgb, 8) / 255.0,
                       channel(rgb, 0) / 255.0,
                       color.opacityIn(appearance)};
}

std::optional<std::string_view> bestMatchFromAppearancesWithNames(
    std::string_view appearance, std::span<const std::string_view> names) {
  const auto known = std::ranges::find(kAppearances, appearance, &Ancestry::name);
  if (known == kAppearances.end()) return std::nullopt;
  for (const std::string_view ancestor : known->derivesFrom) {
    const auto match = std::ranges::find(names, ancestor);
    if (!ancestor.empty() && match != names.end()) return *match;
  }
  return std::nullopt;
}

viewkit::Appearance appearanceNamed(std::string_view appearance) {
  constexpr std::array<std::string_view, 2> kNames{NSAppearanceNameDarkAqua, NSAppearanceNameAqua};
  return bestMatchFromAppearancesWithNames(appearance, kNames) == NSAppearanceNameDarkAqua
             ? viewkit::Appearance::dark
             : viewkit::Appearance::light;
}

}  // namespace quorvel
