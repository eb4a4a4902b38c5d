#include "Import/Spending.hpp"

#include <algorithm>
#include <map>
#include <string_view>

namespace importer {
namespace {

constexpr int kEarlierMonths = 12;

/// Hands every posting to a spending account up to today on, whatever its commodity.
template <class Handler>
void forEachSpending(const Journal& journal, const Settings& settings, Handler handle) {
  const auto traits = journal.accounts.traits(journal.lexicon.accounts, settings);
  for (const Book* book : {&journal.past, &journal.ahead}) {
    for (const Posting& posting : book->postings) {
      const Transaction& transaction = book->transactions[posting.transaction];
      // An entry of tomorrow may hold a posting that has a day of its own.
      const bool counts = transaction.origin == Origin::entry && posting.day <= journal.today &&
                          traits[posting.account].isSpending;
      if (counts) handle(posting, transaction);
    }
  }
}

}  // namespace

std::vector<SpendingPosting> spendingPostings(const Journal& journal, const Settings& settings) {
  std::vector<SpendingPosting> result;
  forEachSpending(journal, settings, [&](const Posting& posting, const Transaction& transaction) {
    if (posting.commodity == journal.commodity) result.push_back({&posting, &transaction});
  });
  return result;
}

std::size_t foreignSpendingPostings(const Journal& journal, const Settings& settings) {
  std::size_t count = 0;
  forEachSpending(journal, settings, [&](const Posting& posting, const Transaction&) {
    if (posting.commodity != journal.commodity) ++count;
  });
  return count;
}

Decimal sumOf(const std::vector<SpendingPosting>& postings, Day first, Day last) {
  Decimal sum;
  for (const auto& [posting, transaction] : postings) {
    if (posting->day >= first && posting->day <= last) sum += posting->amount;
  }
  return sum;
}

std::vector<Decimal> dailySums(const std::vector<SpendingPosting>& postings, Month month) {
  std::vector<Decimal> days(static_cast<std::size_t>(daysIn(month)));
  const Day first = firstDay(month);
  for (const auto& [posting, transaction] : postings) {
    const int day = posting->day.number - first.number;
    if (day >= 0 && day < daysIn(month)) days[static_cast<std::size_t>(day)] += posting->amount;
  }
  std::ranges::transform(days, days.begin(), atLeastZero);
  return days;
}

std::optional<TopCategory> topCategory(const std::vector<SpendingPosting>& postings,
                                       const Journal& journal,
                                       Day first,
                                       Day last) {
  std::map<std::string_view, Decimal> sums;
  for (const auto& [posting, transaction] : postings) {
    const auto category = firstTwoComponents(journal.lexicon.accounts[posting->account]);
    if (!category.empty() && posting->day >= first && posting->day <= last)
      sums[category] += posting->amount;
  }
  const auto top =
      std::ranges::max_element(sums, {}, [](const auto& entry) { return entry.second; });
  if (top == sums.end() || top->second <= Decimal{}) return std::nullopt;
  return TopCategory{std::string(top->first), top->second};
}

std::optional<SpendingFigures> spendingFigures(const Journal& journal,
                                               const Settings& settings,
                                               const std::vector<SpendingPosting>& postings) {
  const bool hasAccounts = std::ranges::any_of(journal.accounts.types, [&](const auto& account) {
    return journal.accounts.traits(account.first, settings).isSpending;
  });
  if (!hasAccounts) return std::nullopt;
  const Month month = monthOf(journal.today);
  SpendingFigures figures;
  figures.month = month;
  figures.spent = atLeastZero(sumOf(postings, firstDay(month), journal.today));
  figures.lastMonthSpent = atLeastZero(sumOf(postings, firstDay(month - 1), lastDay(month - 1)));
  figures.top = topCategory(postings, journal, firstDay(month), journal.today);
  figures.daily = dailySums(postings, month);
  for (Month earlier = std::max(month - kEarlierMonths, journal.firstMonth); earlier < month;
       earlier = earlier + 1)
    figures.earlier.push_back({earlier, dailySums(postings, earlier)});
  return figures;
}

}  // namespace importer
