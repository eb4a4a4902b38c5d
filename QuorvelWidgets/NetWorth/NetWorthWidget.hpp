// The net worth widget as the bundle offers it.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct NetWorthWidget {
  static constexpr std::string_view kKind = "QuorvelNetWorthWidget";
  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store);
};

}  // namespace quorvel
