// A shaped text with its glyphs, and the visual order of its lines.
#pragma once

#include <cstdint>
#include <vector>

#include "Rendering/PlacedTree.hpp"
#include "Rendering/TextMeasurer.hpp"

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
  std::vector<GlyphRange> ranges;  ///< one a cluster
  ShapedGlyph ellipsis;
  viewkit::FontWeight weight = viewkit::FontWeight::regular;
  std::string language;
};

/// A glyph at its place: points, on the line's baseline.
struct LineGlyph {
  std::uint16_t glyph = 0;
  std::uint8_t font = 0;
  double x = 0;
  double y = 0;
};

/// Appends a line's glyphs in visual order. `paragraph` may be another shaping of the line's text,
/// `first` and `last` being its clusters.
void appendLine(const GlyphParagraph& paragraph,
                const PlacedText& text,
                const PlacedLine& line,
                std::vector<LineGlyph>& out);

}  // namespace rendering
