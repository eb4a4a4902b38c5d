// Layers, clips and the commands that fill them.
#include "Rendering/Painter.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace rendering {

namespace {

constexpr double kLargestGlyphImage = 200;  ///< pixels an em; larger glyphs are filled as paths
constexpr int kLargestSide = 16000;         ///< pixels of a bitmap

bool isWhole(double v) {
  return std::abs(v - std::round(v)) < 1.0 / 256;
}

/// Whole pixel and quarter of a place.
struct Place {
  int pixel;
  int quarter;
};
Place placeOf(double v) {
  const auto quarters = static_cast<int>(std::floor(std::clamp(v, -30000.0, 30000.0) * 4 + 0.5));
  return {quarters >> 2, quarters & 3};
}

}  // namespace

Painter::Painter(FontLibrary& fonts)
    : fonts_(fonts), raster_(fonts.freetype()), images_(fonts, raster_), shadows_(raster_) {}

void Painter::paint(const DrawList& list, double scale, double cornerRadius, Bitmap& out) {
  list_ = &list;
  scale_ = scale;
  const auto side = [&](double points) {
    return static_cast<int>(std::clamp(std::lround(points * scale), 1L, long{kLargestSide}));
  };
  const int width = side(list.size.width);
  const int height = side(list.size.height);
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  out.width = out.stride = width;
  out.height = height;
  // Ground that fills everything spares the clearing.
  const auto* ground =
      list.commands.empty() ? nullptr : std::get_if<FillRect>(&list.commands.front());
  const PixelBox all{0, 0, width, height};
  const bool filled = ground && ground->ink.gradient < 0 && ground->ink.color.alpha == 1 &&
                      contains(pixelBox(ground->rect, scale), all) &&
                      isWhole(ground->rect.x * scale) && isWhole(ground->rect.y * scale);
  out.pixels.resize(count);
  std::fill_n(out.pixels.data(), count, filled ? premultiply(ground->ink.color) : 0u);

  if (layers_.empty()) layers_.resize(1);
  depth_ = 1;
  clipCount_ = 0;
  layers_[0].surface = {out.pixels.data(), width, all};
  layers_[0].firstClip = 0;
  play(filled ? 1 : 0, list.commands.size());
  while (depth_ > 1) endGroup();
  if (cornerRadius > 0) cutCorners(cornerRadius, out);
  list_ = nullptr;
}

void Painter::play(std::size_t first, std::size_t last) {
  for (std::size_t i = first; i < last; ++i) {
    const DrawCommand& command = list_->commands[i];
    if (const auto* clip = std::get_if<BeginClip>(&command)) {
      beginClip(*clip);
    } else if (std::holds_alternative<EndClip>(command)) {
      endClip();
    } else if (const auto* group = std::get_if<BeginGroup>(&command)) {
      beginGroup(pixelBox(group->bounds, scale_), group->opacity);
    } else if (std::holds_alternative<EndGroup>(command)) {
      endGroup();
    } else if (const auto* shadow = std::get_if<DrawContentShadow>(&command)) {
      drawContentShadow(*shadow, i + 1);
    } else {
      std::visit(
          [&](const auto& c) {
            if constexpr (requires { draw(c); }) draw(c);
          },
          command);
    }
  }
}

// ---- sources, clips, layers

PathView Painter::view(const PathSlice& slice) const {
  return {std::span(list_->verbs).subspan(slice.firstVerb, slice.verbs),
          std::span(list_->points).subspan(slice.firstPoint, slice.points)};
}

PixelSource Painter::source(const Ink& ink) const {
  if (ink.gradient < 0) return PixelSource(premultiply(ink.color));
  return PixelSource(
      list_->gradients[static_cast<std::size_t>(ink.gradient)], ink.color.alpha, scale_);
}

PixelBox Painter::clipBox() const {
  const PixelBox& surface = layers_[depth_ - 1].surface.box;
  return clipCount_ > 0 ? intersect(clips_[clipCount_ - 1].box, surface) : surface;
}

void Painter::beginClip(const BeginClip& command) {
  if (clips_.size() == clipCount_) clips_.emplace_back();
  const PixelBox around = clipBox();
  Clip& clip = clips_[clipCount_++];
  clip.path = command.path;
  clip.own = pixelBox(command.bounds, scale_);
  clip.box = intersect(clip.own, around);
  clip.masked = false;
  clip.corner = command.corner < 0 ? -1 : static_cast<int>(std::ceil(command.corner * scale_));
  const Rect& b = command.bounds;
  const bool whole = isWhole(b.x * scale_) && isWhole(b.y * scale_) &&
                     isWhole(b.right() * scale_) && isWhole(b.bottom() * scale_);
  // Edges between two pixels cover the outermost ones only in part.
  if (!whole && clip.corner >= 0) {
    clip.own = {clip.own.left + 1, clip.own.top + 1, clip.own.right - 1, clip.own.bottom - 1};
  }
}

