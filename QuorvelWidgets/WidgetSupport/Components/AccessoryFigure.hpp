// A widget's symbol and its one figure, for the accessory families that it has no layout for.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Where the amount does not fit beside or below the symbol, the symbol stands alone.
[[nodiscard]] viewkit::View accessoryFigure(std::string_view symbol,
                                            double amount,
                                            const WidgetSnapshot& snapshot,
                                            widgetruntime::WidgetFamily family);

}  // namespace quorvel
