#include "Rendering/Recording/RecorderText.hpp"

#include <algorithm>
#include <memory>
#include <string>

#include "Rendering/Graphics/Rectangles.hpp"
#include "Rendering/Recording/LineGlyphs.hpp"

namespace rendering {

namespace {

constexpr double kTextBarHeight = 0.7;  ///< of the line
constexpr double kTextBarRadius = 4;

/// Takes the coloured glyphs out of a text's: they are pictures of their own, as opaque as the
/// text, and where the host tints greys that come near the text's colour.
void drawColorGlyphs(RecorderContext& context, const DrawGlyphs& text) {
  const auto begin = context.list.glyphs.begin() + static_cast<std::ptrdiff_t>(text.first);
  const auto isPlain = [&](const LineGlyph& glyph) {
    return !context.tools.colorGlyphs.isColored(glyph.font);
  };
  if (std::all_of(begin, context.list.glyphs.end(), isPlain)) return;
  const auto colored = std::stable_partition(begin, context.list.glyphs.end(), isPlain);
  for (auto it = colored; it != context.list.glyphs.end(); ++it) {
    const ColorGlyph& glyph =
        context.tools.colorGlyphs.glyph(it->font, it->glyph, text.size * context.options.scale);
    if (!glyph.image) continue;
    DrawImage command;
    command.image = static_cast<std::uint32_t>(context.list.images.size());
    command.target = {it->x + glyph.box.x * text.size,
                      it->y + glyph.box.y * text.size,
                      glyph.box.width * text.size,
                      glyph.box.height * text.size};
    command.bounds = command.target;
    command.opacity = text.ink.color.alpha;
    if (context.options.mode != viewkit::RenderingMode::fullColor) {
      command.colors = DrawImage::Colors::inked;
      command.tint = text.ink.color;
      command.tint.alpha = 1;
    }
    context.list.images.push_back(glyph.image);
    context.list.commands.emplace_back(command);
  }
  context.list.glyphs.erase(colored, context.list.glyphs.end());
}

double cutWidth(const GlyphParagraph& paragraph, const PlacedText& text, const PlacedLine& line) {
  double width = paragraph.ellipsisAdvance * text.size;
  for (std::uint32_t i = line.first; i < line.last; ++i) {
    const TextCluster& cluster = paragraph.clusters[i];
    width += cluster.advance * text.size + (cluster.takesTracking ? text.tracking : 0);
  }
  return width;
}

/// A line cut inside a word of joined letters is shaped again, since the last letter takes its
/// final form; it begins where its line does.
void appendTextLine(RecorderContext& context,
                    const GlyphParagraph& paragraph,
                    const PlacedText& text,
                    const PlacedLine& line) {
  const bool cutsWord = line.ellipsis && line.last > line.first &&
                        line.last < paragraph.clusters.size() &&
                        paragraph.ranges[line.last - 1].joined;
  if (!cutsWord) return appendLine(paragraph, text, line, context.list.glyphs);
  const std::string shown = paragraph.text.substr(0, paragraph.clusters[line.last - 1].end);
  const auto reshaped = std::dynamic_pointer_cast<const GlyphParagraph>(
      context.tools.measurer.shape(shown,
                                   {.weight = paragraph.weight,
                                    .language = paragraph.language,
                                    .direction = paragraph.direction}));
  const bool fits = reshaped && reshaped->clusters.size() == line.last;
  const GlyphParagraph& drawn = fits ? *reshaped : paragraph;
  PlacedLine placed = line;
  if (paragraph.direction == viewkit::LayoutDirection::rightToLeft) {
    placed.x += line.width - cutWidth(drawn, text, line);
  }
  appendLine(drawn, text, placed, context.list.glyphs);
}

void coverText(RecorderContext& context, const PlacedNode& node) {
  const FontMetrics metrics = context.tools.measurer.metrics();
  const double size = node.text->size;
  const double height = kTextBarHeight * metrics.lineHeight() * size;
  for (const PlacedLine& line : node.text->lines) {
    const double width = std::max(line.width, 2 * size);
    const double x = mirrored(node) ? line.x + line.width - width : line.x;
    const double middle = line.baseline - (metrics.ascent - metrics.descent) / 2 * size;
    context.cover({x, middle - height / 2, width, height},
                  std::min(kTextBarRadius, height / 2),
                  context.barColor());
  }
}

}  // namespace

void recordText(RecorderContext& context, const PlacedNode& node) {
  const PlacedText& text = *node.text;
  if (!text.paragraph) return;
  if (context.options.redaction.placeholder) return coverText(context, node);
  const auto* paragraph = dynamic_cast<const GlyphParagraph*>(text.paragraph.get());
  if (!paragraph) return;
  DrawGlyphs command;
  command.first = static_cast<std::uint32_t>(context.list.glyphs.size());
  command.size = text.size;
  Rect bounds;
  for (const PlacedLine& line : text.lines) {
    appendTextLine(context, *paragraph, text, line);
    for (std::uint32_t i = line.first; i < line.last; ++i) {
      command.joined = command.joined || paragraph->ranges[i].joined;
    }
    // Ink may leave the line box: marks above and below, overhanging letters.
    const Rect box{line.x - 0.3 * text.size,
                   line.baseline - 1.3 * text.size,
                   line.width + 0.6 * text.size,
                   1.9 * text.size};
    bounds = bounds.width > 0 ? unite(bounds, box) : box;
  }
  command.bounds = bounds;
  command.ink = context.ink({}, node);
  if (!(command.ink.color.alpha > 0)) context.list.glyphs.resize(command.first);
  drawColorGlyphs(context, command);
  command.count = static_cast<std::uint32_t>(context.list.glyphs.size()) - command.first;
  if (command.count > 0) context.list.commands.emplace_back(command);
}

}  // namespace rendering
