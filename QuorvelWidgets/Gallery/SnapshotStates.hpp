// The states into which a document can put the widgets: one corpus for contact sheets, galleries
// and tests.
//
//     const WidgetSnapshot exceeded = inState(sampleSnapshot(device), "exceeded");
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

struct SnapshotState {
  std::string_view name;
  std::string_view caption;       ///< on a contact sheet; empty: of interest to tests alone
  bool isUsual = false;           ///< a person meets it sooner or later
  void (*edit)(WidgetSnapshot&);  ///< what the snapshot does not have is not invented
};

[[nodiscard]] std::span<const SnapshotState> snapshotStates();

/// Null for a name of no state.
[[nodiscard]] const SnapshotState* snapshotState(std::string_view name);

/// The snapshot as it is when there is no such state.
[[nodiscard]] WidgetSnapshot inState(WidgetSnapshot snapshot, std::string_view name);

/// Every name that a user writes replaced.
[[nodiscard]] WidgetSnapshot renamed(WidgetSnapshot snapshot, const std::string& name);

/// Every amount times `factor`; percentages and the money style stay.
[[nodiscard]] WidgetSnapshot scaled(WidgetSnapshot snapshot, double factor);

/// Every amount changed, differently for each `step` and from its neighbours; zeros stay.
[[nodiscard]] WidgetSnapshot withOtherAmounts(WidgetSnapshot snapshot, int step);

}  // namespace quorvel
