// The arithmetic of the card limit widget, apart from any view.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

/// The used part of a limit, 0...1; 0 for a limit that is not above 0.
[[nodiscard]] double usedFraction(double limit, double remaining);

/// How heavy a usage is: red from 0.8, the accent from 0.5, else green.
enum class Usage { healthy, considerable, heavy };
[[nodiscard]] Usage usageOf(double fraction);

/// The first `most` cards with those of the chosen id in front, both groups in the document's
/// order. An id that no card has leaves that order.
[[nodiscard]] std::vector<const WidgetSnapshot::Card*> orderedCards(
    const std::vector<WidgetSnapshot::Card>& cards,
    const std::optional<std::string>& chosenId,
    std::size_t most);

/// The product, or the bank where the product has no name.
[[nodiscard]] const std::string& cardTitle(const WidgetSnapshot::Card& card);

}  // namespace quorvel