void Painter::endClip() {
  if (clipCount_ > layers_[depth_ - 1].firstClip) --clipCount_;
}

const CoverageMap* Painter::maskFor(const PixelBox& box) {
  const PixelBox seen = intersect(box, clipBox());
  for (std::size_t i = clipCount_; i > layers_[depth_ - 1].firstClip; --i) {
    const Clip& clip = clips_[i - 1];
    const PixelBox& own = clip.own;
    const int c = clip.corner;
    const bool besideCorners = (seen.left >= own.left + c && seen.right <= own.right - c) ||
                               (seen.top >= own.top + c && seen.bottom <= own.bottom - c);
    if (c >= 0 && contains(own, seen) && besideCorners) continue;
    return &maskOf(i - 1);
  }
  return nullptr;
}

const CoverageMap& Painter::maskOf(std::size_t index) {
  Clip& clip = clips_[index];
  if (std::exchange(clip.masked, true)) return clip.mask;
  clip.mask.reset(clip.box);
  CoverageSink sink(clip.mask);
  raster_.fill(view(clip.path), transform(), false, clip.box, sink);
  if (index > layers_[depth_ - 1].firstClip) {
    const CoverageMap& outer = maskOf(index - 1);
    for (int y = clip.box.top; y < clip.box.bottom; ++y) {
      std::uint8_t* row = clips_[index].mask.row(y);
      const std::uint8_t* with = outer.row(y);
      for (int x = clip.box.left; x < clip.box.right; ++x) {
        row[x] = static_cast<std::uint8_t>(scaleByte(row[x], with[x]));
      }
    }
  }
  return clip.mask;
}

void Painter::beginGroup(const PixelBox& box, float opacity) {
  const PixelBox area = intersect(box, clipBox());
  if (layers_.size() == depth_) layers_.emplace_back();
  Layer& layer = layers_[depth_++];
  const PixelBox used = area.empty() ? PixelBox{} : area;
  layer.storage.assign(
      static_cast<std::size_t>(used.width()) * static_cast<std::size_t>(used.height()), 0);
  layer.surface = {layer.storage.data(), used.width(), used};
  layer.firstClip = clipCount_;
  layer.opacity = opacity;
}

void Painter::endGroup() {
  if (depth_ < 2) return;
  clipCount_ = layers_[depth_ - 1].firstClip;
  --depth_;
  const Layer& layer = layers_[depth_];
  const PixelBox area = intersect(layer.surface.box, clipBox());
  const CoverageMap* mask = maskFor(area);
  const auto opacity = static_cast<std::uint32_t>(std::lround(layer.opacity * 255));
  for (int y = area.top; y < area.bottom; ++y) {
    const std::uint32_t* from = layer.surface.row(y);
    std::uint32_t* to = surface().row(y);
    const std::uint8_t* with = mask ? mask->row(y) : nullptr;
    for (int x = area.left; x < area.right; ++x) {
      if (from[x] == 0) continue;
      const std::uint32_t factor = with ? scaleByte(opacity, with[x]) : opacity;
      to[x] = over(factor == 255 ? from[x] : scalePixel(from[x], factor), to[x]);
    }
  }
}

// ---- commands

void Painter::draw(const FillRect& command) {
  const Rect& r = command.rect;
  const PixelBox box = intersect(pixelBox(r, scale_), clipBox());
  if (box.empty()) return;
  const PixelSource from = source(command.ink);
  SurfaceSink sink(surface(), from, maskFor(box));
  // The part of a pixel between two edges, on one axis.
  const auto part = [](int pixel, double low, double high) {
    return std::clamp(
        std::min(high, pixel + 1.0) - std::max(low, static_cast<double>(pixel)), 0.0, 1.0);
  };
  const double left = r.x * scale_;
  const double right = r.right() * scale_;
  for (int y = box.top; y < box.bottom; ++y) {
    const double height = part(y, r.y * scale_, r.bottom() * scale_);
    const auto coverage = [&](int x) {
      return static_cast<std::uint32_t>(std::lround(part(x, left, right) * height * 255));
    };
    const auto draw = [&](int x, int length, std::uint32_t c) {
      if (length > 0 && c > 0) sink.span(x, y, length, c);
    };
    draw(box.left, 1, coverage(box.left));
    if (box.width() > 2) draw(box.left + 1, box.width() - 2, coverage(box.left + 1));
    if (box.width() > 1) draw(box.right - 1, 1, coverage(box.right - 1));
  }
}

