#include "QuorvelWidgets/NetWorth/AreaChart.hpp"

#include <array>
#include <utility>

#include "QuorvelWidgets/NetWorth/ChartGeometry.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

namespace {

constexpr double kLineWidth = 2.2;
constexpr double kDotSize = 7.5;
constexpr double kDotLine = 2;
constexpr double kAreaOpacity = 0.34;

using Points = std::vector<ChartPoint<Length>>;

PathStep step(PathStep::Verb verb, const Length& x, const Length& y) {
  return {.verb = verb, .to = {x, y}};
}

std::vector<PathStep> polyline(const Points& points) {
  std::vector<PathStep> steps;
  steps.reserve(points.size() + 3);
  for (const auto& point : points) {
    steps.push_back(
        step(steps.empty() ? PathStep::Verb::move : PathStep::Verb::line, point.x, point.y));
  }
  return steps;
}

View grid(RenderingMode mode) {
  const Color color = ModeColors{mode}.ground(palette::surfaceAlt);
  std::vector<PathStep> steps;
  for (const double height : std::array{0.1, 0.5, 0.9}) {
    steps.push_back(step(PathStep::Verb::move, 0, kHeight * height));
    steps.push_back(step(PathStep::Verb::line, kWidth, kHeight * height));
  }
  return Path(std::move(steps)).stroke(color, 1);
}

View area(const Points& points, const Color& accent) {
  std::vector<PathStep> steps = polyline(points);
  steps.push_back(step(PathStep::Verb::line, points.back().x, kHeight));
  steps.push_back(step(PathStep::Verb::line, points.front().x, kHeight));
  steps.push_back({.verb = PathStep::Verb::close});

  const Gradient fade =
      Gradient::even({accent.withOpacity(kAreaOpacity), accent.withOpacity(0)}, {0, 0}, {0, 1});
  return Path(std::move(steps)).fill(fade).accentable();
}

View line(const Points& points, const Color& accent) {
  return Path(polyline(points))
      .stroke(accent, kLineWidth, LineCap::round, LineJoin::round)
      .accentable();
}

View dot(const ChartPoint<Length>& point, const Color& accent, RenderingMode mode) {
  // A tinted dot is solid: an open one would show the line that ends in it.
  const Color middle = mode == RenderingMode::fullColor ? palette::canvas : accent;
  return Circle()
      .fill(middle)
      .overlay(Circle().stroke(accent, kDotLine))
      .frame(FixedFrame{.width = kDotSize, .height = kDotSize})
      .accentable()
      .position(point.x, point.y);
}

View chart(std::vector<View> marks, bool showsGrid, double endInset, RenderingMode mode) {
  return ZStack{
      {},
      when(showsGrid, [&] { return grid(mode); }),
      Canvas{std::move(marks)}.padding({.trailing = endInset}),
  }
      .accessibilityHidden()
      .privacySensitive(PrivacyTreatment::covered);
}

}  // namespace

View AreaChart::body() const {
  const Points places = chartPointsOver<Length>(points, kWidth, kHeight);
  std::vector<View> marks;
  if (places.size() > 1) {
    marks.push_back(area(places, accent));
    marks.push_back(line(places, accent));
  }
  if (!places.empty()) marks.push_back(dot(places.back(), accent, renderingMode));
  return chart(std::move(marks), showsGrid && !places.empty(), endInset, renderingMode);
}

View HiddenChart::body() const {
  const Points places = chartPointsOver<Length>(std::array{0.0, 0.0}, kWidth, kHeight);
  std::vector<View> marks{line(places, color), dot(places.back(), color, renderingMode)};
  return chart(std::move(marks), showsGrid, endInset, renderingMode);
}

}  // namespace quorvel
