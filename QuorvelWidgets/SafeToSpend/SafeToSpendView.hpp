// The safe-to-spend widget's view: a pure function of one entry and the host's environment.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Keeps a reference to the entry: use it while the entry lives.
struct SafeToSpendView : viewkit::Modifiers<SafeToSpendView> {
  static constexpr std::string_view kName = "SafeToSpendView";

  const SafeToSpendEntry& entry;
  widgetruntime::Environment environment;
  std::string urlScheme;
  bool showsBackground = environment.showsWidgetContainerBackground;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
