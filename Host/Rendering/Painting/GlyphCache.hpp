// Coverage images of glyphs and symbols at quarter-pixel places, kept between drawings.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Rendering/Painting/PainterRaster.hpp"
#include "Rendering/Recording/LineGlyphs.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"
#include "Rendering/Text/Font.hpp"

namespace rendering {

/// `left` and `top` lead from the origin's pixel to the image.
struct MaskImage {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  const std::uint8_t* coverage = nullptr;  ///< valid until the next image is asked for
};

class GlyphCache {
 public:
  GlyphCache(FontLibrary& fonts, Rasterizer& raster) : fonts_(fonts), raster_(raster) {}

  /// `size` in pixels per em, `quarter` the origin's place within its pixel.
  [[nodiscard]] MaskImage glyph(const LineGlyph& glyph, double size, int quarter);
  [[nodiscard]] MaskImage symbol(
      const SymbolDrawing& drawing, double size, bool mirrored, int quarterX, int quarterY);

 private:
  struct Slot {
    std::uint64_t key = 0;  ///< 0: free
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint32_t offset = 0;
  };

  Slot* find(std::uint64_t key);
  [[nodiscard]] MaskImage image(const Slot& slot) const;
  Slot& insert(std::uint64_t key, const PixelBox& box);

  FontLibrary& fonts_;
  Rasterizer& raster_;
  std::vector<Slot> slots_;
  std::size_t used_ = 0;
  std::vector<std::uint8_t> coverage_;
};

}  // namespace rendering
