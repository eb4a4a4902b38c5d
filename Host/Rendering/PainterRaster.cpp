// Paths become outlines in 1/64 pixel, y downwards.
#include "Rendering/PainterRaster.hpp"

#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_STROKER_H

namespace rendering {

namespace {

constexpr double kFarthest = 16000;  ///< pixels; the rasteriser's arithmetic holds up to there
constexpr long kMiterLimit = 10 * 65536;
constexpr std::size_t kMostPoints = 32000;

FT_Vector toVector(const Point& p, const PixelTransform& t) {
  const auto fixed = [](double v) {
    if (!(v > -kFarthest)) v = -kFarthest;
    return std::lround(std::min(v, kFarthest) * 64);
  };
  return {fixed(p.x * t.scaleX + t.x), fixed(p.y * t.scaleY + t.y)};
}

FT_Stroker_LineCap capOf(viewkit::LineCap cap) {
  switch (cap) {
    case viewkit::LineCap::round:
      return FT_STROKER_LINECAP_ROUND;
    case viewkit::LineCap::square:
      return FT_STROKER_LINECAP_SQUARE;
    default:
      return FT_STROKER_LINECAP_BUTT;
  }
}

FT_Stroker_LineJoin joinOf(viewkit::LineJoin join) {
  switch (join) {
    case viewkit::LineJoin::round:
      return FT_STROKER_LINEJOIN_ROUND;
    case viewkit::LineJoin::bevel:
      return FT_STROKER_LINEJOIN_BEVEL;
    default:
      return FT_STROKER_LINEJOIN_MITER_FIXED;
  }
}

void takeSpans(int y, int count, const FT_Span* spans, void* user) {
  auto& sink = *static_cast<SpanSink*>(user);
  for (int i = 0; i < count; ++i) {
    sink.span(spans[i].x, y, spans[i].len, spans[i].coverage);
  }
}

}  // namespace

Rasterizer::~Rasterizer() {
  if (stroker_) FT_Stroker_Done(stroker_);
}

void Rasterizer::load(PathView path, const PixelTransform& transform) {
  points_.clear();
  tags_.clear();
  contours_.clear();
  const auto add = [&](const Point& p, char tag) {
    const FT_Vector v = toVector(p, transform);
    points_.push_back({v.x, v.y});
    tags_.push_back(tag);
  };
  const auto endContour = [&] {
    const auto last = static_cast<short>(points_.size()) - 1;
    if (last >= 0 && (contours_.empty() || contours_.back() != last)) {
      contours_.push_back(static_cast<short>(last));
    }
  };
  const Point* next = path.points.data();
  for (PathVerb verb : path.verbs) {
    if (points_.size() > kMostPoints) break;
    switch (verb) {
      case PathVerb::move:
        endContour();
        add(*next++, FT_CURVE_TAG_ON);
        break;
      case PathVerb::line:
        add(*next++, FT_CURVE_TAG_ON);
        break;
      case PathVerb::cubic:
        add(*next++, FT_CURVE_TAG_CUBIC);
        add(*next++, FT_CURVE_TAG_CUBIC);
        add(*next++, FT_CURVE_TAG_ON);
        break;
      case PathVerb::close:
        break;  // contours are closed by themselves
    }
  }
  endContour();
}

void Rasterizer::render(bool evenOdd, const PixelBox& clip, SpanSink& sink) {
  if (points_.empty() || clip.empty() || !library_) return;
  static_assert(sizeof(Vector) == sizeof(FT_Vector));
  FT_Outline outline{};
  outline.n_points = static_cast<short>(points_.size());
  outline.n_contours = static_cast<short>(contours_.size());
  outline.points = reinterpret_cast<FT_Vector*>(points_.data());
  outline.tags = tags_.data();
  outline.contours = contours_.data();
  outline.flags = evenOdd ? FT_OUTLINE_EVEN_ODD_FILL : FT_OUTLINE_NONE;
  FT_Raster_Params params{};
  params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
  params.gray_spans = takeSpans;
  params.user = &sink;
  params.clip_box = {clip.left, clip.top, clip.right, clip.bottom};
  FT_Outline_Render(library_, &outline, &params);
}

void Rasterizer::fill(PathView path,
                      const PixelTransform& transform,
                      bool evenOdd,
                      const PixelBox& clip,
                      SpanSink& sink) {
  load(path, transform);
  render(evenOdd, clip, sink);
}

void Rasterizer::stroke(PathView path,
                        const PixelTransform& transform,
                        const StrokeStyle& style,
                        const PixelBox& clip,
                        SpanSink& sink) {
  if (!library_ || (!stroker_ && FT_Stroker_New(library_, &stroker_) != 0)) return;
  FT_Stroker_Set(stroker_,
                 std::lround(std::min(style.width, kFarthest) * 32),
                 capOf(style.cap),
                 joinOf(style.join),
                 kMiterLimit);
  bool open = false;
  FT_Vector start{};
  FT_Vector current{};
  const auto end = [&] {
    if (std::exchange(open, false)) FT_Stroker_EndSubPath(stroker_);
  };
  const Point* next = path.points.data();
  const auto vector = [&] { return toVector(*next++, transform); };
  for (std::size_t i = 0; i < path.verbs.size(); ++i) {
    switch (path.verbs[i]) {
      case PathVerb::move: {
        end();
        start = current = vector();
        // The stroker must know beforehand whether a subpath will be closed.
        bool closes = false;
        for (std::size_t j = i + 1; j < path.verbs.size() && path.verbs[j] != PathVerb::move; ++j) {
          closes = closes || path.verbs[j] == PathVerb::close;
        }
        FT_Stroker_BeginSubPath(stroker_, &start, closes ? 0 : 1);
        open = true;
        break;
      }
      case PathVerb::line: {
        FT_Vector to = vector();
        if (to.x != current.x || to.y != current.y) FT_Stroker_LineTo(stroker_, &to);
        current = to;
        break;
      }
      case PathVerb::cubic: {
        FT_Vector a = vector();
        FT_Vector b = vector();
        FT_Vector to = vector();
        FT_Stroker_CubicTo(stroker_, &a, &b, &to);
        current = to;
        break;
      }
      case PathVerb::close:
        end();
        break;
    }
  }
  end();
  FT_UInt pointCount = 0;
  FT_UInt contourCount = 0;
  if (FT_Stroker_GetCounts(stroker_, &pointCount, &contourCount) != 0) return;
  if (pointCount == 0 || pointCount > kMostPoints) return;
  points_.resize(pointCount);
  tags_.resize(pointCount);
  contours_.resize(contourCount);
  FT_Outline outline{};
  outline.points = reinterpret_cast<FT_Vector*>(points_.data());
  outline.tags = tags_.data();
  outline.contours = contours_.data();
  FT_Stroker_Export(stroker_, &outline);
  render(false, clip, sink);
}

}  // namespace rendering
