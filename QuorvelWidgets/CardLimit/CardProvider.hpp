// The provider of the card limit widget: the shared timeline, with the chosen card's id on every
// entry.
#pragma once

#include <optional>
#include <string>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/CardLimit/SelectCardIntent.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"

namespace quorvel {

struct CardEntry {
  foundation::Instant date;
  std::optional<WidgetSnapshot> snapshot;
  std::optional<std::string> cardId;

  friend bool operator==(const CardEntry&, const CardEntry&) = default;
};

struct CardProvider {
  using Entry = CardEntry;
  using Intent = SelectCardIntent;

  SnapshotStore store;

  /// The sample without a chosen card, now; no file is read.
  [[nodiscard]] CardEntry placeholder(const widgetruntime::ProviderContext& context) const;
  /// The document, now; in a gallery preview the sample stands in for a missing one.
  [[nodiscard]] CardEntry snapshot(const SelectCardIntent& configuration,
                                   const widgetruntime::ProviderContext& context) const;
  [[nodiscard]] widgetruntime::Timeline<CardEntry> timeline(
      const SelectCardIntent& configuration, const widgetruntime::ProviderContext& context) const;
};

}  // namespace quorvel
