// The commands that put something on the top layer.
#include "Rendering/Painting/Painter.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace rendering {

namespace {

constexpr double kLargestGlyphImage = 200;  ///< pixels per em; larger glyphs are filled as paths
constexpr double kLargestSymbol = 4000;     ///< pixels

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
    : fonts_(fonts),
      raster_(fonts.freetype()),
      unmetered_(fonts.freetype()),
      images_(fonts, unmetered_),
      shadows_(raster_) {
  raster_.chargeTo(&visitsLeft_);
}

Drawn<PixelBox> Painter::extentOf(const DisplayList& list) const {
  // Written so that what is no number is too large.
  const auto side = [&](double points) {
    const double pixels = std::round(points * scale_);
    return pixels < 1 ? 1 : pixels;
  };
  const double width = side(list.size.width);
  const double height = side(list.size.height);
  const bool fits = width <= limits::kBitmapSide && height <= limits::kBitmapSide &&
                    width * height <= limits::kBitmapPixels;
  if (!fits) {
    return std::unexpected(
        fmt::format("a picture of {:.0f}x{:.0f} pixels is too large; {:.0f} "
                    "pixels a side and {:.0f} in all may be drawn",
                    width,
                    height,
                    limits::kBitmapSide,
                    limits::kBitmapPixels));
  }
  return PixelBox{0, 0, static_cast<int>(width), static_cast<int>(height)};
}

Drawn<void> Painter::paint(const DisplayList& list,
                           double scale,
                           double cornerRadius,
                           Bitmap& out) {
  list_ = &list;
  scale_ = scale;
  const Drawn<PixelBox> extent = extentOf(list);
  if (!extent) return std::unexpected(extent.error());
  const PixelBox all = *extent;
  const auto count = static_cast<std::size_t>(all.area());
  visitsLeft_ = std::max(all.area(), limits::kFewPixels) * limits::kVisitsPerPixel;
  held_ = 0;
  out.width = out.stride = all.width();
  out.height = all.height();
  // Ground that fills everything spares the clearing.
  const auto* ground =
      list.commands.empty() ? nullptr : std::get_if<FillRect>(&list.commands.front());
  const bool filled = ground && ground->ink.gradient < 0 && ground->ink.color.alpha == 1 &&
                      contains(pixelBox(ground->rect, scale), all) &&
                      isWhole(ground->rect.x * scale) && isWhole(ground->rect.y * scale);
  out.pixels.resize(count);
  std::fill_n(out.pixels.data(), count, filled ? premultiply(ground->ink.color) : 0u);

  if (layers_.empty()) layers_.resize(1);
  depth_ = 1;
  clipCount_ = 0;
  layers_[0].surface = {out.pixels.data(), all.width(), all};
  layers_[0].firstClip = 0;
  play(filled ? 1 : 0);
  if (visitsLeft_ < 0) {
    // Layers may have grown large; the last shadow may not be whole.
    layers_.clear();
    clips_.clear();
    shadows_.clear();
    return std::unexpected("the picture takes more drawing than its size allows");
  }
  if (cornerRadius > 0) cutCorners(cornerRadius, out);
  list_ = nullptr;
  return {};
}

void Painter::play(std::size_t first) {
  for (std::size_t i = first; i < list_->commands.size() && visitsLeft_ >= 0; ++i) {
    std::visit([&](const auto& command) { draw(command); }, list_->commands[i]);
  }
}

bool Painter::spend(std::int64_t visits) {
  visitsLeft_ -= visits;
  return visitsLeft_ >= 0;
}

bool Painter::hold(std::int64_t pixels) {
  held_ += pixels;
  if (held_ > limits::kLayerPixels) visitsLeft_ = -1;
  return visitsLeft_ >= 0;
}

bool Painter::affords(const PixelBox& box, std::int64_t visitsPerPixel) {
  return !box.empty() && spend(visitsPerPixel * box.area());
}

// ---- sources

PathView Painter::view(const PathSlice& slice) const {
  return {std::span(list_->verbs).subspan(slice.firstVerb, slice.verbs),
          std::span(list_->points).subspan(slice.firstPoint, slice.points)};
}

PixelSource Painter::source(const Ink& ink) const {
  if (ink.gradient < 0) return PixelSource(premultiply(ink.color));
  return PixelSource(
      list_->gradients[static_cast<std::size_t>(ink.gradient)], ink.color.alpha, scale_);
}

// ---- commands

void Painter::draw(const FillRect& command) {
  const Rect& r = command.rect;
  const PixelBox box = intersect(pixelBox(r, scale_), clipBox());
  if (!affords(box)) return;
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
  if (!affords(box)) return;
  const PixelSource from = source(command.ink);
  SurfaceSink sink(surface(), from, maskFor(box));
  raster_.fill(view(command.path), transform(), FillRule::nonZero, box, sink);
}

void Painter::draw(const StrokePath& command) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (!affords(box)) return;
  const PixelSource from = source(command.ink);
  SurfaceSink sink(surface(), from, maskFor(box));
  raster_.stroke(view(command.path),
                 transform(),
                 {command.width * scale_, command.cap, command.join},
                 box,
                 sink);
}

