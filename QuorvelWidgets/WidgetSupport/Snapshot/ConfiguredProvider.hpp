// The provider of a widget that a person configures: the shared timeline, with what was chosen on
// every entry.
//
//     struct CardEntry {
//       static CardEntry of(SnapshotEntry entry, const SelectCardIntent& intent);
//     };
//     using CardProvider = ConfiguredProvider<SelectCardIntent, CardEntry>;
#pragma once

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

template <class IntentType, class EntryType>
struct ConfiguredProvider {
  using Intent = IntentType;
  using Entry = EntryType;
  using Context = widgetruntime::ProviderContext;

  SnapshotStore store;

  /// The sample with nothing chosen, now; no file is read.
  [[nodiscard]] Entry placeholder(const Context& context) const {
    return Entry::of(SnapshotProvider{store}.placeholder(context), Intent{});
  }
  /// The document, now; in a gallery preview the sample stands in for a missing one.
  [[nodiscard]] Entry snapshot(const Intent& configuration, const Context& context) const {
    return Entry::of(SnapshotProvider{store}.getSnapshot(context), configuration);
  }
  [[nodiscard]] widgetruntime::Timeline<Entry> timeline(const Intent& configuration,
                                                        const Context& context) const {
    return SnapshotTimeline::map(
        SnapshotProvider{store}.getTimeline(context),
        [&](SnapshotEntry entry) { return Entry::of(std::move(entry), configuration); });
  }
};

}  // namespace quorvel
