// The safe-to-spend widget as the bundle offers it.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct SafeToSpendWidget {
  static constexpr std::string_view kKind = "QuorvelSafeToSpendWidget";

  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store);
};

}  // namespace quorvel
