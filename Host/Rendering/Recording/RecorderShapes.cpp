#include "Rendering/Recording/RecorderShapes.hpp"

#include <algorithm>
#include <cmath>
#include <variant>

namespace rendering {

namespace {

constexpr double kGaugeStart = 135;  ///< degrees, clockwise from three o'clock
constexpr double kGaugeSweep = 270;
constexpr double kGaugeTrack = 0.3;

void gaugeArc(RecorderContext& context,
              const PlacedNode& node,
              Point center,
              double radius,
              double fraction,
              const Ink& paint,
              double width) {
  context.path.clear();
  const double sweep = kGaugeSweep * fraction;
  if (mirrored(node)) {
    appendArc(context.path, center, radius, 180 - kGaugeStart, 180 - kGaugeStart - sweep);
  } else {
    appendArc(context.path, center, radius, kGaugeStart, kGaugeStart + sweep);
  }
  context.stroke(
      context.path.bounds(), paint, width, viewkit::LineCap::round, viewkit::LineJoin::round);
}

}  // namespace

void recordShape(RecorderContext& context,
                 const PlacedNode& node,
                 const viewkit::ShapeElement& shape) {
  if (!(node.frame.width > 0) || !(node.frame.height > 0)) {
    // A stroked line may well be flat; an area may not.
    if (shape.mode == viewkit::ShapeElement::Mode::fill) return;
  }
  const Ink paint = context.ink(shape.paint, node);
  if (paint.color.alpha <= 0) return;
  const bool whole = shape.trimFrom <= 0 && shape.trimTo >= 1;
  using Mode = viewkit::ShapeElement::Mode;
  if (shape.mode == Mode::fill && whole &&
      std::holds_alternative<viewkit::RectangleShape>(shape.geometry)) {
    context.list.commands.emplace_back(FillRect{node.frame, paint});
    return;
  }
  context.path.clear();
  const double inset = shape.mode == Mode::innerStroke ? shape.lineWidth / 2 : 0;
  appendShape(context.path, shape.geometry, boxOf(node), inset);
  if (!whole) context.path = trimmed(context.path, shape.trimFrom, shape.trimTo);
  if (context.path.empty()) return;
  const Rect bounds = context.path.bounds();
  if (shape.mode == Mode::fill) {
    context.list.commands.emplace_back(FillPath{context.list.add(context.path), bounds, paint});
  } else {
    context.stroke(bounds, paint, shape.lineWidth, shape.cap, shape.join);
  }
}

void recordGauge(RecorderContext& context,
                 const PlacedNode& node,
                 const viewkit::GaugeElement& gauge) {
  const Point center{node.frame.x + node.frame.width / 2, node.frame.y + node.frame.height / 2};
  const double radius = (std::min(node.frame.width, node.frame.height) - gauge.lineWidth) / 2;
  if (!(radius > 0)) return;
  const Ink full = context.ink({}, node);
  Ink track = full;
  track.color.alpha *= static_cast<float>(kGaugeTrack);
  gaugeArc(context, node, center, radius, 1, track, gauge.lineWidth);
  const double fraction =
      std::clamp(std::isfinite(gauge.fraction) ? gauge.fraction : 0.0, 0.0, 1.0);
  if (fraction > 0) gaugeArc(context, node, center, radius, fraction, full, gauge.lineWidth);
}

}  // namespace rendering
