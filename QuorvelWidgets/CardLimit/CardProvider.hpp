// The provider of the card limit widget: the shared timeline, with the chosen card's id on every
// entry.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/CardLimit/SelectCardIntent.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/ConfiguredProvider.hpp"

namespace quorvel {

struct CardEntry {
  foundation::Instant date;
  std::optional<WidgetSnapshot> snapshot;
  std::optional<std::string> cardId;

  [[nodiscard]] static CardEntry of(SnapshotEntry entry, const SelectCardIntent& intent) {
    return {entry.date, std::move(entry.snapshot), intent.card};
  }

  friend bool operator==(const CardEntry&, const CardEntry&) = default;
};

using CardProvider = ConfiguredProvider<SelectCardIntent, CardEntry>;

}  // namespace quorvel
