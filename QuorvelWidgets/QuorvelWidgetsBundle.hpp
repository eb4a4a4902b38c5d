// Everything that the extension offers.
#pragma once

#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

/// In the gallery's order. A host that knows no controls gets the widgets alone. `files` is where
/// the control's action leaves its request.
[[nodiscard]] widgetruntime::WidgetBundle makeQuorvelWidgetsBundle(
    const SnapshotStore& store, const foundation::FileManager& files, bool offersControls = true);

}  // namespace quorvel
