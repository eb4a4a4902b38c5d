// The due widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"

namespace quorvel {

struct DueWidgetView : WidgetView<DueWidgetView, SnapshotEntry> {
  static constexpr std::string_view kName = "DueWidgetView";
  static constexpr WidgetTitle kTitle{"calendar.badge.clock", "nextDue"};
  static constexpr std::string_view kDestination = "bills";

  [[nodiscard]] viewkit::View body() const;
  /// The next payment as the inline family shows it.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
