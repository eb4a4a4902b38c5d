// A month's spending as one bar per day.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Takes the whole proposal. Decorative for assistive technology; covered where the host redacts.
struct DailyBars : viewkit::Modifiers<DailyBars> {
  static constexpr std::string_view kName = "DailyBars";

  std::vector<double> daily;  ///< the first element is day 1
  int today = 1;              ///< day of the month
  std::vector<viewkit::Color> heat;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  [[nodiscard]] viewkit::View body() const;
};

/// The number of every seventh day, each centred below its bar; as wide as the bars.
struct DailyBarLabels : viewkit::Modifiers<DailyBarLabels> {
  static constexpr std::string_view kName = "DailyBarLabels";
  static constexpr double kRowHeight = 14;

  std::size_t count = 0;  ///< bars
  ModeColors colors{};

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
