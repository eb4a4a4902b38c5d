// What is owned less what is owed, now and at the ends of the months before.
#pragma once

#include <optional>
#include <vector>

#include "Import/Journal.hpp"
#include "Import/Settings.hpp"

namespace importer {

struct NetWorthFigures {
  Decimal value;
  Decimal assets;
  Decimal liabilities;  ///< below 0 when in credit as a whole
  Decimal liquid;
  Decimal nonLiquid;
  std::vector<MonthlyValue> history;  ///< oldest first, this month last
  std::optional<double> changePercent;
};

/// Nothing without any asset or liability account.
[[nodiscard]] std::optional<NetWorthFigures> netWorthFigures(const Journal& journal,
                                                             const Settings& settings);

}  // namespace importer
