// The card limit widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string_view>

#include "QuorvelWidgets/CardLimit/CardProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetView.hpp"

namespace quorvel {

struct CardLimitView : WidgetView<CardLimitView, CardEntry> {
  static constexpr std::string_view kName = "CardLimitView";
  static constexpr WidgetTitle kTitle{"creditcard.fill", "remainingLimit"};
  static constexpr std::string_view kDestination = "cards";

  [[nodiscard]] viewkit::View body() const;
  /// What is left on the chosen card or on all of them, and how heavily it is used.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
