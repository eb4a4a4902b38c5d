// What every widget's view does around its content: language, direction, margins, ground, link and
// empty states.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetChrome.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// An empty state: a symbol and keys of the string table.
struct EmptyState {
  std::string_view symbol;
  TextKey title;
  TextKey text;
  TextKey label;
  bool labelIsStatus = false;
};

/// Keeps references: use it while the snapshot and the environment live.
struct WidgetScaffold {
  const std::optional<WidgetSnapshot>& snapshot;
  const widgetruntime::Environment& environment;
  std::string link;

  /// The snapshot's language; without one the first of the user's that the widgets speak.
  [[nodiscard]] std::string lang() const;
  /// In the snapshot's accent, or the built-in one.
  [[nodiscard]] viewkit::View message(const EmptyState& state) const;
  /// The message in one line.
  [[nodiscard]] widgetruntime::WidgetSummary messageSummary(const EmptyState& state) const;
  /// The widget's title: all that a placeholder says.
  [[nodiscard]] widgetruntime::WidgetSummary titleSummary(const EmptyState& state) const;
  /// The chrome of the widget's root, on the canvas; for widgets that change something about it.
  [[nodiscard]] WidgetChrome chrome(viewkit::View content, bool padded = true) const;
  /// The widget's root on the canvas. Content that is not padded reaches the widget's edges.
  [[nodiscard]] viewkit::View root(viewkit::View content, bool padded = true) const;
};

}  // namespace quorvel
