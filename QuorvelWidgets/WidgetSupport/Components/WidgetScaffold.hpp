// What every widget's view does around its content: language, direction, margins, ground, link and
// empty states.
#pragma once

#include <optional>
#include <string>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetChrome.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetTitle.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/EffectiveSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// Why a widget has nothing to show, and what to do about it: keys of the string table.
struct EmptyState {
  TextKey text;
  TextKey label;
  bool labelIsStatus = false;  ///< the label says how things are, not what to do
};

/// Without a document.
inline constexpr EmptyState kNoSnapshot{"signIn", "openQuorvel"};

/// Keeps references: use it while the snapshot and the environment live.
struct WidgetScaffold {
  WidgetTitle title;
  const EffectiveSnapshot& snapshot;
  const widgetruntime::Environment& environment;
  std::string link;

  /// The snapshot's language; without one the first of the user's that the widgets speak.
  [[nodiscard]] std::string lang() const;
  /// In the snapshot's accent, or the built-in one.
  [[nodiscard]] viewkit::View message(const EmptyState& state) const;
  /// The message in one line.
  [[nodiscard]] widgetruntime::WidgetSummary messageSummary(const EmptyState& state) const;
  /// What can be said before the document is asked: of a placeholder the title alone, without a
  /// document the message.
  [[nodiscard]] std::optional<widgetruntime::WidgetSummary> summaryWithoutData() const;
  /// An accessory family's layout on the backdrop where the host draws no background; any other
  /// layout as it is.
  [[nodiscard]] viewkit::View onBackdrop(viewkit::View layout) const;
  /// The chrome of the widget's root, on the canvas; for widgets that change something about it.
  [[nodiscard]] WidgetChrome chrome(viewkit::View content) const;
  /// The widget's root on the canvas.
  [[nodiscard]] viewkit::View root(viewkit::View content) const;
  /// The same for content that reaches the widget's edges.
  [[nodiscard]] viewkit::View rootWithoutMargins(viewkit::View content) const;
};

}  // namespace quorvel
