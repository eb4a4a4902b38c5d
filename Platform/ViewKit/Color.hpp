// Colours as they travel: light/dark pairs or roles, resolved only when drawn.
#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "ViewKit/Appearance.hpp"
#include "ViewKit/Geometry.hpp"

namespace viewkit {

/// 24-bit sRGB, 0xRRGGBB.
using Rgb = std::uint32_t;

/// What the platform's hierarchical styles name; resolved by the host for mode and appearance.
enum class ColorRole : std::uint8_t { primary, secondary };

/// A colour for each appearance, or a role; `opacity` in 0...1 multiplies whatever it resolves to.
struct Color {
  struct Pair {
    Rgb light = 0;
    Rgb dark = 0;

    friend bool operator==(const Pair&, const Pair&) = default;
  };

  std::variant<Pair, ColorRole> value = ColorRole::primary;
  double opacity = 1;  ///< in the light appearance, and in both unless darkOpacity says otherwise
  double darkOpacity = -1;  ///< in the dark appearance; negative: the same as `opacity`

  static Color dynamic(Rgb light, Rgb dark) { return {Pair{light, dark}, 1, -1}; }
  static Color same(Rgb rgb) { return dynamic(rgb, rgb); }
  static Color primary() { return {ColorRole::primary, 1, -1}; }
  static Color secondary() { return {ColorRole::secondary, 1, -1}; }
  static Color white() { return same(0xFFFFFF); }
  static Color black() { return same(0x000000); }
  static Color clear() { return {Pair{0, 0}, 0, -1}; }

  /// The same colour with its opacity in both appearances multiplied by `factor`.
  [[nodiscard]] Color withOpacity(double factor) const {
    Color result = *this;
    result.opacity *= factor;
    if (darkOpacity >= 0) result.darkOpacity *= factor;
    return result;
  }
  /// The same colour with one opacity for each appearance.
  [[nodiscard]] Color withOpacities(double light, double dark) const {
    return {value, light, dark};
  }
  [[nodiscard]] double opacityIn(Appearance appearance) const {
    return appearance == Appearance::dark && darkOpacity >= 0 ? darkOpacity : opacity;
  }

  friend bool operator==(const Color&, const Color&) = default;
};

struct GradientStop {
  Color color;
  double location = 0;  ///< 0...1 along the axis

  friend bool operator==(const GradientStop&, const GradientStop&) = default;
};

/// A linear gradient whose axis runs between two unit points of the shape's own box (in points, so
/// a corner-to-corner axis is the box's diagonal).
struct Gradient {
  std::vector<GradientStop> stops;
  UnitPoint start{0, 0};
  UnitPoint end{0, 1};

  /// Colours at equal distances, in order.
  static Gradient even(const std::vector<Color>& colors, UnitPoint start, UnitPoint end);

  friend bool operator==(const Gradient&, const Gradient&) = default;
};

/// What fills a shape or draws a text: a colour, a gradient, or (monostate) the inherited
/// foreground style.
using Paint = std::variant<std::monostate, Color, Gradient>;

}  // namespace viewkit
