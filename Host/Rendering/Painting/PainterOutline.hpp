// Outlines as the rasteriser takes them: what filling one costs, and the part of it that a box
// sees.
#pragma once

#include <cstdint>
#include <vector>

#include "Rendering/Graphics/PainterPixels.hpp"

namespace rendering {

/// Straight lines from point to point, in 1/64 pixel. Contours are closed; each is the index of its
/// last point.
struct PixelOutline {
  struct Vector {
    long x;
    long y;
  };
  std::vector<Vector> points;
  std::vector<short> contours;

  void clear();
  void endContour();
};

/// As many points as FreeType takes.
inline constexpr std::size_t kMostOutlinePoints = 32000;

/// Pixels that the lines go through in the box's rows, left and right of it as well.
[[nodiscard]] std::int64_t crossedPixels(const PixelOutline& outline, const PixelBox& box);

/// What filling costs, in visits: a row's crossed pixels stand in a list that is searched for each,
/// and all points are gone through for each part of the box that fits into the rasteriser's memory.
[[nodiscard]] std::int64_t fillingVisits(const PixelOutline& outline,
                                         const PixelBox& box,
                                         std::int64_t crossed);

/// Fills the box as `outline` does and leaves it by a pixel at most. False when that takes more
/// points than there may be.
[[nodiscard]] bool clipOutline(const PixelOutline& outline, const PixelBox& box, PixelOutline& out);

}  // namespace rendering
