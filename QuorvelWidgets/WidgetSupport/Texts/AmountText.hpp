// An amount as a widget shows it and as it is read out: hidden where the snapshot hides amounts.
#pragma once

#include <string>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

/// What an amount shows: "••••" when the snapshot hides amounts, else the full format, or the
/// compact one when that is asked for or the full one has 13 characters or more.
[[nodiscard]] std::string amountText(double value,
                                     const WidgetSnapshot& snapshot,
                                     bool compact = false);

/// What is read out for an amount: the text of `hidden`, else always the full format.
[[nodiscard]] std::string amountAccessibilityLabel(double value, const WidgetSnapshot& snapshot);

}  // namespace quorvel
