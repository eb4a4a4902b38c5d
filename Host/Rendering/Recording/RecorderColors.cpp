// Resolving colours by appearance and rendering mode.
#include "Rendering/Recording/RecorderColors.hpp"

#include <algorithm>
#include <cmath>

namespace rendering {

namespace {

constexpr double kSecondaryOpacity = 0.6;

Rgba fromRgb(viewkit::Rgb rgb, double alpha) {
  return {static_cast<std::uint8_t>(rgb >> 16),
          static_cast<std::uint8_t>(rgb >> 8),
          static_cast<std::uint8_t>(rgb),
          static_cast<float>(std::clamp(alpha, 0.0, 1.0))};
}

double toLinear(std::uint8_t value) {
  const double v = value / 255.0;
  return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

std::uint8_t fromLinear(double v) {
  const double encoded = v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1 / 2.4) - 0.055;
  return static_cast<std::uint8_t>(std::lround(std::clamp(encoded, 0.0, 1.0) * 255));
}

}  // namespace

Rgba labelColor(viewkit::Appearance appearance) {
  return fromRgb(appearance == viewkit::Appearance::dark ? 0xFFFFFF : 0x000000, 1);
}

Rgba greyOf(const Rgba& c) {
  const double light =
      0.2126 * toLinear(c.red) + 0.7152 * toLinear(c.green) + 0.0722 * toLinear(c.blue);
  const std::uint8_t grey = fromLinear(light);
  return {grey, grey, grey, c.alpha};
}

Rgba resolveColor(const viewkit::Color& color, const RenderOptions& options, bool accentable) {
  double alpha = color.opacityIn(options.appearance);
  const auto* pair = std::get_if<viewkit::Color::Pair>(&color.value);
  const auto* role = std::get_if<viewkit::ColorRole>(&color.value);
  if (role && *role == viewkit::ColorRole::secondary) alpha *= kSecondaryOpacity;
  Rgba result = labelColor(options.appearance);
  if (options.mode == viewkit::RenderingMode::accented) {
    if (accentable && options.tint) result = fromRgb(*options.tint, 1);
  } else if (pair) {
    result = fromRgb(options.appearance == viewkit::Appearance::dark ? pair->dark : pair->light, 1);
    if (options.mode == viewkit::RenderingMode::vibrant) result = greyOf(result);
  }
  result.alpha = static_cast<float>(std::clamp(alpha, 0.0, 1.0));
  return result;
}

}  // namespace rendering
