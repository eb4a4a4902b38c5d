// Sizes and rectangles in points, x to the right and y downwards.
#pragma once

#include <optional>

namespace rendering {

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  [[nodiscard]] double right() const { return x + width; }
  [[nodiscard]] double bottom() const { return y + height; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// What a parent offers: a length, infinity, or nothing (the child's ideal length) on each axis.
struct Proposal {
  std::optional<double> width;
  std::optional<double> height;
  friend bool operator==(const Proposal&, const Proposal&) = default;
};

}  // namespace rendering
