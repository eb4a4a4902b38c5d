// A month's spending as a calendar of cells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// As high as the month's weeks need, or as is offered; its square cells decide the width, 200
/// points at most. Decorative for assistive technology; its cells are covered where the host
/// redacts.
struct MonthHeatmap : viewkit::Modifiers<MonthHeatmap> {
  static constexpr std::string_view kName = "MonthHeatmap";

  std::vector<double> daily;  ///< the first element is day 1
  int today = 1;
  int daysInMonth = 31;
  int weekdayOfFirst = 1;                 ///< 1 = Sunday
  int firstWeekday = 1;                   ///< of the first column
  std::vector<std::string> weekdayNames;  ///< narrow, Sunday first
  std::string lang;
  std::vector<viewkit::Color> heat;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  [[nodiscard]] double height() const;
  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
