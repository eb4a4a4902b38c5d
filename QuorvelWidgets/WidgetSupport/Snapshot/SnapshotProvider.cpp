#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"

namespace quorvel {

SnapshotEntry SnapshotProvider::placeholder(const widgetruntime::ProviderContext& context) const {
  return {context.device.now, store.sample(context.device)};
}

SnapshotEntry SnapshotProvider::getSnapshot(const widgetruntime::ProviderContext& context) const {
  SnapshotEntry entry{context.device.now, store.load()};
  if (!entry.snapshot && context.isPreview) entry.snapshot = store.sample(context.device);
  return entry;
}

widgetruntime::Timeline<SnapshotEntry> SnapshotProvider::getTimeline(
    const widgetruntime::ProviderContext& context) const {
  return SnapshotTimeline::load(store, context.device);
}

}  // namespace quorvel
