// Everything that the extension offers.
#pragma once

#include <string>

#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct BundleOptions {
  std::string lang = "en";     ///< of the names in the gallery
  bool offersControls = true;  ///< a host that knows no controls gets the widgets alone
};

/// In the gallery's order. `files` is where the control's action leaves its request.
[[nodiscard]] widgetruntime::WidgetBundle makeQuorvelWidgetsBundle(
    const SnapshotStore& store,
    const foundation::FileManager& files,
    const BundleOptions& options = {});

}  // namespace quorvel
