// Paths become outlines in 1/64 pixel, y downwards.
#include "Rendering/Painting/PainterRaster.hpp"

#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_STROKER_H

namespace rendering {

namespace {

constexpr double kFarthest = 16000;  ///< pixels; the rasteriser's arithmetic holds up to there
constexpr long kMiterLimit = 10 * 65536;

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
  const Vector from = outline_.points.empty() ? a : outline_.points.back();
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
    outline_.points.push_back({at(from.x, a.x, b.x, end.x), at(from.y, a.y, b.y, end.y)});
  }
  outline_.points.push_back(end);
}

void Rasterizer::load(PathView path, const PixelTransform& transform) {
  outline_.clear();
  const Point* next = path.points.data();
  const auto vector = [&]() -> Vector {
    const FT_Vector v = toVector(*next++, transform);
    return {v.x, v.y};
  };
  for (PathVerb verb : path.verbs) {
    if (outline_.points.size() > kMostOutlinePoints - 256) break;
    switch (verb) {
      case PathVerb::move:
        outline_.endContour();
        outline_.points.push_back(vector());
        break;
      case PathVerb::line:
        outline_.points.push_back(vector());
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
  outline_.endContour();
}

bool Rasterizer::spend(std::int64_t visits) {
  if (visits_ == nullptr) return true;
  *visits_ -= visits;
  return *visits_ >= 0;
}

void Rasterizer::render(FillRule rule, const PixelBox& clip, SpanSink& sink) {
  if (outline_.points.empty() || clip.empty() || !library_) return;
  // So much takes milliseconds, wherever the lines run.
  constexpr std::int64_t kFewPixels = 65'536;
  const std::int64_t crossed = crossedPixels(outline_, clip);
  if (crossed > kFewPixels) return renderInStrips(rule, clip, sink);
  if (spend(fillingVisits(outline_, clip, crossed))) renderOutline(outline_, rule, clip, sink);
}

/// Where many lines run far, each strip sees little of each, and its rows' lists stay short.
void Rasterizer::renderInStrips(FillRule rule, const PixelBox& clip, SpanSink& sink) {
  constexpr int kStrip = 32;
  for (int left = clip.left; left < clip.right; left += kStrip) {
    const PixelBox strip{left, clip.top, std::min(left + kStrip, clip.right), clip.bottom};
    if (!clipOutline(outline_, strip, strip_)) {
      static_cast<void>(spend(std::numeric_limits<std::int32_t>::max() * std::int64_t{16}));
      return;
    }
    const std::int64_t crossed = crossedPixels(strip_, strip);
    const auto points = static_cast<std::int64_t>(outline_.points.size());
    if (!spend(points + fillingVisits(strip_, strip, crossed))) return;
    renderOutline(strip_, rule, strip, sink);
  }
}

void Rasterizer::renderOutline(PixelOutline& from,
                               FillRule rule,
                               const PixelBox& clip,
                               SpanSink& sink) {
  if (from.points.empty()) return;
  static_assert(sizeof(Vector) == sizeof(FT_Vector));
  FT_Outline outline{};
  outline.n_points = static_cast<short>(from.points.size());
  outline.n_contours = static_cast<short>(from.contours.size());
  outline.points = reinterpret_cast<FT_Vector*>(from.points.data());
  tags_.assign(from.points.size(), FT_CURVE_TAG_ON);
  outline.tags = tags_.data();
  outline.contours = from.contours.data();
  outline.flags = rule == FillRule::evenOdd ? FT_OUTLINE_EVEN_ODD_FILL : FT_OUTLINE_NONE;
  FT_Raster_Params params{};
  params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
  params.gray_spans = takeSpans;
  params.user = &sink;
  params.clip_box = {clip.left, clip.top, clip.right, clip.bottom};
  FT_Outline_Render(library_, &outline, &params);
}

void Rasterizer::fill(PathView path,
                      const PixelTransform& transform,
                      FillRule rule,
                      const PixelBox& clip,
                      SpanSink& sink) {
  load(path, transform);
  render(rule, clip, sink);
}

/// Other than 0 it ends a decomposition.
int Rasterizer::isFull() const {
  return outline_.points.size() > kMostOutlinePoints ? 1 : 0;
}

int Rasterizer::flattenMove(const FT_Vector_* to, void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  self.outline_.endContour();
  self.outline_.points.push_back({to->x, to->y});
  return 0;
}
int Rasterizer::flattenLine(const FT_Vector_* to, void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  self.outline_.points.push_back({to->x, to->y});
  return self.isFull();
}
int Rasterizer::flattenConic(const FT_Vector_* control, const FT_Vector_* to, void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  const Vector from =
      self.outline_.points.empty() ? Vector{to->x, to->y} : self.outline_.points.back();
  const auto third = [](long end, long middle) { return (end + 2 * middle) / 3; };
  self.addCurve({third(from.x, control->x), third(from.y, control->y)},
                {third(to->x, control->x), third(to->y, control->y)},
                {to->x, to->y});
  return self.isFull();
}
int Rasterizer::flattenCubic(const FT_Vector_* a,
                             const FT_Vector_* b,
                             const FT_Vector_* to,
                             void* user) {
  auto& self = *static_cast<Rasterizer*>(user);
  self.addCurve({a->x, a->y}, {b->x, b->y}, {to->x, to->y});
  return self.isFull();
}

namespace {

/// Feeds a stroker one subpath at a time. The stroker fails on a subpath of which it drew nothing,
/// and it draws nothing of curves within a unit; so a subpath begins with its first step of more
/// than a unit, and one without such a step becomes a dot or is left out.
class StrokePen {
 public:
  StrokePen(FT_Stroker stroker, viewkit::LineCap cap) : stroker_(stroker), cap_(cap) {}

  void begin(FT_Vector at, bool closes) {
    end();
    start_ = at;
    closes_ = closes;
    state_ = State::placed;
  }
  void lineTo(FT_Vector to) {
    if (state_ == State::none) return;
    if (state_ != State::drawing && isNear(start_, to)) return hold();
    ensureDrawing();
    FT_Stroker_LineTo(stroker_, &to);
  }
  void cubicTo(FT_Vector a, FT_Vector b, FT_Vector to) {
    if (state_ == State::none) return;
    const bool isShort = isNear(start_, a) && isNear(a, b) && isNear(b, to);
    if (state_ != State::drawing && isShort) return lineTo(to);
    ensureDrawing();
    FT_Stroker_CubicTo(stroker_, &a, &b, &to);
  }
  void close() {
    hold();
    end();
  }
  [[nodiscard]] FT_Vector start() const { return start_; }
  void end() {
    const State state = std::exchange(state_, State::none);
    if (state == State::drawing) FT_Stroker_EndSubPath(stroker_);
    if (state == State::held && cap_ == viewkit::LineCap::round) dot();
  }

 private:
  enum class State : std::uint8_t {
    none,
    placed,  ///< nothing after the move
    held,    ///< only steps within a unit
    drawing
  };

  static bool isNear(const FT_Vector& a, const FT_Vector& b) {
    return std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1;
  }
  void hold() {
    if (state_ == State::placed) state_ = State::held;
  }
  void ensureDrawing() {
    if (std::exchange(state_, State::drawing) == State::drawing) return;
    FT_Stroker_BeginSubPath(stroker_, &start_, closes_ ? 0 : 1);
  }
  /// A line too short to be told from its two caps.
  void dot() {
    FT_Vector from{start_.x - 1, start_.y};
    FT_Vector to{start_.x + 1, start_.y};
    FT_Stroker_BeginSubPath(stroker_, &from, 1);
    FT_Stroker_LineTo(stroker_, &to);
    FT_Stroker_EndSubPath(stroker_);
  }

  FT_Stroker stroker_;
  viewkit::LineCap cap_;
  FT_Vector start_{};
  bool closes_ = false;
  State state_ = State::none;
};

/// Whether the subpath that begins with that verb is closed.
bool isClosed(std::span<const PathVerb> verbs, std::size_t move) {
  for (std::size_t i = move + 1; i < verbs.size() && verbs[i] != PathVerb::move; ++i) {
    if (verbs[i] == PathVerb::close) return true;
  }
  return false;
}

}  // namespace

void Rasterizer::stroke(PathView path,
                        const PixelTransform& transform,
                        const StrokeStyle& style,
                        const PixelBox& clip,
                        SpanSink& sink) {
  if (!library_ || (!stroker_ && FT_Stroker_New(library_, &stroker_) != 0)) return;
  const long radius = style.width > 0 ? std::lround(std::min(style.width, kFarthest) * 32) : 0;
  if (radius == 0) return;
  FT_Stroker_Set(stroker_, radius, capOf(style.cap), joinOf(style.join), kMiterLimit);
  StrokePen pen(stroker_, style.cap);
  const Point* next = path.points.data();
  const auto vector = [&] { return toVector(*next++, transform); };
  for (std::size_t i = 0; i < path.verbs.size(); ++i) {
    switch (path.verbs[i]) {
      case PathVerb::move: {
        // The stroker must know beforehand whether a subpath will be closed.
        const FT_Vector at = vector();
        pen.begin(at, isClosed(path.verbs, i));
        break;
      }
      case PathVerb::line:
        pen.lineTo(vector());
        break;
      case PathVerb::cubic: {
        const FT_Vector a = vector();
        const FT_Vector b = vector();
        pen.cubicTo(a, b, vector());
        break;
      }
      case PathVerb::close:
        // What follows without a move starts where the closed subpath did.
        pen.close();
        pen.begin(pen.start(), isClosed(path.verbs, i));
        break;
    }
  }
  pen.end();
  exportStroke(clip, sink);
}

void Rasterizer::exportStroke(const PixelBox& clip, SpanSink& sink) {
  FT_UInt pointCount = 0;
  FT_UInt contourCount = 0;
  if (FT_Stroker_GetCounts(stroker_, &pointCount, &contourCount) != 0) return;
  if (pointCount == 0 || pointCount > kMostOutlinePoints) return;
  std::vector<FT_Vector> points(pointCount);
  std::vector<char> tags(pointCount);
  std::vector<short> contours(contourCount);
  FT_Outline outline{};
  outline.points = points.data();
  outline.tags = tags.data();
  outline.contours = contours.data();
  FT_Stroker_Export(stroker_, &outline);
  outline_.clear();
  const FT_Outline_Funcs callbacks{flattenMove, flattenLine, flattenConic, flattenCubic, 0, 0};
  FT_Outline_Decompose(&outline, &callbacks, this);
  outline_.endContour();
  if (outline_.points.size() > kMostOutlinePoints) return;
  render(FillRule::nonZero, clip, sink);
}

}  // namespace rendering
