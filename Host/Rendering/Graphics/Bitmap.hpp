// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace rendering {

/// Premultiplied 0xAARRGGBB in native byte order, rows top down.
struct Bitmap {
  int width = 0;
  int height = 0;
  int stride = 0;  ///< pixels per row
  std::vector<std::uint32_t> pixels;
};

}  // namespace rendering
