// Coloured glyphs as pictures: a font's bitmap strikes, scaled down near the size that is drawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <tuple>

#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Text/Font.hpp"

namespace rendering {

struct ColorGlyph {
  std::shared_ptr<const DecodedImage> image;  ///< null: the font has no picture of it
  Rect box;  ///< em, from the glyph's origin on the baseline, y downwards
};

/// Keeps what it has decoded; not for several threads at once.
class ColorGlyphs {
 public:
  explicit ColorGlyphs(FontLibrary& fonts) : fonts_(fonts) {}

  [[nodiscard]] bool isColored(std::uint8_t font) const {
    return fonts_.byId(font).family() == FontFamily::emoji;
  }
  /// At least `size` pixels per em where the font has that many.
  [[nodiscard]] const ColorGlyph& glyph(std::uint8_t font, std::uint16_t glyph, double size);

 private:
  using Key = std::tuple<std::uint8_t, std::uint16_t, int>;
  [[nodiscard]] static ColorGlyph decode(FT_FaceRec_* face, std::uint16_t glyph, int factor);

  FontLibrary& fonts_;
  std::map<Key, ColorGlyph> kept_;
};

}  // namespace rendering
