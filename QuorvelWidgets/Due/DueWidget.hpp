// The due widget as the bundle offers it.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct DueWidget {
  static constexpr std::string_view kKind = "QuorvelDueWidget";
  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store);
};

}  // namespace quorvel
