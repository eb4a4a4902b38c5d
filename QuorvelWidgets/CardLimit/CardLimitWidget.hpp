// The card limit widget as the bundle offers it.
#pragma once

#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

struct CardLimitWidget {
  static constexpr std::string_view kKind = "QuorvelCardLimitWidget";
  [[nodiscard]] static widgetruntime::Widget configuration(const SnapshotStore& store);
};

}  // namespace quorvel
