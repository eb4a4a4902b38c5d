// The provider of the safe-to-spend widget: the shared timeline, with the chosen style on every
// entry.
#pragma once

#include <optional>
#include <utility>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendIntent.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/ConfiguredProvider.hpp"

namespace quorvel {

struct SafeToSpendEntry {
  foundation::Instant date;  ///< also today for every day count
  std::optional<WidgetSnapshot> snapshot;
  SafeToSpendStyle style = SafeToSpendStyle::accent;

  [[nodiscard]] static SafeToSpendEntry of(SnapshotEntry entry, const SafeToSpendIntent& intent) {
    return {entry.date, std::move(entry.snapshot), intent.style};
  }

  friend bool operator==(const SafeToSpendEntry&, const SafeToSpendEntry&) = default;
};

using SafeToSpendProvider = ConfiguredProvider<SafeToSpendIntent, SafeToSpendEntry>;

}  // namespace quorvel
