// An amount as a widget shows it and as it is read out: hidden where the snapshot hides amounts.
#pragma once

#include <string>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

enum class AmountForm {
  fitting,  ///< full, but compact where the full form has 13 characters or more
  compact,
  full
};

/// What an amount shows: "••••" when the snapshot hides amounts.
[[nodiscard]] std::string amountText(double value,
                                     const WidgetSnapshot& snapshot,
                                     AmountForm form = AmountForm::fitting);

/// What is read out for an amount: the text of `hidden`, else always the full format.
[[nodiscard]] std::string amountAccessibilityLabel(double value, const WidgetSnapshot& snapshot);

}  // namespace quorvel
