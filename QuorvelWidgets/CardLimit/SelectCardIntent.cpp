#include "QuorvelWidgets/CardLimit/SelectCardIntent.hpp"

#include <algorithm>

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

}  // namespace

std::vector<CardEntity> CardQuery::suggestedEntities() const {
  std::vector<CardEntity> entities;
  if (const auto snapshot = store.load()) {
    for (const WidgetSnapshot::Card& card : snapshot->cards) {
      const std::string name = card.bankName + " " + card.productName;
      entities.push_back({card.id, std::string{foundation::trimmingSpaces(name)}});
    }
  }
  return entities;
}

std::vector<CardEntity> CardQuery::entitiesForIdentifiers(
    const std::vector<std::string>& identifiers) const {
  std::vector<CardEntity> entities = suggestedEntities();
  std::erase_if(entities, [&](const CardEntity& entity) {
    return std::ranges::find(identifiers, entity.id) == identifiers.end();
  });
  return entities;
}

std::optional<CardEntity> CardQuery::defaultResult() const {
  const std::vector<CardEntity> entities = suggestedEntities();
  if (entities.empty()) return std::nullopt;
  return entities.front();
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
