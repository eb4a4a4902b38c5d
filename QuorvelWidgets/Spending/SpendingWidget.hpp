// The spending widget as the bundle offers it.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct SpendingWidget {
  static constexpr std::string_view kKind = "QuorvelSpendingWidget";
  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store);
};

}  // namespace quorvel
