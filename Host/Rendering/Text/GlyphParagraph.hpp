// A shaped text with its glyphs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

/// Offsets in em from the cluster's left end, y downwards.
struct ShapedGlyph {
  std::uint16_t glyph = 0;
  std::uint8_t font = 0;  ///< FontLibrary id
  float x = 0;
  float y = 0;
};

/// The glyphs of one cluster, left to right.
struct GlyphRange {
  std::uint32_t first = 0;
  std::uint16_t count = 0;
  std::uint8_t level = 0;  ///< bidirectional embedding level
  bool joined = false;     ///< of a script whose letters take their form from their neighbours
};

struct GlyphParagraph : ShapedParagraph {
  std::vector<ShapedGlyph> glyphs;
  std::vector<GlyphRange> ranges;  ///< one per cluster
  ShapedGlyph ellipsis;
  viewkit::FontWeight weight = viewkit::FontWeight::regular;
  std::string language;
};

}  // namespace rendering
