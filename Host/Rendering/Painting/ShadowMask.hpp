// Blurred silhouettes.
#pragma once

#include <cmath>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "Rendering/Painting/PainterRaster.hpp"

namespace rendering {

struct ShadowMask {
  PixelBox box;
  std::vector<std::uint8_t> coverage;
};

/// How far a blur reaches, in pixels.
[[nodiscard]] inline int blurReach(double deviation) {
  return nearPixel(std::ceil(3 * deviation)) + 1;
}

/// Blurs in place by three passes of a running mean, which is close to a Gaussian of that deviation
/// (pixels). The edges count as empty: leave three deviations of room.
void blur(std::vector<std::uint8_t>& coverage, int width, int height, double deviation);

/// The silhouettes of the last paths, by shape, size, place within the pixel, and deviation.
class ShadowMasks {
 public:
  explicit ShadowMasks(Rasterizer& raster) : raster_(raster) {}

  /// The mask's part within `seen`, at least. Valid until the next call; `box` is relative to the
  /// pixel that holds the path's own top left corner, which `origin` receives.
  [[nodiscard]] const ShadowMask& mask(
      PathView path, double scale, double deviation, const PixelBox& seen, PixelBox* origin);
  void clear() { entries_.clear(); }

 private:
  struct Entry {
    std::string key;
    ShadowMask mask;
  };
  void trim();

  Rasterizer& raster_;
  std::list<Entry> entries_;
};

}  // namespace rendering
