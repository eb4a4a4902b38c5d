// The provider of the widgets whose only input is the snapshot.
#pragma once

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct SnapshotProvider {
  using Entry = SnapshotEntry;

  SnapshotStore store;

  /// The sample, now; no file is read.
  [[nodiscard]] SnapshotEntry placeholder(const widgetruntime::ProviderContext& context) const;
  /// The document, now; in a gallery preview the sample stands in for a missing one.
  [[nodiscard]] SnapshotEntry getSnapshot(const widgetruntime::ProviderContext& context) const;
  [[nodiscard]] widgetruntime::Timeline<SnapshotEntry> getTimeline(
      const widgetruntime::ProviderContext& context) const;
};

}  // namespace quorvel
