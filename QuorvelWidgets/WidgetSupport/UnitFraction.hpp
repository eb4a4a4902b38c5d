// A share as meters and gauges show it.
#pragma once

#include <cmath>

namespace quorvel {

/// The fraction limited to 0...1; one that is not finite counts as 0.
[[nodiscard]] inline double unitFraction(double fraction) {
  if (!std::isfinite(fraction) || fraction <= 0) return 0;
  return fraction < 1 ? fraction : 1;
}

}  // namespace quorvel
