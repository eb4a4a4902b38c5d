// Outlines in points: how shapes become paths, and what can be done with a path.
#pragma once

#include <cstdint>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"
#include "ViewKit/Elements.hpp"

namespace rendering {

enum class PathVerb : std::uint8_t { move, line, cubic, close };
/// What counts as inside of a path that crosses itself.
enum class FillRule : std::uint8_t { nonZero, evenOdd };

/// Moves and lines take one point, cubics three (two controls, the end), close none.
struct Path {
  std::vector<PathVerb> verbs;
  std::vector<Point> points;

  void moveTo(Point p);
  void lineTo(Point p);
  void cubicTo(Point control1, Point control2, Point end);
  void quadTo(Point from, Point control, Point end);
  void close();
  void clear();
  [[nodiscard]] bool empty() const { return verbs.empty(); }
  [[nodiscard]] Rect bounds() const;  ///< of all points, controls included

  friend bool operator==(const Path&, const Path&) = default;
};

void appendRectangle(Path& path, const Rect& rect);
/// The radius is limited to half the shorter side; continuous corners of that radius are circular.
void appendRounded(Path& path, const Rect& rect, double radius, viewkit::CornerStyle style);
void appendCircle(Path& path, Point center, double radius);
/// Degrees, clockwise on screen from three o'clock. A full turn or more is closed.
void appendArc(Path& path, Point center, double radius, double startDegrees, double endDegrees);

/// How far a corner of this rectangle's curve reaches along its sides.
[[nodiscard]] double cornerExtent(const Rect& rect, double radius, viewkit::CornerStyle style);

struct ShapeBox {
  Rect frame;
  Size proposal;  ///< what relative lengths refer to
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
};

/// The outline of a shape in its frame, `inset` points inside it, mirrored in right-to-left
/// layouts.
void appendShape(Path& path,
                 const viewkit::ShapeGeometry& geometry,
                 const ShapeBox& box,
                 double inset = 0);

/// The part of the outline between two fractions of its length.
[[nodiscard]] Path trimmed(const Path& path, double from, double to);

}  // namespace rendering