void Painter::drawMask(const MaskImage& image, int x, int y, const PixelSource& from) {
  const PixelBox box{
      x + image.left, y + image.top, x + image.left + image.width, y + image.top + image.height};
  const PixelBox seen = intersect(box, clipBox());
  if (!affords(seen)) return;
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
  // Letters may reach beyond their line, but not by more than their size.
  const PixelBox reach =
      grown(pixelBox(command.bounds, scale_), nearPixel(std::ceil(command.size * scale_)));
  if (intersect(reach, clipBox()).empty() || !spend(limits::kGlyphVisits * command.count)) return;
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
  const PixelBox touched = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (!affords(touched)) return;
  scratch_.reset(touched);
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
  if (!affords(box, command.count)) return;
  Path path;
  for (std::uint32_t i = command.first; i < command.first + command.count; ++i) {
    const LineGlyph& glyph = list_->glyphs[i];
    path.clear();
    fonts_.byId(glyph.font).appendOutline(glyph.glyph, command.size, glyph.x, glyph.y, path);
    SurfaceSink sink(surface(), from, maskFor(box));
    raster_.fill({path.verbs, path.points}, transform(), FillRule::nonZero, box, sink);
  }
}

void Painter::draw(const DrawSymbol& command) {
  const PixelSource from = source(command.ink);
  const Place x = placeOf(command.center.x * scale_);
  const Place y = placeOf(command.center.y * scale_);
  const double size = std::min(command.size * scale_, kLargestSymbol);
  const PixelBox reach = grown(pixelBox(command.bounds, scale_), 1);
  if (intersect(reach, clipBox()).empty() || !spend(std::llround(size * size))) return;
  drawMask(images_.symbol(*command.drawing, size, command.mirrored, x.quarter, y.quarter),
           x.pixel,
           y.pixel,
           from);
}

void Painter::draw(const DrawShadow& command) {
  const double deviation = command.deviation * scale_;
  const int x = nearPixel(std::round(command.offset.x * scale_));
  const int y = nearPixel(std::round(command.offset.y * scale_));
  const PixelBox shadow =
      moved(grown(pixelBox(command.bounds, scale_), blurReach(deviation)), x, y);
  const PixelBox seen = clipBox();
  const PixelBox blurred = intersect(shadow, grown(seen, blurReach(deviation)));
  if (intersect(shadow, seen).empty() || !affords(blurred, limits::kBlurVisits)) return;
  PixelBox origin;
  const ShadowMask& mask =
      shadows_.mask(view(command.path), scale_, deviation, moved(seen, -x, -y), &origin);
  const PixelSource from(premultiply(command.color));
  drawMask({mask.box.left, mask.box.top, mask.box.width(), mask.box.height(), mask.coverage.data()},
           origin.left + x,
           origin.top + y,
           from);
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
    unmetered_.fill({path.verbs, path.points}, {}, FillRule::nonZero, corners_.map.box, sink);
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
