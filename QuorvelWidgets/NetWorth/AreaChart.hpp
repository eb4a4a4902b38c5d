// A history as a line over an area that fades.
#pragma once

#include <string_view>
#include <vector>

#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Kept free at a chart's trailing end, so that the dot ends at the margin.
inline constexpr double kChartEndInset = 5;

/// Takes the whole proposal. Decorative for assistive technology; covered where the host redacts.
struct AreaChart : viewkit::Modifiers<AreaChart> {
  static constexpr std::string_view kName = "AreaChart";

  std::vector<double> points;  ///< oldest first
  viewkit::Color accent;       ///< of the line
  bool showsGrid = false;
  double endInset = kChartEndInset;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  [[nodiscard]] viewkit::View body() const;
};

/// The chart's place while amounts are hidden: a flat line and a dot that tell nothing.
struct HiddenChart : viewkit::Modifiers<HiddenChart> {
  static constexpr std::string_view kName = "HiddenChart";

  viewkit::Color color;
  bool showsGrid = false;
  double endInset = kChartEndInset;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
