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

// FreeType's own flattening leaves curves up to a tenth of a pixel, which shows on large circles;
// ours a sixtieth.
void Rasterizer::addCurve(Vector a, Vector b, Vector end) {
  const Vector from = points_.empty() ? a : points_.back();
  const auto bend = [](Vector p, Vector q, Vector r) {
    return std::hypot(static_cast<double>(p.x - 2 * q.x + r.x),
                      static_cast<double>(p.y - 2 * q.y + r.y));
  };
  // A chord over 1/n of the curve strays by at most 6/8 of the greatest bend over n squared.
  const double most = std::max(bend(from, a, b), bend(a, b, end)) / 64;
  const int pieces = std::clamp(static_cast<int>(std::ceil(std::sqrt(most * 0.75 * 60))), 1, 200);
  for (int i = 1; i < pieces; ++i) {
    const double t = static_cast<double>(i) / pieces;
    const double u = 1 - t;
    const auto at = [&](long p, long q, long r, long s) {
      return std::lround(
          u * u * u * static_cast<double>(p) + 3 * u * u * t * static_cast<double>(q) +
          3 * u * t * t * static_cast<double>(r) + t * t * t * static_cast<double>(s));
    };
    points_.push_back({at(from.x, a.x, b.x, end.x), at(from.y, a.y, b.y, end.y)});
  }
  points_.push_back(end);
}

void Rasterizer::clear() {
  points_.clear();
  contours_.clear();
}

void Rasterizer::endContour() {
  const auto last = static_cast<int>(points_.size()) - 1;
  if (last >= 0 && (contours_.empty() || contours_.back() != last)) {
    contours_.push_back(static_cast<short>(last));
  }
}

void Rasterizer::load(PathView path, const PixelTransform& transform) {
  clear();
  const Point* next = path.points.data();
  const auto vector = [&]() -> Vector {
    const FT_Vector v = toVector(*next++, transform);
    return {v.x, v.y};
  };
  for (PathVerb verb : path.verbs) {
    if (points_.size() > kMostPoints - 256) break;
    switch (verb) {
      case PathVerb::move:
        endContour();
        points_.push_back(vector());
        break;
      case PathVerb::line:
        points_.push_back(vector());
        break;
      case PathVerb::cubic: {
        const Vector a = vector();
        const Vector b = vector();
        addCurve(a, b, vector());
        break;
      }
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
  tags_.assign(points_.size(), FT_CURVE_TAG_ON);
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

int Rasterizer::flattenMove(const FT_Vector_* to, void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  self.endContour();
  self.points_.push_back({to->x, to->y});
  return 0;
}
int Rasterizer::flattenLine(const FT_Vector_* to, void* user) {
  static_cast<Rasterizer*>(user)->points_.push_back({to->x, to->y});
  return 0;
}
int Rasterizer::flattenConic(const FT_Vector_* control, const FT_Vector_* to, void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  const Vector from = self.points_.empty() ? Vector{to->x, to->y} : self.points_.back();
  const auto third = [](long end, long middle) { return (end + 2 * middle) / 3; };
  self.addCurve({third(from.x, control->x), third(from.y, control->y)},
                {third(to->x, control->x), third(to->y, control->y)},
                {to->x, to->y});
  return 0;
}
int Rasterizer::flattenCubic(const FT_Vector_* a,
                             const FT_Vector_* b,
                             const FT_Vector_* to,
                             void* user) {
  static_cast<Rasterizer*>(user)->addCurve({a->x, a->y}, {b->x, b->y}, {to->x, to->y});
  return 0;
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
  std::vector<FT_Vector> points(pointCount);
  tags_.resize(pointCount);
  contours_.resize(contourCount);
  FT_Outline outline{};
  outline.points = points.data();
  outline.tags = tags_.data();
  outline.contours = contours_.data();
  FT_Stroker_Export(stroker_, &outline);
  std::vector<char> tags = std::move(tags_);
  std::vector<short> contours = std::move(contours_);
  outline.tags = tags.data();
  outline.contours = contours.data();
  clear();
  const FT_Outline_Funcs callbacks{flattenMove, flattenLine, flattenConic, flattenCubic, 0, 0};
  FT_Outline_Decompose(&outline, &callbacks, this);
  endContour();
  if (points_.size() > kMostPoints) return;
  render(false, clip, sink);
}

}  // namespace rendering
