// Drawing glyph and symbol images, and the table that keeps them.
#include "Rendering/Painting/GlyphCache.hpp"

#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "Rendering/Recording/LineGlyphs.hpp"
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace rendering {

namespace {

constexpr std::size_t kMostBytes = 4u << 20;
constexpr std::size_t kFirstSlots = 1024;

std::size_t hashOf(std::uint64_t key) {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 20);
}

/// Adds coverage to an image, or takes it away.
class MaskSink final : public SpanSink {
 public:
  MaskSink(std::uint8_t* pixels, const PixelBox& box, bool erases)
      : pixels_(pixels), box_(box), erases_(erases) {}

  void span(int x, int y, int length, std::uint32_t coverage) override {
    std::uint8_t* row =
        pixels_ + static_cast<std::ptrdiff_t>(y - box_.top) * box_.width() + (x - box_.left);
    for (int i = 0; i < length; ++i) {
      row[i] = static_cast<std::uint8_t>(erases_ ? scaleByte(row[i], 255 - coverage)
                                                 : coverage + scaleByte(row[i], 255 - coverage));
    }
  }

 private:
  std::uint8_t* pixels_;
  PixelBox box_;
  bool erases_;
};

std::uint64_t sizeBits(double size) {
  return static_cast<std::uint64_t>(std::clamp(std::lround(size * 64), 1L, 0xFFFFFL));
}

}  // namespace

GlyphCache::Slot* GlyphCache::find(std::uint64_t key) {
  if (slots_.empty()) return nullptr;
  for (std::size_t at = hashOf(key);; ++at) {
    Slot& slot = slots_[at & (slots_.size() - 1)];
    if (slot.key == key) return &slot;
    if (slot.key == 0) return nullptr;
  }
}

MaskImage GlyphCache::image(const Slot& slot) const {
  return {slot.left, slot.top, slot.width, slot.height, coverage_.data() + slot.offset};
}

/// Room for an image, blank; everything kept so far goes when it has grown too large.
GlyphCache::Slot& GlyphCache::insert(std::uint64_t key, const PixelBox& box) {
  if (coverage_.size() > kMostBytes) {
    slots_.assign(kFirstSlots, {});
    coverage_.clear();
    used_ = 0;
  }
  if ((used_ + 1) * 2 > slots_.size()) {
    std::vector<Slot> old(std::max(kFirstSlots, slots_.size() * 2));
    std::swap(old, slots_);
    for (const Slot& slot : old) {
      if (slot.key == 0) continue;
      std::size_t at = hashOf(slot.key);
      while (slots_[at & (slots_.size() - 1)].key != 0) ++at;
      slots_[at & (slots_.size() - 1)] = slot;
    }
  }
  std::size_t at = hashOf(key);
  while (slots_[at & (slots_.size() - 1)].key != 0) ++at;
  Slot& slot = slots_[at & (slots_.size() - 1)];
  ++used_;
  slot = {key,
          static_cast<std::int16_t>(box.left),
          static_cast<std::int16_t>(box.top),
          static_cast<std::uint16_t>(std::max(0, box.width())),
          static_cast<std::uint16_t>(std::max(0, box.height())),
          static_cast<std::uint32_t>(coverage_.size())};
  coverage_.resize(coverage_.size() + std::size_t{slot.width} * slot.height);
  return slot;
}

MaskImage GlyphCache::glyph(const LineGlyph& glyph, double size, int quarter) {
  const std::uint64_t bits = sizeBits(size);
  const std::uint64_t key = 1ull << 63 | std::uint64_t{glyph.font} << 48 |
                            std::uint64_t{glyph.glyph} << 32 | bits << 2 |
                            static_cast<unsigned>(quarter);
  if (const Slot* slot = find(key)) return image(*slot);
  FT_Face face = fonts_.byId(glyph.font).face();
  if (FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(bits), 72, 72) != 0 ||
      FT_Load_Glyph(face, glyph.glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
      face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
    return image(insert(key, {}));
  }
  FT_Outline_Translate(&face->glyph->outline, quarter * 16, 0);
  if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0) return image(insert(key, {}));
  const FT_Bitmap& bitmap = face->glyph->bitmap;
  const int left = face->glyph->bitmap_left;
  const int top = -face->glyph->bitmap_top;
  const Slot& slot = insert(
      key, {left, top, left + static_cast<int>(bitmap.width), top + static_cast<int>(bitmap.rows)});
  for (unsigned y = 0; y < slot.height; ++y) {
    std::memcpy(coverage_.data() + slot.offset + std::size_t{y} * slot.width,
                bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch,
                slot.width);
  }
  return image(slot);
}

MaskImage GlyphCache::symbol(
    const SymbolDrawing& drawing, double size, bool mirrored, int quarterX, int quarterY) {
  const std::uint64_t key = 1ull << 62 | std::uint64_t{drawing.id} << 28 | sizeBits(size) << 5 |
                            static_cast<unsigned>(quarterX) << 3 |
                            static_cast<unsigned>(quarterY) << 1 | (mirrored ? 1u : 0u);
  if (const Slot* slot = find(key)) return image(*slot);
  const PixelTransform transform{mirrored ? -size : size, size, quarterX / 4.0, quarterY / 4.0};
  const Rect& b = drawing.bounds;
  const double left = mirrored ? -b.right() : b.x;
  const PixelBox box = pixelBox(
      {left * size + transform.x, b.y * size + transform.y, b.width * size, b.height * size}, 1);
  const Slot& slot = insert(key, box);
  for (const SymbolLayer& layer : drawing.layers) {
    MaskSink sink(coverage_.data() + slot.offset, box, layer.erases);
    const PathView path{layer.path.verbs, layer.path.points};
    if (layer.fills) raster_.fill(path, transform, layer.fillRule, box, sink);
    if (layer.stroke > 0) {
      const StrokeStyle style{
          layer.stroke * size, viewkit::LineCap::round, viewkit::LineJoin::round};
      raster_.stroke(path, transform, style, box, sink);
    }
  }
  return image(slot);
}

}  // namespace rendering
