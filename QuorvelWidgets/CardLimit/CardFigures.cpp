#include "QuorvelWidgets/CardLimit/CardFigures.hpp"

#include <algorithm>

#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"

namespace quorvel {

double usedFraction(double limit, double remaining) {
  return limit > 0 ? clampedFraction(1 - remaining / limit) : 0;
}

Usage usageOf(double fraction) {
  if (fraction >= 0.8) return Usage::heavy;
  return fraction >= 0.5 ? Usage::considerable : Usage::healthy;
}

std::vector<const WidgetSnapshot::Card*> orderedCards(
    const std::vector<WidgetSnapshot::Card>& cards,
    const std::optional<std::string>& chosenId,
    std::size_t most) {
  std::vector<const WidgetSnapshot::Card*> ordered;
  for (const bool chosen : {true, false}) {
    for (const WidgetSnapshot::Card& card : cards) {
      if (ordered.size() == most) return ordered;
      if ((chosenId && card.id == *chosenId) == chosen) ordered.push_back(&card);
    }
  }
  return ordered;
}

const std::string& cardTitle(const WidgetSnapshot::Card& card) {
  return card.productName.empty() ? card.bankName : card.productName;
}

}  // namespace quorvel
