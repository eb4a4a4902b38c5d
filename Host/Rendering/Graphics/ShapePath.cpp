// Curves of the shapes and the arithmetic on them.
#include "Rendering/Graphics/ShapePath.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <variant>
#include <vector>

#include "Foundation/Overloaded.hpp"

namespace rendering {

namespace {

using viewkit::CornerStyle;

/// The handle length that lets a cubic follow a quarter circle.
constexpr double kCircle = 0.5522847498307936;

/// One corner: from the corner point, `along` runs back on the incoming side, `across` out on the
/// outgoing one.
struct Corner {
  Point at;
  Point along;
  Point across;
  double alongRoom;
  double acrossRoom;
};

Point on(const Corner& c, double u, double v, double r) {
  return {c.at.x + (c.along.x * u + c.across.x * v) * r,
          c.at.y + (c.along.y * u + c.across.y * v) * r};
}

void appendCircularCorner(Path& path, const Corner& c, double r) {
  path.lineTo(on(c, 1, 0, r));
  path.cubicTo(on(c, 1 - kCircle, 0, r), on(c, 0, 1 - kCircle, r), on(c, 0, 1, r));
}

// The curve leaves the side 1.528665 radii before the corner; where a side is too short for two
// such corners, the three constants on that side shrink together until they fit its half.
constexpr double kReach = 1.528665;
constexpr double kHandle1 = 1.08849296;
constexpr double kHandle2 = 0.86840694;

void appendContinuousCorner(Path& path, const Corner& c, double r) {
  const double f = std::min(1.0, c.alongRoom / (kReach * r));
  const double g = std::min(1.0, c.acrossRoom / (kReach * r));
  path.lineTo(on(c, kReach * f, 0, r));
  path.cubicTo(
      on(c, kHandle1 * f, 0, r), on(c, kHandle2 * f, 0, r), on(c, 0.63149379, 0.07491139, r));
  path.cubicTo(on(c, 0.37282383, 0.16905956, r),
               on(c, 0.16905956, 0.37282383, r),
               on(c, 0.07491139, 0.63149379, r));
  path.cubicTo(on(c, 0, kHandle2 * g, r), on(c, 0, kHandle1 * g, r), on(c, 0, kReach * g, r));
}

Rect insetBy(const Rect& rect, double inset) {
  const double dx = std::min(inset, rect.width / 2);
  const double dy = std::min(inset, rect.height / 2);
  return {rect.x + dx, rect.y + dy, rect.width - 2 * dx, rect.height - 2 * dy};
}

void mirror(Path& path, std::size_t first, const Rect& frame) {
  for (std::size_t i = first; i < path.points.size(); ++i) {
    path.points[i].x = frame.x + frame.right() - path.points[i].x;
  }
}

double distance(Point a, Point b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}
Point between(Point a, Point b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

/// A line or cubic with its length; cubics are measured in straight pieces.
struct Segment {
  std::array<Point, 4> p{};
  bool curved = false;
  bool starts = false;  ///< first of its subpath
  double length = 0;
};

constexpr int kPieces = 32;

Point pointOn(const Segment& s, double t) {
  if (!s.curved) return between(s.p[0], s.p[3], t);
  const Point a = between(s.p[0], s.p[1], t);
  const Point b = between(s.p[1], s.p[2], t);
  const Point c = between(s.p[2], s.p[3], t);
  return between(between(a, b, t), between(b, c, t), t);
}

double lengthOf(const Segment& s) {
  if (!s.curved) return distance(s.p[0], s.p[3]);
  double length = 0;
  Point last = s.p[0];
  for (int i = 1; i <= kPieces; ++i) {
    const Point next = pointOn(s, static_cast<double>(i) / kPieces);
    length += distance(last, next);
    last = next;
  }
  return length;
}

/// The curve parameter at a length from the segment's start.
double parameterAt(const Segment& s, double length) {
  if (s.length <= 0) return 0;
  if (!s.curved) return length / s.length;
  double walked = 0;
  Point last = s.p[0];
  for (int i = 1; i <= kPieces; ++i) {
    const Point next = pointOn(s, static_cast<double>(i) / kPieces);
    const double step = distance(last, next);
    if (walked + step >= length) {
      return (i - 1 + (step > 0 ? (length - walked) / step : 0)) / kPieces;
    }
    walked += step;
    last = next;
  }
  return 1;
}

std::vector<Segment> segmentsOf(const Path& path) {
  std::vector<Segment> segments;
  Point start;
  Point current;
  bool starts = true;
  const Point* next = path.points.data();
  const auto add = [&](Segment s) {
    s.starts = starts;
    s.length = lengthOf(s);
    starts = false;
    current = s.p[3];
    segments.push_back(s);
  };
  for (PathVerb verb : path.verbs) {
    switch (verb) {
      case PathVerb::move:
        start = current = *next++;
        starts = true;
        break;
      case PathVerb::line:
        add({{current, current, *next, *next}});
        ++next;
        break;
      case PathVerb::cubic:
        add({{current, next[0], next[1], next[2]}, true});
        next += 3;
        break;
      case PathVerb::close:
        if (current != start) add({{current, current, start, start}});
        break;
    }
  }
  return segments;
}

/// Cubic [t0, t1] by de Casteljau, first cut at t1, then at t0 / t1.
Segment part(const Segment& s, double t0, double t1) {
  if (!s.curved) {
    const Point a = pointOn(s, t0);
    const Point b = pointOn(s, t1);
    return {{a, a, b, b}};
  }
  const auto left = [](const std::array<Point, 4>& p, double t) -> std::array<Point, 4> {
    const Point a = between(p[0], p[1], t);
    const Point b = between(p[1], p[2], t);
    const Point c = between(p[2], p[3], t);
    const Point ab = between(a, b, t);
    const Point bc = between(b, c, t);
    return {p[0], a, ab, between(ab, bc, t)};
  };
  std::array<Point, 4> p = left(s.p, t1);
  std::ranges::reverse(p);
  p = left(p, t1 > 0 ? 1 - t0 / t1 : 0);
  std::ranges::reverse(p);
  return {p, true};
}

}  // namespace

void Path::moveTo(Point p) {
  verbs.push_back(PathVerb::move);
  points.push_back(p);
}
void Path::lineTo(Point p) {
  verbs.push_back(PathVerb::line);
  points.push_back(p);
}
void Path::cubicTo(Point control1, Point control2, Point end) {
  verbs.push_back(PathVerb::cubic);
  points.insert(points.end(), {control1, control2, end});
}
void Path::quadTo(Point from, Point control, Point end) {
  cubicTo(between(from, control, 2.0 / 3), between(end, control, 2.0 / 3), end);
}
void Path::close() {
  verbs.push_back(PathVerb::close);
}
void Path::clear() {
  verbs.clear();
  points.clear();
}

Rect Path::bounds() const {
  if (points.empty()) return {};
  Point low = points.front();
  Point high = low;
  for (const Point& p : points) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  return {low.x, low.y, high.x - low.x, high.y - low.y};
}

void appendRectangle(Path& path, const Rect& r) {
  path.moveTo({r.x, r.y});
  path.lineTo({r.right(), r.y});
  path.lineTo({r.right(), r.bottom()});
  path.lineTo({r.x, r.bottom()});
  path.close();
}

double cornerExtent(const Rect& rect, double radius, CornerStyle style) {
  const double half = std::min(rect.width, rect.height) / 2;
  const double r = std::clamp(radius, 0.0, std::max(half, 0.0));
  if (style == CornerStyle::circular || r >= half) return r;
  return std::min(kReach * r, std::max(rect.width, rect.height) / 2);
}

void appendRounded(Path& path, const Rect& rect, double radius, CornerStyle style) {
  const double halfWidth = rect.width / 2;
  const double halfHeight = rect.height / 2;
  const double half = std::min(halfWidth, halfHeight);
  const double r = std::min(radius, half);
  if (!(r > 0)) return appendRectangle(path, rect);
  // Clockwise from three o'clock, where a circle's outline begins.
  const std::array<Corner, 4> corners{{
      {{rect.right(), rect.bottom()}, {0, -1}, {-1, 0}, halfHeight, halfWidth},
      {{rect.x, rect.bottom()}, {1, 0}, {0, -1}, halfWidth, halfHeight},
      {{rect.x, rect.y}, {0, 1}, {1, 0}, halfHeight, halfWidth},
      {{rect.right(), rect.y}, {-1, 0}, {0, 1}, halfWidth, halfHeight},
  }};
  const std::size_t first = path.verbs.size();
  const bool circular = style == CornerStyle::circular || r >= half;
  for (const Corner& corner : corners) {
    circular ? appendCircularCorner(path, corner, r) : appendContinuousCorner(path, corner, r);
  }
  path.verbs[first] = PathVerb::move;
  path.close();
}

void appendCircle(Path& path, Point center, double radius) {
  appendRounded(path,
                {center.x - radius, center.y - radius, 2 * radius, 2 * radius},
                radius,
                CornerStyle::circular);
}

void appendArc(Path& path, Point center, double radius, double startDegrees, double endDegrees) {
  const double turn = endDegrees - startDegrees;
  const double sweep = std::isfinite(turn) ? std::clamp(turn, -360.0, 360.0) : 0;
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / 90)));
  const double step = sweep / pieces * std::numbers::pi / 180;
  const double handle = 4.0 / 3 * std::tan(step / 4);
  double angle = startDegrees * std::numbers::pi / 180;
  const auto at = [&](double a, double tangent) -> Point {
    return {center.x + radius * (std::cos(a) - tangent * std::sin(a)),
            center.y + radius * (std::sin(a) + tangent * std::cos(a))};
  };
  path.moveTo(at(angle, 0));
  for (int i = 0; i < pieces; ++i) {
    path.cubicTo(at(angle, handle), at(angle + step, -handle), at(angle + step, 0));
    angle += step;
  }
  if (std::abs(sweep) >= 360) path.close();
}

