// Rectangles against each other.
#pragma once

#include <algorithm>

#include "Rendering/Graphics/Geometry.hpp"

namespace rendering {

/// But for what rounding adds.
[[nodiscard]] inline bool contains(const Rect& outer, const Rect& inner) {
  constexpr double kSlack = 1e-6;
  return inner.x >= outer.x - kSlack && inner.y >= outer.y - kSlack &&
         inner.right() <= outer.right() + kSlack && inner.bottom() <= outer.bottom() + kSlack;
}

/// The smallest rectangle around both.
[[nodiscard]] inline Rect unite(const Rect& a, const Rect& b) {
  const double x = std::min(a.x, b.x);
  const double y = std::min(a.y, b.y);
  return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

/// Without width or height where they do not meet.
[[nodiscard]] inline Rect intersect(const Rect& a, const Rect& b) {
  const double x = std::max(a.x, b.x);
  const double y = std::max(a.y, b.y);
  return {x,
          y,
          std::max(0.0, std::min(a.right(), b.right()) - x),
          std::max(0.0, std::min(a.bottom(), b.bottom()) - y)};
}

}  // namespace rendering
