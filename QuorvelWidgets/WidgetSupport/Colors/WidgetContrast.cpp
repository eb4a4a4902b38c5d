#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"

#include <algorithm>
#include <cmath>

#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"

namespace quorvel {
namespace {

double linear(viewkit::Rgb channel) {
  const double value = static_cast<double>(channel & 0xFF) / 255;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

}  // namespace

double relativeLuminance(viewkit::Rgb color) {
  return 0.2126 * linear(color >> 16) + 0.7152 * linear(color >> 8) + 0.0722 * linear(color);
}

double contrastRatio(viewkit::Rgb first, viewkit::Rgb second) {
  const auto [darker, lighter] = std::minmax({relativeLuminance(first), relativeLuminance(second)});
  return (lighter + 0.05) / (darker + 0.05);
}

double leastVeil(std::span<const viewkit::Rgb> face,
                 viewkit::Rgb text,
                 double textOpacity,
                 double ratio) {
  constexpr int kSteps = 100;
  for (int step = 0; step < kSteps; ++step) {
    const double veil = static_cast<double>(step) / kSteps;
    const bool legible = std::ranges::all_of(face, [&](viewkit::Rgb color) {
      const viewkit::Rgb ground = mixed(color, 0x000000, veil);
      return contrastRatio(mixed(ground, text, textOpacity), ground) >= ratio;
    });
    if (legible) return veil;
  }
  return 1;
}

}  // namespace quorvel