void Painter::draw(const FillPath& command) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (box.empty()) return;
  const PixelSource from = source(command.ink);
  SurfaceSink sink(surface(), from, maskFor(box));
  raster_.fill(view(command.path), transform(), false, box, sink);
}

void Painter::draw(const StrokePath& command) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (box.empty()) return;
  const PixelSource from = source(command.ink);
  SurfaceSink sink(surface(), from, maskFor(box));
  raster_.stroke(view(command.path),
                 transform(),
                 {command.width * scale_, command.cap, command.join},
                 box,
                 sink);
}

void Painter::draw(const ErasePath& command) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (box.empty()) return;
  EraseSink sink(surface(), maskFor(box));
  raster_.fill(view(command.path), transform(), false, box, sink);
}

void Painter::drawMask(const MaskImage& image, int x, int y, const PixelSource& from) {
  const PixelBox box{
      x + image.left, y + image.top, x + image.left + image.width, y + image.top + image.height};
  const PixelBox seen = intersect(box, clipBox());
  if (seen.empty()) return;
  SurfaceSink sink(surface(), from, maskFor(seen));
  for (int row = seen.top; row < seen.bottom; ++row) {
    const std::uint8_t* coverage =
        image.coverage + static_cast<std::ptrdiff_t>(row - box.top) * image.width - box.left;
    sink.row(seen.left, row, seen.width(), coverage + seen.left);
  }
}

void Painter::drawCoverage(const CoverageMap& map, const PixelSource& from) {
  drawMask({map.box.left, map.box.top, map.box.width(), map.box.height(), map.coverage.data()},
           0,
           0,
           from);
}

void Painter::draw(const DrawGlyphs& command) {
  const PixelSource from = source(command.ink);
  if (command.size * scale_ > kLargestGlyphImage) return drawGlyphOutlines(command, from);
  // Where glyphs overlap, a translucent colour must not be laid on twice.
  const bool once = command.joined && (!from.isSolid() || from.color() >> 24 != 255);
  once ? drawGlyphsOnce(command, from) : drawGlyphImages(command, from);
}

void Painter::drawGlyphImages(const DrawGlyphs& command, const PixelSource& from) {
  const double size = command.size * scale_;
  for (std::uint32_t i = command.first; i < command.first + command.count; ++i) {
    const LineGlyph& glyph = list_->glyphs[i];
    const Place x = placeOf(glyph.x * scale_);
    const auto y = static_cast<int>(std::lround(std::clamp(glyph.y * scale_, -30000.0, 30000.0)));
    drawMask(images_.glyph(glyph, size, x.quarter), x.pixel, y, from);
  }
}

void Painter::drawGlyphsOnce(const DrawGlyphs& command, const PixelSource& from) {
  const double size = command.size * scale_;
  scratch_.reset(intersect(pixelBox(command.bounds, scale_), clipBox()));
  for (std::uint32_t i = command.first; i < command.first + command.count; ++i) {
    const LineGlyph& glyph = list_->glyphs[i];
    const Place x = placeOf(glyph.x * scale_);
    const auto y = static_cast<int>(std::lround(std::clamp(glyph.y * scale_, -30000.0, 30000.0)));
    const MaskImage image = images_.glyph(glyph, size, x.quarter);
    const PixelBox box{x.pixel + image.left,
                       y + image.top,
                       x.pixel + image.left + image.width,
                       y + image.top + image.height};
    const PixelBox seen = intersect(box, scratch_.box);
    for (int row = seen.top; row < seen.bottom; ++row) {
      const std::uint8_t* coverage =
          image.coverage + static_cast<std::ptrdiff_t>(row - box.top) * image.width - box.left;
      std::uint8_t* to = scratch_.row(row);
      for (int column = seen.left; column < seen.right; ++column) {
        to[column] = std::max(to[column], coverage[column]);
      }
    }
  }
  drawCoverage(scratch_, from);
}

void Painter::drawGlyphOutlines(const DrawGlyphs& command, const PixelSource& from) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (box.empty()) return;
  Path path;
  for (std::uint32_t i = command.first; i < command.first + command.count; ++i) {
    const LineGlyph& glyph = list_->glyphs[i];
    path.clear();
    fonts_.byId(glyph.font).appendOutline(glyph.glyph, command.size, glyph.x, glyph.y, path);
    SurfaceSink sink(surface(), from, maskFor(box));
    raster_.fill({path.verbs, path.points}, transform(), false, box, sink);
  }
}

