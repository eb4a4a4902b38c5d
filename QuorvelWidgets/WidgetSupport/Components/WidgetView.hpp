// The root view of a widget: a pure function of one entry and the host's environment.
//
//     struct DueWidgetView : WidgetView<DueWidgetView, SnapshotEntry> {
//       static constexpr std::string_view kName = "DueWidgetView";
//       static constexpr WidgetTitle kTitle{"calendar.badge.clock", "nextDue"};
//       static constexpr std::string_view kDestination = "bills";
//       View body() const;
//       WidgetSummary summary() const;
//     };
//     DueWidgetView{{.entry = entry, .environment = environment, .urlScheme = scheme}}.body()
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetTitle.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/EffectiveSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Widget.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// Keeps a reference to the entry: use it while the entry lives. `Widget` says by what title the
/// widget is known and where in the application it leads.
template <class Widget, class EntryType>
struct WidgetView : viewkit::Modifiers<Widget> {
  using Entry = EntryType;

  const Entry& entry;
  widgetruntime::Environment environment;
  std::string urlScheme;
  EffectiveSnapshot snapshot{entry.snapshot, environment};

  [[nodiscard]] WidgetScaffold scaffold() const {
    return {Widget::kTitle, snapshot, environment, widgetLink(urlScheme, Widget::kDestination)};
  }
  /// Of a document: ask for one first.
  [[nodiscard]] WidgetContext context() const { return {Widget::kTitle, *snapshot, environment}; }
};

/// How a widget's configuration draws an entry.
template <class View>
[[nodiscard]] auto contentOf(const SnapshotStore& store) {
  return [store](const typename View::Entry& entry, const widgetruntime::Environment& environment) {
    const View view{{.entry = entry, .environment = environment, .urlScheme = store.urlScheme()}};
    return widgetruntime::WidgetContent{view.body(), view.summary()};
  };
}

}  // namespace quorvel
