// Rows as PNG keeps them: colours that are not multiplied by their alpha.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace rendering {

inline constexpr unsigned char kNoFilter = 0;  ///< the byte that every row begins with

/// 0xAARRGGBB, not premultiplied.
using StraightPixel = std::uint32_t;

/// Rounded to the nearest. A pixel that is not seen has no colour, premultiplied or not.
inline StraightPixel straight(std::uint32_t premultiplied) {
  const std::uint32_t alpha = premultiplied >> 24;
  if (alpha == 255 || alpha == 0) return premultiplied;
  const auto channel = [&](int shift) {
    return std::min(255u, (((premultiplied >> shift) & 255) * 255 + alpha / 2) / alpha) << shift;
  };
  return alpha << 24 | channel(16) | channel(8) | channel(0);
}

/// Writes red, green, blue and, if there are four channels, alpha of so many premultiplied pixels.
void writePngRow(const std::uint32_t* pixels,
                 std::size_t count,
                 std::uint32_t channels,
                 unsigned char* bytes);

}  // namespace rendering
