// Runs of one font, script and direction go through HarfBuzz; their glyphs are dealt out to
// clusters.
#include "Rendering/Text/FontMeasurer.hpp"

#include <hb.h>

#include <algorithm>

namespace rendering {

namespace {

constexpr std::size_t kKeptParagraphs = 1024;
constexpr char32_t kMissing = 0x25A1;
constexpr char32_t kEllipsis = 0x2026;

/// The shaper's name for the forms of Han characters; other languages pass as they are.
std::string_view shaperLanguage(std::string_view language) {
  if (language.starts_with("zh")) {
    const bool traditional = language.find("Hant") != std::string_view::npos ||
                             language.ends_with("TW") || language.ends_with("HK") ||
                             language.ends_with("MO");
    return traditional ? "zh-tw" : "zh-cn";
  }
  return language;
}

bool sameRun(const AnalyzedCluster& a, const AnalyzedCluster& b) {
  return a.family == b.family && a.script == b.script && a.level % 2 == b.level % 2 && !a.missing &&
         !b.missing;
}

}  // namespace

FontMeasurer::FontMeasurer(FontLibrary& fonts)
    : fonts_(fonts), analyzer_(fonts), buffer_(hb_buffer_create()) {}
FontMeasurer::~FontMeasurer() {
  hb_buffer_destroy(buffer_);
}

std::shared_ptr<const ShapedParagraph> FontMeasurer::shape(std::string_view text,
                                                           const TextStyle& style) {
  key_.assign({static_cast<char>('0' + static_cast<int>(style.weight)),
               static_cast<char>('0' + static_cast<int>(style.direction))});
  key_ += style.language;
  key_ += '\n';
  key_ += text;
  if (const auto found = index_.find(key_); found != index_.end()) {
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->paragraph;
  }
  if (!analyzeSimple(text, style, clusters_)) analyzer_.analyze(text, style, clusters_);
  auto paragraph = shapeClusters(text, style);
  if (entries_.size() == kKeptParagraphs) {
    index_.erase(entries_.back().key);
    entries_.splice(entries_.begin(), entries_, std::prev(entries_.end()));
    entries_.front().key = key_;
    entries_.front().paragraph = paragraph;
  } else {
    entries_.push_front({key_, paragraph});
  }
  index_.emplace(entries_.front().key, entries_.begin());
  return paragraph;
}

std::shared_ptr<const GlyphParagraph> FontMeasurer::shapeByUnicode(std::string_view text,
                                                                   const TextStyle& style) {
  analyzer_.analyze(text, style, clusters_);
  return shapeClusters(text, style);
}

std::shared_ptr<const GlyphParagraph> FontMeasurer::shapeClusters(std::string_view text,
                                                                  const TextStyle& style) {
  auto result = std::make_shared<GlyphParagraph>();
  GlyphParagraph& paragraph = *result;
  paragraph.text = text;
  paragraph.direction = style.direction;
  paragraph.weight = style.weight;
  paragraph.language = style.language;
  paragraph.clusters.reserve(clusters_.size());
  paragraph.ranges.reserve(clusters_.size());
  paragraph.glyphs.reserve(clusters_.size());
  if (const Font* latin = fonts_.font(FontFamily::latin, style.weight)) {
    const std::uint32_t glyph = latin->glyph(kEllipsis);
    paragraph.ellipsis = {static_cast<std::uint16_t>(glyph), latin->id()};
    paragraph.ellipsisAdvance =
        static_cast<double>(hb_font_get_glyph_h_advance(latin->shaper(), glyph)) /
        latin->unitsPerEm();
  }
  for (std::size_t first = 0; first < clusters_.size();) {
    std::size_t last = first + 1;
    while (last < clusters_.size() && sameRun(clusters_[first], clusters_[last])) ++last;
    const std::size_t before = paragraph.clusters.size();
    for (std::size_t i = first; i < last; ++i) {
      const AnalyzedCluster& c = clusters_[i];
      const bool hasWidth = !c.dropped && (c.drawn || c.isSpace);
      paragraph.clusters.push_back({c.begin,
                                    c.end,
                                    0,
                                    c.breakAfter,
                                    c.mustBreakAfter,
                                    c.isSpace,
                                    hasWidth && takesTracking(c.family)});
      const bool joined = !takesTracking(c.family);
      paragraph.ranges.push_back({0, 0, c.level, joined});
    }
    clusters_[first].missing ? appendMissing(paragraph, style)
                             : shapeRun(paragraph, style, first, before);
    first = last;
  }
  return result;
}

void FontMeasurer::appendMissing(GlyphParagraph& paragraph, const TextStyle& style) {
  for (FontFamily family : {FontFamily::latin, FontFamily::cjk}) {
    const Font* font = fonts_.font(family, style.weight);
    const std::uint32_t glyph = font ? font->glyph(kMissing) : 0;
    if (glyph == 0) continue;
    GlyphRange& range = paragraph.ranges.back();
    range.first = static_cast<std::uint32_t>(paragraph.glyphs.size());
    range.count = 1;
    paragraph.glyphs.push_back({static_cast<std::uint16_t>(glyph), font->id()});
    paragraph.clusters.back().advance =
        static_cast<double>(hb_font_get_glyph_h_advance(font->shaper(), glyph)) /
        font->unitsPerEm();
    return;
  }
}

/// Shapes the clusters that stand from `to` on in the paragraph and from `first` on in the
/// analysis.
void FontMeasurer::shapeRun(GlyphParagraph& paragraph,
                            const TextStyle& style,
                            std::size_t first,
                            std::size_t to) {
  const AnalyzedCluster& start = clusters_[first];
  const Font* font = fonts_.font(start.family, style.weight);
  if (!font) return;
  const std::uint32_t begin = paragraph.clusters[to].begin;
  const std::uint32_t end = paragraph.clusters.back().end;
  hb_buffer_clear_contents(buffer_);
  hb_buffer_add_utf8(buffer_,
                     paragraph.text.data(),
                     static_cast<int>(paragraph.text.size()),
                     begin,
                     static_cast<int>(end - begin));
  hb_buffer_set_direction(buffer_, start.level % 2 == 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer_, static_cast<hb_script_t>(start.script));
  const std::string_view language = shaperLanguage(style.language);
  hb_buffer_set_language(
      buffer_, hb_language_from_string(language.data(), static_cast<int>(language.size())));
  hb_shape(font->shaper(), buffer_, nullptr, 0);

  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer_, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer_, nullptr);
  const double em = 1.0 / font->unitsPerEm();
  const bool backwards = start.level % 2 == 1;
  const std::size_t runEnd = paragraph.clusters.size();
  std::size_t cluster = backwards ? runEnd : to;
  for (unsigned i = 0; i < count;) {
    // Find the cluster that holds the first byte of this group of glyphs.
    const std::uint32_t byte = infos[i].cluster;
    if (backwards) {
      do --cluster;
      while (cluster > to && paragraph.clusters[cluster].begin > byte);
    } else {
      while (cluster + 1 < runEnd && paragraph.clusters[cluster].end <= byte) ++cluster;
    }
    const AnalyzedCluster& facts = clusters_[first + (cluster - to)];
    GlyphRange& range = paragraph.ranges[cluster];
    if (range.count == 0) range.first = static_cast<std::uint32_t>(paragraph.glyphs.size());
    double x = paragraph.clusters[cluster].advance;
    for (; i < count && infos[i].cluster == byte; ++i) {
      if (facts.drawn && !facts.isSpace && infos[i].codepoint != 0) {
        paragraph.glyphs.push_back({static_cast<std::uint16_t>(infos[i].codepoint),
                                    font->id(),
                                    static_cast<float>(x + positions[i].x_offset * em),
                                    static_cast<float>(-positions[i].y_offset * em)});
        ++range.count;
      }
      x += positions[i].x_advance * em;
    }
    const bool hasWidth = !facts.dropped && (facts.drawn || facts.isSpace);
    paragraph.clusters[cluster].advance = hasWidth ? x : 0;
  }
}

}  // namespace rendering
