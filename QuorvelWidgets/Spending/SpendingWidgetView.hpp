// The spending widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"

namespace quorvel {

struct SpendingWidgetView : WidgetView<SpendingWidgetView, SnapshotEntry> {
  static constexpr std::string_view kName = "SpendingWidgetView";
  static constexpr WidgetTitle kTitle{"cart.fill", "spentThisMonth"};
  static constexpr std::string_view kDestination = "spending";

  [[nodiscard]] viewkit::View body() const;
  /// The month's spending and its change.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
