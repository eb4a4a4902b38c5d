// Scaling rows down by a whole factor while they are decoded.
#pragma once

#include <cstdint>
#include <vector>

#include "Rendering/Images/ImageDecoder.hpp"

namespace rendering {

/// The largest whole factor by which a picture can shrink and still be as large as wanted on both
/// axes.
[[nodiscard]] int shrinkFactor(int width, int height, Size wanted);

/// Takes rows of unpremultiplied RGBA bytes from top to bottom and averages them in squares.
class ShrinkingImage {
 public:
  ShrinkingImage(int width, int height, int factor);

  void row(const std::uint8_t* rgba);
  /// Call once, after the last row.
  [[nodiscard]] DecodedImage finish();

 private:
  void flush();

  int width_;
  int factor_;
  int rowsHeld_ = 0;
  int nextRow_ = 0;
  std::vector<std::uint32_t> sums_;  ///< premultiplied channel sums of a row of squares
  DecodedImage image_;
};

}  // namespace rendering
