// The safe-to-spend widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// Keeps a reference to the entry: use it while the entry lives.
struct SafeToSpendView : viewkit::Modifiers<SafeToSpendView> {
  static constexpr std::string_view kName = "SafeToSpendView";

  const SafeToSpendEntry& entry;
  widgetruntime::Environment environment;
  std::string urlScheme;
  bool showsBackground = environment.showsWidgetContainerBackground;

  [[nodiscard]] viewkit::View body() const;
  /// What may be spent per day, what is left of the last day or by how much the budget is exceeded,
  /// and the pace.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
