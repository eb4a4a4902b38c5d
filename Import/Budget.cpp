#include "Import/Budget.hpp"

namespace importer {

// A monthly rule turns on the first of each month, and every period holds just one such day.
std::vector<SpendingPosting> budgetPostings(const Journal& journal, const Settings& settings) {
  const auto [start, end] = budgetPeriod(journal.today, settings.budgetStartDay);
  const auto traits = journal.accounts.traits(journal.lexicon.accounts, settings);
  std::vector<SpendingPosting> result;
  for (const Posting& posting : journal.ahead.postings) {
    const Transaction& turn = journal.ahead.transactions[posting.transaction];
    const bool counts = turn.origin == Origin::monthlyRule && turn.day >= start &&
                        turn.day <= end && posting.commodity == journal.commodity &&
                        traits[posting.account].isSpending;
    if (counts) result.push_back({&posting, &turn});
  }
  return result;
}

std::optional<BudgetFigures> budgetFigures(const Journal& journal,
                                           const Settings& settings,
                                           const std::vector<SpendingPosting>& postings) {
  Decimal total;
  for (const auto& [posting, turn] : budgetPostings(journal, settings)) total += posting->amount;
  total = settings.budgetTotal.value_or(total);
  if (total <= Decimal{}) return std::nullopt;
  const auto [start, end] = budgetPeriod(journal.today, settings.budgetStartDay);
  return BudgetFigures{.total = total,
                       .spent = atLeastZero(sumOf(postings, start, journal.today)),
                       .start = start,
                       .end = end};
}

}  // namespace importer
