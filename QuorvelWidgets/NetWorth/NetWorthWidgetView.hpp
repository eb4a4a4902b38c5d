// The net worth widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"

namespace quorvel {

struct NetWorthWidgetView : WidgetView<NetWorthWidgetView, SnapshotEntry> {
  static constexpr std::string_view kName = "NetWorthWidgetView";
  static constexpr WidgetTitle kTitle{"chart.line.uptrend.xyaxis", "netWorth"};
  static constexpr std::string_view kDestination = "dashboard";

  [[nodiscard]] viewkit::View body() const;
  /// The net worth and its change.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
