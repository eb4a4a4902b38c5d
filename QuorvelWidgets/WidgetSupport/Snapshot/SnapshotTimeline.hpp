// The timeline that every widget is fed from: one entry now, a reload just after the next local
// midnight.
#pragma once

#include <optional>
#include <type_traits>
#include <utility>

#include "Foundation/Device.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct SnapshotEntry {
  foundation::Instant date;
  std::optional<WidgetSnapshot> snapshot;  ///< absent: no usable document

  friend bool operator==(const SnapshotEntry&, const SnapshotEntry&) = default;
};

struct SnapshotTimeline {
  /// 00:00:05 local time of the day after `now` (of the same day before that time), as the device's
  /// calendar finds it; a day of 86,400 seconds later when it finds none.
  [[nodiscard]] static foundation::Instant nextRefresh(foundation::Instant now,
                                                       const foundation::Device& device);

  /// The entry of the loaded document, now, reloaded after `nextRefresh`.
  [[nodiscard]] static widgetruntime::Timeline<SnapshotEntry> load(
      const SnapshotStore& store, const foundation::Device& device);

  /// The same timeline with each entry turned into a widget's own.
  template <class Transform>
  [[nodiscard]] static auto map(widgetruntime::Timeline<SnapshotEntry> timeline,
                                Transform transform) {
    using Entry = std::invoke_result_t<Transform, SnapshotEntry>;
    widgetruntime::Timeline<Entry> mapped{{}, timeline.policy};
    for (SnapshotEntry& entry : timeline.entries) {
      mapped.entries.push_back(transform(std::move(entry)));
    }
    return mapped;
  }
};

}  // namespace quorvel
