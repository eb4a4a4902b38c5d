// The spending widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// Keeps a reference to the entry: use it while the entry lives.
struct SpendingWidgetView : viewkit::Modifiers<SpendingWidgetView> {
  static constexpr std::string_view kName = "SpendingWidgetView";

  const SnapshotEntry& entry;
  widgetruntime::Environment environment;
  std::string urlScheme;

  [[nodiscard]] viewkit::View body() const;
  /// The month's spending and its change.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
