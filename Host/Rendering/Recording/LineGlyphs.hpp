// The glyphs of a placed line, in visual order.
#pragma once

#include <cstdint>
#include <vector>

#include "Rendering/Layout/LayoutTree.hpp"
#include "Rendering/Text/GlyphParagraph.hpp"

namespace rendering {

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
