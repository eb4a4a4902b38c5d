#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace quorvel {

double clampedFraction(double fraction) {
  return std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0;
}

std::string percentText(double fraction) {
  return fmt::format("{}%", std::lround(clampedFraction(fraction) * 100));
}

}  // namespace quorvel
