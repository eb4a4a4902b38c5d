// The configuration of the safe-to-spend widget.
#pragma once

#include "QuorvelWidgets/SafeToSpend/SafeToSpendStyle.hpp"
#include "WidgetRuntime/Intents.hpp"

namespace quorvel {

struct SafeToSpendIntent {
  SafeToSpendStyle style = SafeToSpendStyle::accent;

  [[nodiscard]] static widgetruntime::IntentDescription description();
  /// The default style where the values name none or one that does not exist.
  [[nodiscard]] static SafeToSpendIntent fromValues(const widgetruntime::IntentValues& values);

  friend bool operator==(const SafeToSpendIntent&, const SafeToSpendIntent&) = default;
};

}  // namespace quorvel
