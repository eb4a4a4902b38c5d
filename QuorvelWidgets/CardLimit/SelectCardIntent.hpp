// The configuration of the card limit widget: one of the user's cards.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "WidgetRuntime/Intents.hpp"

namespace quorvel {

/// A card as the picker offers it.
struct CardEntity {
  std::string id;
  std::string name;  ///< bank and product

  friend bool operator==(const CardEntity&, const CardEntity&) = default;
};

/// Lists the cards of the document on disk; none without one. Every operation reads it anew.
struct CardQuery {
  SnapshotStore store;

  /// In the document's order; identifiers without a card are dropped.
  [[nodiscard]] std::vector<CardEntity> entitiesForIdentifiers(
      const std::vector<std::string>& identifiers) const;
  [[nodiscard]] std::vector<CardEntity> suggestedEntities() const;
  [[nodiscard]] std::optional<CardEntity> defaultResult() const;
};

struct SelectCardIntent {
  std::optional<std::string> card;  ///< an id, whether or not a card still has it

  [[nodiscard]] static widgetruntime::IntentDescription description(const SnapshotStore& store);
  [[nodiscard]] static SelectCardIntent fromValues(const widgetruntime::IntentValues& values);

  friend bool operator==(const SelectCardIntent&, const SelectCardIntent&) = default;
};

}  // namespace quorvel
