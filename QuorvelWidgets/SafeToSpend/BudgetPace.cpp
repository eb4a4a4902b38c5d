#include "QuorvelWidgets/SafeToSpend/BudgetPace.hpp"

#include <algorithm>
#include <optional>

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"

namespace quorvel {

namespace {

std::optional<foundation::Instant> startOf(std::string_view text,
                                           const foundation::Calendar& calendar) {
  const auto day = foundation::parseDayString(text);
  return day ? calendar.date(day->year, day->month, day->day) : std::nullopt;
}

/// The share of the period that has passed, in percent, today included; nothing for a period that
/// cannot be measured. Day counts stay within the calendar's range, far from overflow.
std::optional<double> elapsedPercent(const WidgetSnapshot::Budget& budget,
                                     foundation::Instant now,
                                     const foundation::Calendar& calendar) {
  if (!budget.periodStart) return std::nullopt;
  const foundation::Instant start = startOf(*budget.periodStart, calendar).value_or(now);
  const auto span = foundation::daysBetween(budget.periodEnd, start, calendar);
  const auto toEnd = foundation::daysBetween(budget.periodEnd, now, calendar);
  if (!span || !toEnd) return std::nullopt;
  const std::int64_t totalDays = *span + 1;
  const std::int64_t elapsedDays = totalDays - *toEnd;
  return static_cast<double>(elapsedDays) /
         static_cast<double>(std::max<std::int64_t>(totalDays, 1)) * 100;
}

PaceVerdict verdict(const WidgetSnapshot::Budget& budget,
                    foundation::Instant now,
                    const foundation::Calendar& calendar) {
  if (budget.total <= 0) return PaceVerdict::good;
  const double percent = budget.spent / budget.total * 100;
  if (percent >= 100) return PaceVerdict::critical;
  if (const auto elapsed = elapsedPercent(budget, now, calendar)) {
    const double ahead = percent - *elapsed;
    if (ahead <= 20) return ahead > 5 ? PaceVerdict::warning : PaceVerdict::good;
    return PaceVerdict::critical;  // also for what is not a number
  }
  return percent >= 90 ? PaceVerdict::warning : PaceVerdict::good;
}

}  // namespace

BudgetPace describePace(PaceVerdict verdict) {
  switch (verdict) {
    case PaceVerdict::warning:
      return {verdict, "paceWarning", palette::statusWarning};
    case PaceVerdict::critical:
      return {verdict, "paceCritical", palette::statusCritical};
    case PaceVerdict::good:
      break;
  }
  return {PaceVerdict::good, "paceGood", palette::statusGood};
}

BudgetPace budgetPace(const WidgetSnapshot::Budget& budget,
                      foundation::Instant now,
                      const foundation::Calendar& calendar) {
  return describePace(verdict(budget, now, calendar));
}

}  // namespace quorvel
