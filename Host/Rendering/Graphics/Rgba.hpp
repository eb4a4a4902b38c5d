// A resolved colour.
#pragma once

#include <cstdint>

namespace rendering {

/// sRGB, not premultiplied.
struct Rgba {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  float alpha = 1;
  friend bool operator==(const Rgba&, const Rgba&) = default;
};

}  // namespace rendering
