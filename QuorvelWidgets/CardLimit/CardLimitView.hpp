// The card limit widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/CardLimit/CardProvider.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace quorvel {

/// Keeps a reference to the entry: use it while the entry lives.
struct CardLimitView : viewkit::Modifiers<CardLimitView> {
  static constexpr std::string_view kName = "CardLimitView";

  const CardEntry& entry;
  widgetruntime::Environment environment;
  std::string urlScheme;

  [[nodiscard]] viewkit::View body() const;
  /// What is left on the chosen card or on all of them, and how heavily it is used.
  [[nodiscard]] widgetruntime::WidgetSummary summary() const;
};

}  // namespace quorvel
