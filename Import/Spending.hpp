// What was spent on which day, and on what: the figures of the spending widget, and of the budget.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Import/Journal.hpp"
#include "Import/Settings.hpp"

namespace importer {

/// One posting that counts, for figures and for `explain` alike.
struct SpendingPosting {
  const Posting* posting = nullptr;
  const Transaction* transaction = nullptr;
};

/// The postings to spending accounts in the journal's commodity, up to today.
[[nodiscard]] std::vector<SpendingPosting> spendingPostings(const Journal& journal,
                                                            const Settings& settings);

/// How many postings to spending accounts up to today are in another commodity.
[[nodiscard]] std::size_t foreignSpendingPostings(const Journal& journal, const Settings& settings);

/// Of the days from first to last; may be below 0 where refunds outweigh what was spent.
[[nodiscard]] Decimal sumOf(const std::vector<SpendingPosting>& postings, Day first, Day last);

/// One sum for each day of the month, not below 0.
[[nodiscard]] std::vector<Decimal> dailySums(const std::vector<SpendingPosting>& postings,
                                             Month month);

struct TopCategory {
  std::string account;  ///< of two components
  Decimal amount;
};
/// The largest sum above 0 of the days from first to last; of equal ones the first by name.
[[nodiscard]] std::optional<TopCategory> topCategory(const std::vector<SpendingPosting>& postings,
                                                     const Journal& journal,
                                                     Day first,
                                                     Day last);

struct SpendingFigures {
  Month month;
  Decimal spent;
  Decimal lastMonthSpent;
  std::optional<TopCategory> top;
  std::vector<Decimal> daily;
  struct Earlier {
    Month month;
    std::vector<Decimal> daily;
  };
  std::vector<Earlier> earlier;  ///< newest last
};
/// Nothing without any spending account.
[[nodiscard]] std::optional<SpendingFigures> spendingFigures(
    const Journal& journal, const Settings& settings, const std::vector<SpendingPosting>& postings);

}  // namespace importer
