// A horizontal bar filled from its leading end.
#pragma once

#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// Takes the whole width; `height` in points. A fraction that is negative or not finite shows the
/// track alone.
struct WidgetMeter : viewkit::Modifiers<WidgetMeter> {
  static constexpr std::string_view kName = "WidgetMeter";

  double fraction = 0;
  viewkit::Color color;
  viewkit::Color track;
  double height = 5;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
