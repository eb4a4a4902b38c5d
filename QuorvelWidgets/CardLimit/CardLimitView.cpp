#include "QuorvelWidgets/CardLimit/CardLimitView.hpp"

#include <algorithm>

#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoCards{"noCards", "addCard"};

std::size_t mostCards(WidgetFamily family) {
  if (family == WidgetFamily::systemLarge) return 5;
  return family == WidgetFamily::systemMedium ? 3 : 1;
}

widgetruntime::WidgetSummary::State stateOf(Usage usage) {
  using State = widgetruntime::WidgetSummary::State;
  switch (usage) {
    case Usage::heavy:
      return State::critical;
    case Usage::considerable:
      return State::warning;
    case Usage::healthy:
      break;
  }
  return State::good;
}

}  // namespace

View CardLimitView::body() const {
  WidgetScaffold scaffold = this->scaffold();
  if (!snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  if (snapshot->cards.empty()) return scaffold.root(scaffold.message(kNoCards));
  const WidgetFamily family = environment.familyInForce();
  const CardLimitContent content{{context()},
                                 orderedCards(snapshot->cards, entry.cardId, mostCards(family))};
  const Color primary = content.colors.text();
  if (family == WidgetFamily::systemLarge) {
    return scaffold.root(cardLimitLarge(content).foregroundStyle(primary));
  }
  // The pile of the medium layout reaches beyond the margins, which its column applies itself.
  if (family == WidgetFamily::systemMedium) {
    return scaffold.rootWithoutMargins(cardLimitMedium(content).foregroundStyle(primary));
  }
  scaffold.link = cardLink(urlScheme, content.cards.front()->id);
  return scaffold.root(cardLimitSmall(content).foregroundStyle(primary));
}

widgetruntime::WidgetSummary CardLimitView::summary() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (const auto summary = scaffold.summaryWithoutData()) return *summary;
  const auto& cards = snapshot->cards;
  if (cards.empty()) return scaffold.messageSummary(kNoCards);
  const auto chosen = entry.cardId
                          ? std::ranges::find(cards, *entry.cardId, &WidgetSnapshot::Card::id)
                          : cards.end();
  const bool isAll = chosen == cards.end();
  const double remaining = isAll ? snapshot->totalRemaining : chosen->remaining;
  const double used = usedFraction(isAll ? snapshot->totalLimit : chosen->limit, remaining);
  // How much is used is a proportion, which goes with the amounts.
  using State = widgetruntime::WidgetSummary::State;
  return {.text = isolatedAmount(amountText(remaining, *snapshot)),
          .state = snapshot->isHidden ? State::none : stateOf(usageOf(used))};
}

}  // namespace quorvel
