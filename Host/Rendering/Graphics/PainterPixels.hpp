// Arithmetic on premultiplied 0xAARRGGBB pixels, two channels at a time.
#pragma once

#include <cmath>
#include <cstdint>

#include "Rendering/Graphics/Geometry.hpp"
#include "Rendering/Graphics/Rgba.hpp"

namespace rendering {

/// value * factor / 255, rounded.
constexpr std::uint32_t scaleByte(std::uint32_t value, std::uint32_t factor) {
  const std::uint32_t product = value * factor + 128;
  return (product + (product >> 8)) >> 8;
}

/// All four channels times factor / 255.
constexpr std::uint32_t scalePixel(std::uint32_t pixel, std::uint32_t factor) {
  std::uint32_t low = (pixel & 0x00FF00FF) * factor + 0x00800080;
  std::uint32_t high = ((pixel >> 8) & 0x00FF00FF) * factor + 0x00800080;
  low = ((low + ((low >> 8) & 0x00FF00FF)) >> 8) & 0x00FF00FF;
  high = (high + ((high >> 8) & 0x00FF00FF)) & 0xFF00FF00;
  return low | high;
}

/// `source` over `below`.
constexpr std::uint32_t over(std::uint32_t source, std::uint32_t below) {
  const std::uint32_t alpha = source >> 24;
  if (alpha == 255) return source;
  return source + scalePixel(below, 255 - alpha);
}

inline std::uint32_t premultiply(const Rgba& color, float opacity = 1) {
  const auto alpha = static_cast<std::uint32_t>(std::lround(color.alpha * opacity * 255));
  return alpha << 24 | scaleByte(color.red, alpha) << 16 | scaleByte(color.green, alpha) << 8 |
         scaleByte(color.blue, alpha);
}

/// Pixels, half open.
struct PixelBox {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  [[nodiscard]] int width() const { return right - left; }
  [[nodiscard]] int height() const { return bottom - top; }
  [[nodiscard]] bool empty() const { return right <= left || bottom <= top; }
  [[nodiscard]] std::int64_t area() const { return empty() ? 0 : std::int64_t{width()} * height(); }
};

constexpr PixelBox intersect(const PixelBox& a, const PixelBox& b) {
  return {a.left > b.left ? a.left : b.left,
          a.top > b.top ? a.top : b.top,
          a.right < b.right ? a.right : b.right,
          a.bottom < b.bottom ? a.bottom : b.bottom};
}

/// The smallest box around both; an empty one adds nothing.
inline PixelBox unite(const PixelBox& a, const PixelBox& b) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  return {a.left < b.left ? a.left : b.left,
          a.top < b.top ? a.top : b.top,
          a.right > b.right ? a.right : b.right,
          a.bottom > b.bottom ? a.bottom : b.bottom};
}

constexpr PixelBox moved(const PixelBox& box, int x, int y) {
  return {box.left + x, box.top + y, box.right + x, box.bottom + y};
}

constexpr PixelBox grown(const PixelBox& box, int by) {
  return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}

constexpr bool contains(const PixelBox& outer, const PixelBox& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

/// Whether an edge lies between two pixels, as near as it can be seen.
inline bool isWhole(double v) {
  return std::abs(v - std::round(v)) < 1.0 / 256;
}

/// A whole number of pixels; what is far away is brought into reach, as is what is no number.
inline int nearPixel(double v) {
  constexpr double kFarthestPixel = 30000;
  return static_cast<int>(!(v > -kFarthestPixel) ? -kFarthestPixel
                          : v > kFarthestPixel   ? kFarthestPixel
                                                 : v);
}

/// The pixels that a rectangle of points touches.
inline PixelBox pixelBox(const Rect& rect, double scale) {
  return {nearPixel(std::floor(rect.x * scale)),
          nearPixel(std::floor(rect.y * scale)),
          nearPixel(std::ceil(rect.right() * scale)),
          nearPixel(std::ceil(rect.bottom() * scale))};
}

}  // namespace rendering
