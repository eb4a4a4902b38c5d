#include "QuorvelWidgets/CardLimit/SelectCardIntent.hpp"

#include <string_view>
#include <unordered_set>

#include "Foundation/Characters.hpp"

namespace quorvel {

using widgetruntime::IntentOption;

namespace {

std::vector<IntentOption> options(const std::vector<CardEntity>& entities) {
  std::vector<IntentOption> result;
  result.reserve(entities.size());
  for (const CardEntity& entity : entities) result.push_back({entity.id, entity.name});
  return result;
}

CardEntity entityOf(const WidgetSnapshot::Card& card) {
  const std::string name = card.bankName + " " + card.productName;
  return {card.id, std::string{foundation::trimmingSpaces(name)}};
}

}  // namespace

std::vector<CardEntity> CardQuery::suggestedEntities() const {
  std::vector<CardEntity> entities;
  if (const auto snapshot = store.load()) {
    for (const WidgetSnapshot::Card& card : snapshot->cards) entities.push_back(entityOf(card));
  }
  return entities;
}

std::vector<CardEntity> CardQuery::entitiesForIdentifiers(
    const std::vector<std::string>& identifiers) const {
  const std::unordered_set<std::string_view> wanted(identifiers.begin(), identifiers.end());
  std::vector<CardEntity> entities;
  if (const auto snapshot = store.load()) {
    for (const WidgetSnapshot::Card& card : snapshot->cards) {
      if (wanted.contains(card.id)) entities.push_back(entityOf(card));
    }
  }
  return entities;
}

std::optional<CardEntity> CardQuery::defaultResult() const {
  const auto snapshot = store.load();
  if (!snapshot || snapshot->cards.empty()) return std::nullopt;
  return entityOf(snapshot->cards.front());
}

widgetruntime::IntentDescription SelectCardIntent::description(const SnapshotStore& store) {
  const CardQuery query{store};
  widgetruntime::IntentParameter card{.name = "card",
                                      .title = "Card",
                                      .typeName = "Card",
                                      .type = widgetruntime::IntentParameter::Type::entity};
  card.query = {.entitiesForIdentifiers =
                    [query](const std::vector<std::string>& ids) {
                      return options(query.entitiesForIdentifiers(ids));
                    },
                .suggestedEntities = [query] { return options(query.suggestedEntities()); },
                .defaultResult = [query]() -> std::optional<IntentOption> {
                  const auto first = query.defaultResult();
                  if (!first) return std::nullopt;
                  return IntentOption{first->id, first->name};
                }};
  return {.name = "SelectCardIntent", .title = "Choose Card", .parameters = {std::move(card)}};
}

SelectCardIntent SelectCardIntent::fromValues(const widgetruntime::IntentValues& values) {
  const auto chosen = values.find("card");
  if (chosen == values.end()) return {};
  return {.card = chosen->second};
}

}  // namespace quorvel
