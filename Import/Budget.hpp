// The budget of the period that holds today: set by a person, or the sum of the journal's monthly
// rules.
#pragma once

#include <optional>
#include <vector>

#include "Import/Journal.hpp"
#include "Import/Settings.hpp"
#include "Import/Spending.hpp"

namespace importer {

struct BudgetFigures {
  Decimal total;
  Decimal spent;
  Day start;
  Day end;
};

/// What the monthly rules turn over to spending accounts within the period.
[[nodiscard]] std::vector<SpendingPosting> budgetPostings(const Journal& journal,
                                                          const Settings& settings);

/// Nothing without a total above 0.
[[nodiscard]] std::optional<BudgetFigures> budgetFigures(
    const Journal& journal, const Settings& settings, const std::vector<SpendingPosting>& postings);

}  // namespace importer
