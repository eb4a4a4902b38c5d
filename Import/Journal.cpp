#include "Import/Journal.hpp"

namespace importer {

std::pair<Day, Day> budgetPeriod(Day today, int startDay) {
  Month start = monthOf(today);
  if (dayOfMonth(today) < startDay) start = start - 1;
  return {dayIn(start, startDay), dayIn(start + 1, startDay) - 1};
}

}  // namespace importer
