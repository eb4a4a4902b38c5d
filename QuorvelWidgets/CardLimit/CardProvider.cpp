#include "QuorvelWidgets/CardLimit/CardProvider.hpp"

#include <utility>

namespace quorvel {

namespace {

CardEntry withCard(SnapshotEntry entry, const std::optional<std::string>& cardId) {
  return {entry.date, std::move(entry.snapshot), cardId};
}

}  // namespace

CardEntry CardProvider::placeholder(const widgetruntime::ProviderContext& context) const {
  return withCard(SnapshotProvider{store}.placeholder(context), std::nullopt);
}

CardEntry CardProvider::snapshot(const SelectCardIntent& configuration,
                                 const widgetruntime::ProviderContext& context) const {
  return withCard(SnapshotProvider{store}.getSnapshot(context), configuration.card);
}

widgetruntime::Timeline<CardEntry> CardProvider::timeline(
    const SelectCardIntent& configuration, const widgetruntime::ProviderContext& context) const {
  return SnapshotTimeline::map(
      SnapshotProvider{store}.getTimeline(context),
      [&](SnapshotEntry entry) { return withCard(std::move(entry), configuration.card); });
}

}  // namespace quorvel
