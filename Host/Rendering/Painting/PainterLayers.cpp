// Clips, and the layers of groups and of what throws a shadow.
#include <algorithm>
#include <cmath>
#include <utility>

#include "Rendering/Painting/Painter.hpp"

namespace rendering {

PixelBox Painter::clipBox() const {
  const Layer& layer = layers_[depth_ - 1];
  const PixelBox& surface = layer.surface.box;
  return clipCount_ > layer.firstClip ? intersect(clips_[clipCount_ - 1].box, surface) : surface;
}

// ---- clips

void Painter::draw(const BeginClip& command) {
  if (clips_.size() == clipCount_) clips_.emplace_back();
  const PixelBox around = clipBox();
  Clip& clip = clips_[clipCount_++];
  clip.path = command.path;
  clip.own = pixelBox(command.bounds, scale_);
  clip.box = intersect(clip.own, around);
  clip.masked = false;
  clip.corner = command.corner < 0 ? -1 : nearPixel(std::ceil(command.corner * scale_));
  const Rect& b = command.bounds;
  const bool whole = isWhole(b.x * scale_) && isWhole(b.y * scale_) &&
                     isWhole(b.right() * scale_) && isWhole(b.bottom() * scale_);
  // Edges between two pixels cover the outermost ones only in part.
  if (!whole && clip.corner >= 0) clip.own = grown(clip.own, -1);
}

void Painter::draw(const EndClip&) {
  if (clipCount_ == layers_[depth_ - 1].firstClip) return;
  const Clip& clip = clips_[--clipCount_];
  if (clip.masked) hold(-clip.mask.box.area());
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
  const PixelBox box = clip.box;
  // Rows of a mask that cannot be afforded are never read: drawing ends here.
  clip.mask.reset(box);
  if (!hold(clip.mask.box.area()) || !affords(box, limits::kMaskVisits)) return clip.mask;
  CoverageSink sink(clip.mask);
  raster_.fill(view(clip.path), transform(), FillRule::nonZero, box, sink);
  if (index > layers_[depth_ - 1].firstClip) {
    const CoverageMap& outer = maskOf(index - 1);
    for (int y = box.top; y < box.bottom; ++y) {
      std::uint8_t* row = clip.mask.row(y);
      const std::uint8_t* with = outer.row(y);
      for (int x = box.left; x < box.right; ++x) {
        row[x] = static_cast<std::uint8_t>(scaleByte(row[x], with[x]));
      }
    }
  }
  return clip.mask;
}

// ---- layers

Painter::Layer& Painter::beginLayer(const PixelBox& box) {
  if (layers_.size() == depth_) layers_.emplace_back();
  Layer& layer = layers_[depth_++];
  const bool isFree = box.empty() || (hold(box.area()) && spend(limits::kLayerVisits * box.area()));
  const PixelBox used = box.empty() || !isFree ? PixelBox{} : box;
  layer.storage.assign(static_cast<std::size_t>(used.area()), 0);
  layer.surface = {layer.storage.data(), used.width(), used};
  layer.firstClip = clipCount_;
  layer.opacity = 1;
  layer.shadow = nullptr;
  return layer;
}

void Painter::putOver(const Layer& layer) {
  const PixelBox area = intersect(layer.surface.box, clipBox());
  if (area.empty()) return;
  const CoverageMap* mask = maskFor(area);
  if (visitsLeft_ < 0) return;
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

Painter::Layer& Painter::endLayer() {
  while (clipCount_ > layers_[depth_ - 1].firstClip) draw(EndClip{});
  Layer& layer = layers_[--depth_];
  hold(-layer.surface.box.area());
  if (layer.shadow) throwShadow(layer);
  putOver(layer);
  return layer;
}

void Painter::draw(const BeginGroup& command) {
  beginLayer(intersect(pixelBox(command.bounds, scale_), clipBox())).opacity = command.opacity;
}

void Painter::draw(const EndGroup&) {
  if (depth_ > 1) endLayer();
}

// ---- shadows of content

namespace {

/// Where a shadow's content matters: `seen` shows its shadow from there.
struct ShadowReach {
  int x;
  int y;
  int blur;
  PixelBox source;  ///< in the content's place

  ShadowReach(const BeginShadow& command, double scale, const PixelBox& seen)
      : x(nearPixel(std::round(command.offset.x * scale))),
        y(nearPixel(std::round(command.offset.y * scale))),
        blur(blurReach(command.deviation * scale)),
        source(grown(moved(seen, -x, -y), blur)) {
    // Thrown farther than the picture's own size and the blur's, it is not looked for.
    if (std::abs(x) > seen.width() + 2 * blur || std::abs(y) > seen.height() + 2 * blur) {
      source = {};
    }
  }
};

}  // namespace

void Painter::draw(const BeginShadow& command) {
  const PixelBox seen = clipBox();
  const PixelBox needed = unite(seen, ShadowReach(command, scale_, seen).source);
  beginLayer(intersect(pixelBox(command.bounds, scale_), needed)).shadow = &command;
}

void Painter::draw(const EndShadow&) {
  if (depth_ > 1) endLayer();
}

/// The silhouette of what was drawn, blurred.
void Painter::throwShadow(const Layer& layer) {
  const ShadowReach reach(*layer.shadow, scale_, clipBox());
  const PixelBox content = intersect(layer.surface.box, reach.source);
  if (content.empty()) return;
  CoverageMap map;
  const PixelBox box = intersect(grown(content, reach.blur), reach.source);
  if (!affords(box, limits::kBlurVisits) || !hold(box.area())) return;
  map.reset(box);
  for (int y = content.top; y < content.bottom; ++y) {
    const std::uint32_t* from = layer.surface.row(y);
    std::uint8_t* to = map.row(y);
    for (int x = content.left; x < content.right; ++x) {
      to[x] = static_cast<std::uint8_t>(from[x] >> 24);
    }
  }
  blur(map.coverage, box.width(), box.height(), layer.shadow->deviation * scale_);
  drawMask({box.left, box.top, box.width(), box.height(), map.coverage.data()},
           reach.x,
           reach.y,
           PixelSource(premultiply(layer.shadow->color)));
  hold(-box.area());
}

// ---- cutting out

void Painter::draw(const ErasePath& command) {
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (!affords(box)) return;
  if (!layers_[depth_ - 1].shadow) {
    const CoverageMap* mask = maskFor(box);
    if (visitsLeft_ < 0) return;
    EraseSink sink(surface(), mask);
    return raster_.fill(view(command.path), transform(), FillRule::nonZero, box, sink);
  }
  CoverageMap hole;
  hole.reset(box);
  CoverageSink sink(hole);
  raster_.fill(view(command.path), transform(), FillRule::nonZero, box, sink);
  erase(hole);
}

/// A shadow is no group: what its content cuts out is cut out of what lies below as well.
void Painter::erase(const CoverageMap& hole) {
  const PixelBox box = intersect(hole.box, clipBox());
  if (!affords(box)) return;
  const CoverageMap* mask = maskFor(box);
  if (visitsLeft_ < 0) return;
  CoverageMap left;
  left.reset(box);
  for (int y = box.top; y < box.bottom; ++y) {
    std::uint32_t* to = surface().row(y);
    for (int x = box.left; x < box.right; ++x) {
      const std::uint8_t own = hole.row(y)[x];
      left.row(y)[x] = static_cast<std::uint8_t>(mask ? scaleByte(own, mask->row(y)[x]) : own);
      to[x] = scalePixel(to[x], 255u - left.row(y)[x]);
    }
  }
  if (!layers_[depth_ - 1].shadow) return;
  const std::size_t clipCount = std::exchange(clipCount_, layers_[depth_ - 1].firstClip);
  --depth_;
  erase(left);
  ++depth_;
  clipCount_ = clipCount;
}

}  // namespace rendering
