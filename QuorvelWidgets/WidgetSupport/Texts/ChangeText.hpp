// An amount and its change as plain text, for summaries.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetMoneyStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"

namespace quorvel {

/// "$1,100 ↗ 10.0%", the amount alone without a change. The arrow points the way the language is
/// read.
[[nodiscard]] std::string amountWithChange(std::string_view amount,
                                           const std::optional<ChangeDescription>& change,
                                           std::string_view lang);

}  // namespace quorvel
