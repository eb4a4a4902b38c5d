#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetMeter::body() const {
  const double share = clampedFraction(fraction);
  View bar = Capsule().fill(track).frame(FixedFrame{.height = height});
  if (share > 0) {
    const View fill = Capsule().fill(color).frame(FixedFrame{.width = kWidth * share});
    bar = bar.overlay(fill, Alignment::leading);
  }
  // A sliver narrower than the bar's round end would stick out of it.
  return bar.clip(CapsuleShape{}).accessibilityHidden();
}

}  // namespace quorvel
