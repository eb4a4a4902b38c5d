// Everything that the extension offers.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

/// In the gallery's order.
[[nodiscard]] widgetruntime::WidgetBundle makeQuorvelWidgetsBundle(const SnapshotStore& store);

}  // namespace quorvel
