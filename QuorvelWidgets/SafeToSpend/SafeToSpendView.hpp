// The safe-to-spend widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string_view>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetView.hpp"

namespace quorvel {

struct SafeToSpendView : WidgetView<SafeToSpendView, SafeToSpendEntry> {
  static constexpr std::string_view kName = "SafeToSpendView";
  static constexpr WidgetTitle kTitle{"gauge.with.needle", "safeToSpend"};
  static constexpr std::string_view kDestination = "budget";

  bool showsBackground = environment.showsWidgetContainerBackground;

  [[nodiscard]] viewkit::View body() const;
  /// What may be spent per day, what is left of the last day or by how much the budget is exceeded,
  /// and the pace.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
