// What falls due next: the cards' bills, and what the journal and its rules say is still to be
// paid.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Import/Cards.hpp"
#include "Import/Journal.hpp"
#include "Import/Settings.hpp"

namespace importer {

struct DueFigures {
  std::string id;
  std::string name;
  Day day;
  Decimal amount;
  const CardFigures* card = nullptr;  ///< null for a bill
};

/// Sorted by day, cards before bills of the same day.
[[nodiscard]] std::vector<DueFigures> dueFigures(const Journal& journal,
                                                 const Settings& settings,
                                                 const std::vector<CardFigures>& cards);

/// The next day of that number, today included; the last day of months that lack it.
[[nodiscard]] Day nextDueDay(Day today, int dayOfMonth);

}  // namespace importer
