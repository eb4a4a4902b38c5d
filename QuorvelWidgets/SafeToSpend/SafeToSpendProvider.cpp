#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"

#include <utility>

namespace quorvel {

namespace {

SafeToSpendEntry withStyle(SnapshotEntry entry, SafeToSpendStyle style) {
  return {entry.date, std::move(entry.snapshot), style};
}

}  // namespace

SafeToSpendEntry SafeToSpendProvider::placeholder(
    const widgetruntime::ProviderContext& context) const {
  return withStyle(SnapshotProvider{store}.placeholder(context), SafeToSpendStyle::accent);
}

SafeToSpendEntry SafeToSpendProvider::snapshot(
    const SafeToSpendIntent& configuration, const widgetruntime::ProviderContext& context) const {
  return withStyle(SnapshotProvider{store}.getSnapshot(context), configuration.style);
}

widgetruntime::Timeline<SafeToSpendEntry> SafeToSpendProvider::timeline(
    const SafeToSpendIntent& configuration, const widgetruntime::ProviderContext& context) const {
  return SnapshotTimeline::map(
      SnapshotProvider{store}.getTimeline(context),
      [&](SnapshotEntry entry) { return withStyle(std::move(entry), configuration.style); });
}

}  // namespace quorvel
