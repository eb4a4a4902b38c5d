// Visual order of the clusters of one line.
#include "Rendering/Recording/LineGlyphs.hpp"

#include <algorithm>

namespace rendering {

namespace {

struct Item {
  std::uint32_t cluster;  ///< kEllipsis: the mark of a cut
  std::uint8_t level;
};
constexpr std::uint32_t kEllipsis = UINT32_MAX;

/// From the highest level down to the lowest odd one, reverse every stretch at that level or above.
void reorder(std::vector<Item>& items) {
  std::uint8_t highest = 0;
  std::uint8_t lowestOdd = UINT8_MAX;
  for (const Item& item : items) {
    highest = std::max(highest, item.level);
    if (item.level % 2 == 1) lowestOdd = std::min(lowestOdd, item.level);
  }
  for (int level = highest; level >= lowestOdd; --level) {
    for (auto begin = items.begin(); begin != items.end();) {
      const auto reaches = [&](const Item& item) { return item.level >= level; };
      begin = std::find_if(begin, items.end(), reaches);
      const auto end = std::find_if_not(begin, items.end(), reaches);
      std::reverse(begin, end);
      begin = end;
    }
  }
}

}  // namespace

void appendLine(const GlyphParagraph& paragraph,
                const PlacedText& text,
                const PlacedLine& line,
                std::vector<LineGlyph>& out) {
  const std::uint8_t base = paragraph.direction == viewkit::LayoutDirection::rightToLeft;
  std::vector<Item> items;
  bool leftToRight = base == 0;
  for (std::uint32_t i = line.first; i < line.last; ++i) {
    items.push_back({i, paragraph.ranges[i].level});
    leftToRight = leftToRight && paragraph.ranges[i].level % 2 == 0;
  }
  // Spaces that hang at the end belong to the paragraph's own direction.
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    if (!paragraph.clusters[item->cluster].isSpace) break;
    item->level = base;
  }
  if (line.ellipsis) items.push_back({kEllipsis, base});
  if (!leftToRight) reorder(items);
  // Hanging spaces have no width of their own: in right-to-left lines they would push the text to
  // the right.
  std::uint32_t visibleEnd = line.last;
  while (visibleEnd > line.first && paragraph.clusters[visibleEnd - 1].isSpace) --visibleEnd;
  double x = line.x;
  for (const Item& item : items) {
    if (item.cluster == kEllipsis) {
      out.push_back({paragraph.ellipsis.glyph, paragraph.ellipsis.font, x, line.baseline});
      x += paragraph.ellipsisAdvance * text.size;
      continue;
    }
    if (item.cluster >= visibleEnd && !line.ellipsis && base == 1) continue;
    const GlyphRange& range = paragraph.ranges[item.cluster];
    const TextCluster& cluster = paragraph.clusters[item.cluster];
    for (std::uint32_t g = range.first; g < range.first + range.count; ++g) {
      const ShapedGlyph& glyph = paragraph.glyphs[g];
      out.push_back(
          {glyph.glyph, glyph.font, x + glyph.x * text.size, line.baseline + glyph.y * text.size});
    }
    x += cluster.advance * text.size + (cluster.takesTracking ? text.tracking : 0);
  }
}

}  // namespace rendering
