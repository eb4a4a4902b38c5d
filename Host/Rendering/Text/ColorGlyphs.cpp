#include "Rendering/Text/ColorGlyphs.hpp"

#include <ft2build.h>

#include <algorithm>
#include <array>
#include FT_FREETYPE_H

namespace rendering {
namespace {

constexpr std::size_t kMostKept = 256;
constexpr unsigned kLargestStrike = 512;  ///< pixels per side

/// Pixels an em.
double sizeOf(FT_Face face, int strike) {
  return static_cast<double>(face->available_sizes[strike].y_ppem) / 64;
}

/// The smallest strike of at least that size, else the largest; -1 without any.
int strikeFor(FT_Face face, double size) {
  int best = -1;
  for (int i = 0; i < face->num_fixed_sizes; ++i) {
    if (best < 0) best = i;
    const double own = sizeOf(face, i);
    const double least = sizeOf(face, best);
    if (least < size ? own > least : own >= size && own < least) best = i;
  }
  return best;
}

/// The mean of each square of pixels; what lies beyond the edges is transparent.
DecodedImage shrunk(const FT_Bitmap& bitmap, int factor) {
  const int width = static_cast<int>(bitmap.width);
  const int height = static_cast<int>(bitmap.rows);
  DecodedImage image;
  image.width = (width + factor - 1) / factor;
  image.height = (height + factor - 1) / factor;
  image.sourceWidth = width;
  image.sourceHeight = height;
  image.pixels.reserve(static_cast<std::size_t>(image.width) *
                       static_cast<std::size_t>(image.height));
  const auto area = static_cast<std::uint32_t>(factor * factor);
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      std::array<std::uint32_t, 4> sum{};  // blue, green, red, alpha; premultiplied
      for (int row = y * factor; row < std::min(height, (y + 1) * factor); ++row) {
        const unsigned char* line = bitmap.buffer + std::ptrdiff_t{row} * bitmap.pitch;
        for (int column = x * factor; column < std::min(width, (x + 1) * factor); ++column) {
          for (std::size_t c = 0; c < 4; ++c) sum[c] += line[column * 4 + static_cast<int>(c)];
        }
      }
      for (std::uint32_t& channel : sum) channel = (channel + area / 2) / area;
      image.pixels.push_back(sum[3] << 24 | sum[2] << 16 | sum[1] << 8 | sum[0]);
    }
  }
  return image;
}

}  // namespace

const ColorGlyph& ColorGlyphs::glyph(std::uint8_t font, std::uint16_t glyph, double size) {
  FT_Face face = fonts_.byId(font).face();
  const int strike = strikeFor(face, size);
  int factor = 0;
  if (strike >= 0 && FT_Select_Size(face, strike) == 0) {
    factor = static_cast<int>(std::clamp(sizeOf(face, strike) / std::max(size, 1.0), 1.0, 64.0));
  }
  const Key key{font, glyph, factor};
  if (const auto found = kept_.find(key); found != kept_.end()) return found->second;
  if (kept_.size() >= kMostKept) kept_.clear();
  return kept_.emplace(key, factor > 0 ? decode(face, glyph, factor) : ColorGlyph{}).first->second;
}

/// The face has its strike selected.
ColorGlyph ColorGlyphs::decode(FT_FaceRec_* face, std::uint16_t glyph, int factor) {
  if (FT_Load_Glyph(face, glyph, FT_LOAD_COLOR) != 0) return {};
  const FT_GlyphSlotRec* slot = face->glyph;
  const FT_Bitmap& bitmap = slot->bitmap;
  if (slot->format != FT_GLYPH_FORMAT_BITMAP || bitmap.pixel_mode != FT_PIXEL_MODE_BGRA ||
      bitmap.width == 0 || bitmap.rows == 0 || bitmap.width > kLargestStrike ||
      bitmap.rows > kLargestStrike) {
    return {};
  }
  auto image = std::make_shared<const DecodedImage>(shrunk(bitmap, factor));
  const double em = 1.0 / face->size->metrics.y_ppem;
  // The picture may be a part of a square larger than the strike's own.
  const Rect box{slot->bitmap_left * em,
                 -slot->bitmap_top * em,
                 image->width * factor * em,
                 image->height * factor * em};
  return {std::move(image), box};
}

}  // namespace rendering
