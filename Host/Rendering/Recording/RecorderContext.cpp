#include "Rendering/Recording/RecorderContext.hpp"

#include <algorithm>
#include <utility>
#include <variant>

namespace rendering {

namespace {

/// Of a text's own colour in the bar that stands for it.
constexpr double kBarOpacity = 0.22;

}  // namespace

viewkit::Color RecorderContext::barColor() const {
  const auto* color = foreground ? std::get_if<viewkit::Color>(&*foreground) : nullptr;
  return (color != nullptr ? *color : viewkit::Color::primary()).withOpacity(kBarOpacity);
}

void RecorderContext::cover(const Rect& frame, double radius, const viewkit::Color& shade) {
  if (!(frame.width > 0) || !(frame.height > 0)) return;
  path.clear();
  appendRounded(path, frame, radius, viewkit::CornerStyle::circular);
  const Rgba color = resolve(shade);
  list.commands.emplace_back(FillPath{list.add(path), frame, {color}});
}

Ink RecorderContext::ink(const viewkit::Paint& paint, const PlacedNode& node) {
  const viewkit::Paint& used =
      std::holds_alternative<std::monostate>(paint) && foreground ? *foreground : paint;
  if (const auto* color = std::get_if<viewkit::Color>(&used)) return {resolve(*color)};
  const auto* gradient = std::get_if<viewkit::Gradient>(&used);
  if (!gradient) return {resolve(viewkit::Color::primary())};
  if (gradient->stops.empty()) return {Rgba{0, 0, 0, 0}};
  if (gradient->stops.size() == 1) return {resolve(gradient->stops[0].color)};
  const auto place = [&](viewkit::UnitPoint p) -> Point {
    const double x = mirrored(node) ? 1 - p.x : p.x;
    return {node.frame.x + x * node.frame.width, node.frame.y + p.y * node.frame.height};
  };
  GradientInk result{place(gradient->start), place(gradient->end), {}};
  float last = 0;
  for (const viewkit::GradientStop& stop : gradient->stops) {
    last = std::clamp(static_cast<float>(stop.location), last, 1.0F);
    result.stops.push_back({last, resolve(stop.color)});
  }
  list.gradients.push_back(std::move(result));
  return {Rgba{}, static_cast<std::int32_t>(list.gradients.size() - 1)};
}

void RecorderContext::stroke(const Rect& bounds,
                             const Ink& paint,
                             double width,
                             viewkit::LineCap cap,
                             viewkit::LineJoin join) {
  if (!(width > 0)) return;
  // Mitres and square caps reach farther than half the width.
  const double reach = width * (join == viewkit::LineJoin::miter ? 2 : 0.75);
  const Rect outer{
      bounds.x - reach, bounds.y - reach, bounds.width + 2 * reach, bounds.height + 2 * reach};
  list.commands.emplace_back(StrokePath{list.add(path), outer, paint, width, cap, join});
}

}  // namespace rendering
