// The provider of the safe-to-spend widget: the shared timeline, with the chosen style on every
// entry.
#pragma once

#include <optional>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendIntent.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"

namespace quorvel {

struct SafeToSpendEntry {
  foundation::Instant date;  ///< also today for every day count
  std::optional<WidgetSnapshot> snapshot;
  SafeToSpendStyle style = SafeToSpendStyle::accent;

  friend bool operator==(const SafeToSpendEntry&, const SafeToSpendEntry&) = default;
};

struct SafeToSpendProvider {
  using Entry = SafeToSpendEntry;
  using Intent = SafeToSpendIntent;

  SnapshotStore store;

  /// The sample in the default style, now; no file is read.
  [[nodiscard]] SafeToSpendEntry placeholder(const widgetruntime::ProviderContext& context) const;
  /// The document, now; in a gallery preview the sample stands in for a missing one.
  [[nodiscard]] SafeToSpendEntry snapshot(const SafeToSpendIntent& configuration,
                                          const widgetruntime::ProviderContext& context) const;
  [[nodiscard]] widgetruntime::Timeline<SafeToSpendEntry> timeline(
      const SafeToSpendIntent& configuration, const widgetruntime::ProviderContext& context) const;
};

}  // namespace quorvel
