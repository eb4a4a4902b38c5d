// What accessory families share: the line above a figure, and for those that a widget has no layout
// for its symbol and its one figure.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// The colour of the words beside a figure: the palette's is too weak for the backdrop.
[[nodiscard]] viewkit::Color accessoryCaption(const widgetruntime::Environment& environment);

/// A small symbol and the words that say what the figure below them is.
[[nodiscard]] viewkit::View accessoryLabel(std::string_view symbol,
                                           std::string words,
                                           std::string_view lang,
                                           const viewkit::Color& color);

/// Where the amount does not fit beside or below the symbol, the symbol stands alone.
[[nodiscard]] viewkit::View accessoryFigure(std::string_view symbol,
                                            double amount,
                                            const WidgetSnapshot& snapshot,
                                            widgetruntime::WidgetFamily family);

}  // namespace quorvel
