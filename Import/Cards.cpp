#include "Import/Cards.hpp"

#include <fmt/format.h>

namespace importer {
namespace {

const std::vector<std::string> kPlainFaces{"#315792", "#20375D"};

std::optional<std::string> tagOf(const Journal& journal,
                                 const std::string& account,
                                 const std::string& tag) {
  const auto tags = journal.tags.find(account);
  if (tags == journal.tags.end()) return std::nullopt;
  const auto found = tags->second.find(tag);
  return found == tags->second.end() ? std::nullopt : std::optional(found->second);
}

Decimal owedOn(const Journal& journal, const std::string& account) {
  Decimal sum;
  for (const Balance& balance : journal.cards) {
    if (balance.commodity == journal.commodityName() && isAtOrBelow(balance.account, account))
      sum -= balance.amount;
  }
  return sum;
}

Result<Decimal> limitOf(const Journal& journal, const CardSettings& card, const std::string& file) {
  if (card.limit) return *card.limit;
  const auto tag = tagOf(journal, card.account, "limit");
  const auto limit = tag ? parseDecimal(*tag) : std::nullopt;
  if (limit && *limit > Decimal{}) return *limit;
  return refused(fmt::format(
      "{}:{}:{}: the card \"{}\" needs a limit, here or as a tag of its account: ; limit: 10000",
      file,
      card.place.line,
      card.place.column,
      card.account));
}

}  // namespace

Result<std::vector<CardFigures>> cardFigures(const Journal& journal, const Settings& settings) {
  std::vector<CardFigures> cards;
  for (const CardSettings& card : settings.cards) {
    const auto limit = limitOf(journal, card, settings.file);
    if (!limit) return std::unexpected(limit.error());
    cards.push_back({.account = card.account,
                     .id = "card-" + card.account,
                     .bank = card.bank.value_or(std::string(parentComponent(card.account))),
                     .product = card.product.value_or(std::string(lastComponent(card.account))),
                     .last4 = card.last4 ? card.last4 : tagOf(journal, card.account, "last4"),
                     .faces = card.faces.empty() ? kPlainFaces : card.faces,
                     .dueDay = card.dueDay,
                     .limit = *limit,
                     .owed = owedOn(journal, card.account)});
  }
  return cards;
}

}  // namespace importer
