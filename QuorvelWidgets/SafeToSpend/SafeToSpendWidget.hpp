// The safe-to-spend widget as the bundle offers it.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct SafeToSpendWidget {
  static constexpr std::string_view kKind = "QuorvelSafeToSpendWidget";

  /// Named in `lang` for the gallery.
  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store,
                                                           std::string_view lang);
};

}  // namespace quorvel
