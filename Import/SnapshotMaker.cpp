#include "Import/SnapshotMaker.hpp"

#include <algorithm>

#include "Foundation/Utf8.hpp"

namespace importer {
namespace {

constexpr std::size_t kLongestText = 200;  // bytes

std::vector<double> doubles(const std::vector<Decimal>& amounts) {
  std::vector<double> result;
  result.reserve(amounts.size());
  for (const Decimal amount : amounts) result.push_back(amount.toDouble());
  return result;
}

quorvel::records::Spending spendingRecord(const SpendingFigures& figures,
                                          const Settings& settings) {
  quorvel::records::Spending record{.month = text(figures.month),
                                    .spent = figures.spent.toDouble(),
                                    .lastMonthSpent = figures.lastMonthSpent.toDouble(),
                                    .daily = doubles(figures.daily)};
  record.earlier.emplace();
  for (const auto& [month, daily] : figures.earlier)
    record.earlier->push_back({.month = text(month), .daily = doubles(daily)});
  if (!figures.top) return record;
  record.topCategory = displayText(lastComponent(figures.top->account));
  record.topCategoryAmount = figures.top->amount.toDouble();
  const auto found = settings.categories.find(figures.top->account);
  if (found == settings.categories.end()) return record;
  const CategorySettings& category = found->second;
  if (category.name) record.topCategory = category.name;
  record.topCategoryIcon = category.icon;
  // One colour serves both appearances.
  const auto one = category.light ? category.light : category.dark;
  if (one) {
    record.topCategoryColor = {.light = category.light.value_or(*one),
                               .dark = category.dark.value_or(*one)};
  }
  return record;
}

quorvel::records::NetWorth netWorthRecord(const NetWorthFigures& figures) {
  quorvel::records::NetWorth record{.value = figures.value.toDouble(),
                                    .changePercent = figures.changePercent,
                                    .assets = figures.assets.toDouble(),
                                    .liabilities = figures.liabilities.toDouble(),
                                    .liquid = figures.liquid.toDouble(),
                                    .nonLiquid = figures.nonLiquid.toDouble()};
  for (const auto& [month, value] : figures.history)
    record.history.push_back({.month = text(month), .value = value.toDouble()});
  return record;
}

quorvel::records::Card cardRecord(const CardFigures& card) {
  return {.id = card.id,
          .bankName = displayText(card.bank),
          .productName = displayText(card.product),
          .last4 = card.last4,
          .limit = card.limit.toDouble(),
          .remaining = card.remaining().toDouble(),
          .gradient = card.faces,
          .hasImage = false};
}

quorvel::records::Due dueRecord(const DueFigures& due) {
  quorvel::records::Due record{.id = due.id,
                               .name = displayText(due.name),
                               .amount = due.amount.toDouble(),
                               .dueDate = text(due.day),
                               .kind = due.card ? "card" : "bill"};
  if (!due.card) return record;
  record.cardId = due.card->id;
  record.face = due.card->faces;
  if (due.card->last4) record.subtitle = "•• " + *due.card->last4;
  return record;
}

}  // namespace

Result<Figures> figuresOf(const Journal& journal, const Settings& settings) {
  auto cards = cardFigures(journal, settings);
  if (!cards) return std::unexpected(cards.error());
  Figures figures;
  figures.postings = spendingPostings(journal, settings);
  figures.spending = spendingFigures(journal, settings, figures.postings);
  figures.budget = budgetFigures(journal, settings, figures.postings);
  figures.netWorth = netWorthFigures(journal, settings);
  figures.cards = *std::move(cards);
  figures.dues = dueFigures(journal, settings, figures.cards);
  return figures;
}

quorvel::WidgetSnapshot makeSnapshot(const Figures& figures,
                                     const Journal& journal,
                                     const Settings& settings,
                                     const Moment& moment) {
  quorvel::WidgetSnapshot snapshot;
  snapshot.generatedAt = moment.now;
  snapshot.isHidden = settings.hidden;
  snapshot.lang = moment.language;
  snapshot.money = {.symbol = settings.symbol.value_or(journal.commodityName()),
                    .showDecimals = settings.decimals.value_or(hasCents(journal))};
  for (const DueFigures& due : figures.dues) snapshot.dues.push_back(dueRecord(due));
  Decimal limit;
  Decimal remaining;
  for (const CardFigures& card : figures.cards) {
    snapshot.cards.push_back(cardRecord(card));
    limit += card.limit;
    remaining += card.remaining();
  }
  snapshot.totalLimit = limit.toDouble();
  snapshot.totalRemaining = remaining.toDouble();
  if (const auto& budget = figures.budget) {
    snapshot.budget = {.total = budget->total.toDouble(),
                       .spent = budget->spent.toDouble(),
                       .periodEnd = text(budget->end),
                       .periodStart = text(budget->start)};
  }
  if (figures.spending) snapshot.spending = spendingRecord(*figures.spending, settings);
  if (figures.netWorth) snapshot.netWorth = netWorthRecord(*figures.netWorth);
  return snapshot;
}

bool hasCents(const Journal& journal) {
  const Day first = firstDay(monthOf(journal.today) - 1);
  return std::ranges::any_of(journal.past.postings, [&](const Posting& posting) {
    return posting.commodity == journal.commodity && posting.day >= first &&
           posting.day <= journal.today && !posting.amount.isWhole();
  });
}

std::string displayText(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto step = foundation::utf8Step(text);
    if (result.size() + step.length > kLongestText) return result + "…";
    const bool isControl = step.scalar < 0x20 || (step.scalar >= 0x7F && step.scalar < 0xA0);
    if (isControl) {
      result += ' ';
    } else {
      foundation::appendUtf8(result, step.scalar);
    }
    text.remove_prefix(step.length);
  }
  return result;
}

}  // namespace importer