namespace {

/// A path that begins without a move begins where its first step leads.
template <class Place>
void appendSteps(Path& path, const std::vector<viewkit::PathStep>& steps, const Place& place) {
  const std::size_t first = path.points.size();
  for (const viewkit::PathStep& step : steps) {
    const bool begun = path.points.size() > first;
    switch (step.verb) {
      case viewkit::PathStep::Verb::move:
        path.moveTo(place(step.to));
        break;
      case viewkit::PathStep::Verb::line:
        begun ? path.lineTo(place(step.to)) : path.moveTo(place(step.to));
        break;
      case viewkit::PathStep::Verb::cubic:
        if (!begun) path.moveTo(place(step.to));
        path.cubicTo(place(step.control1), place(step.control2), place(step.to));
        break;
      case viewkit::PathStep::Verb::close:
        if (begun) path.close();
        break;
    }
  }
}

}  // namespace

void appendShape(Path& path,
                 const viewkit::ShapeGeometry& geometry,
                 const ShapeBox& box,
                 double inset) {
  const Rect rect = insetBy(box.frame, inset);
  const double halfSide = std::min(rect.width, rect.height) / 2;
  const auto resolve = [&](const viewkit::Length& length) {
    return length.resolve(box.proposal.width, box.proposal.height);
  };
  const auto place = [&](const viewkit::LengthPoint& p) -> Point {
    return {box.frame.x + resolve(p.x), box.frame.y + resolve(p.y)};
  };
  const std::size_t first = path.points.size();
  const foundation::Overloaded append{
      [&](const viewkit::RectangleShape&) { appendRectangle(path, rect); },
      [&](const viewkit::RoundedRectangleShape& rounded) {
        const double limit = std::min(box.frame.width, box.frame.height) / 2;
        const double radius = std::min(resolve(rounded.radius), limit);
        appendRounded(path, rect, radius - inset, rounded.style);
      },
      [&](const viewkit::CapsuleShape&) {
        appendRounded(path, rect, halfSide, CornerStyle::circular);
      },
      [&](const viewkit::CircleShape&) {
        appendCircle(path, {rect.x + rect.width / 2, rect.y + rect.height / 2}, halfSide);
      },
      [&](const viewkit::ArcShape& arc) {
        const double radius = std::max(0.0, resolve(arc.radius) - inset);
        appendArc(path, place(arc.center), radius, arc.startDegrees, arc.endDegrees);
      },
      [&](const viewkit::PathShape& drawn) { appendSteps(path, drawn.steps, place); }};
  std::visit(append, geometry);
  if (box.direction == viewkit::LayoutDirection::rightToLeft) mirror(path, first, box.frame);
}

Path trimmed(const Path& path, double from, double to) {
  Path result;
  const double low = std::clamp(from, 0.0, 1.0);
  const double high = std::clamp(to, 0.0, 1.0);
  if (!(low < high)) return result;
  if (low == 0 && high == 1) return path;
  const std::vector<Segment> segments = segmentsOf(path);
  double total = 0;
  for (const Segment& s : segments) total += s.length;
  const double begin = low * total;
  const double end = high * total;
  double walked = 0;
  bool connected = false;
  for (const Segment& s : segments) {
    const double a = std::max(begin - walked, 0.0);
    const double b = std::min(end - walked, s.length);
    walked += s.length;
    if (s.starts) connected = false;
    if (!(a < b)) continue;
    const Segment piece = part(s, parameterAt(s, a), parameterAt(s, b));
    if (!connected) result.moveTo(piece.p[0]);
    connected = true;
    piece.curved ? result.cubicTo(piece.p[1], piece.p[2], piece.p[3]) : result.lineTo(piece.p[3]);
  }
  return result;
}

}  // namespace rendering