void Painter::draw(const DrawSymbol& command) {
  const PixelSource from = source(command.ink);
  const Place x = placeOf(command.center.x * scale_);
  const Place y = placeOf(command.center.y * scale_);
  const double size = std::min(command.size * scale_, 4000.0);
  drawMask(images_.symbol(*command.drawing, size, command.mirrored, x.quarter, y.quarter),
           x.pixel,
           y.pixel,
           from);
}

void Painter::draw(const DrawShadow& command) {
  PixelBox origin;
  const ShadowMask& mask =
      shadows_.mask(view(command.path), scale_, command.deviation * scale_, &origin);
  const PixelSource from(premultiply(command.color));
  drawMask({mask.box.left, mask.box.top, mask.box.width(), mask.box.height(), mask.coverage.data()},
           origin.left + static_cast<int>(std::lround(command.offset.x * scale_)),
           origin.top + static_cast<int>(std::lround(command.offset.y * scale_)),
           from);
}

void Painter::drawContentShadow(const DrawContentShadow& command, std::size_t first) {
  const double deviation = command.deviation * scale_;
  const int room = static_cast<int>(std::ceil(3 * deviation)) + 1;
  PixelBox box = pixelBox(command.bounds, scale_);
  box = {box.left - room, box.top - room, box.right + room, box.bottom + room};
  // What is outside the picture may throw its shadow inside, but not from far away.
  const PixelBox& all = surface().box;
  const int reach = room + static_cast<int>(std::ceil(
                               scale_ * (std::abs(command.offset.x) + std::abs(command.offset.y))));
  box = intersect(box, {all.left - reach, all.top - reach, all.right + reach, all.bottom + reach});
  if (box.empty()) return;
  // Drawn apart from all clips: they cut the shadow, not what throws it.
  if (layers_.size() == depth_) layers_.emplace_back();
  Layer& layer = layers_[depth_++];
  layer.storage.assign(
      static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()), 0);
  layer.surface = {layer.storage.data(), box.width(), box};
  const std::size_t clipCount = std::exchange(clipCount_, 0);
  const std::vector<Clip> clips = std::exchange(clips_, {});
  layer.firstClip = 0;
  play(first, first + command.count);
  clips_ = clips;
  clipCount_ = clipCount;
  --depth_;
  CoverageMap map;
  map.reset(box);
  const std::vector<std::uint32_t>& drawn = layers_[depth_].storage;
  for (std::size_t i = 0; i < map.coverage.size(); ++i) {
    map.coverage[i] = static_cast<std::uint8_t>(drawn[i] >> 24);
  }
  blur(map.coverage, box.width(), box.height(), deviation);
  drawMask({box.left, box.top, box.width(), box.height(), map.coverage.data()},
           static_cast<int>(std::lround(command.offset.x * scale_)),
           static_cast<int>(std::lround(command.offset.y * scale_)),
           PixelSource(premultiply(command.color)));
}

void Painter::cutCorners(double radius, Bitmap& out) {
  const Rect whole{0, 0, static_cast<double>(out.width), static_cast<double>(out.height)};
  const double pixels = radius * scale_;
  if (corners_.width != out.width || corners_.height != out.height || corners_.radius != pixels) {
    corners_.width = out.width;
    corners_.height = out.height;
    corners_.radius = pixels;
    const auto style = viewkit::CornerStyle::continuous;
    corners_.extent = std::min(
        {static_cast<int>(std::ceil(cornerExtent(whole, pixels, style))), out.width, out.height});
    // The top left corner stands for all four.
    corners_.map.reset({0, 0, corners_.extent, corners_.extent});
    Path path;
    appendRounded(path, whole, pixels, style);
    CoverageSink sink(corners_.map);
    raster_.fill({path.verbs, path.points}, {}, false, corners_.map.box, sink);
  }
  for (int y = 0; y < corners_.extent; ++y) {
    const std::uint8_t* coverage = corners_.map.row(y);
    std::uint32_t* top = out.pixels.data() + static_cast<std::ptrdiff_t>(y) * out.stride;
    std::uint32_t* bottom =
        out.pixels.data() + static_cast<std::ptrdiff_t>(out.height - 1 - y) * out.stride;
    for (int x = 0; x < corners_.extent; ++x) {
      if (coverage[x] == 255) continue;
      for (std::uint32_t* row : {top, bottom}) {
        row[x] = scalePixel(row[x], coverage[x]);
        row[out.width - 1 - x] = scalePixel(row[out.width - 1 - x], coverage[x]);
      }
    }
  }
}

}  // namespace rendering
