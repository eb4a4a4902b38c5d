#include "QuorvelWidgets/SafeToSpend/SafeToSpendMetrics.hpp"

#include <cmath>

#include "Foundation/DayString.hpp"

namespace quorvel {

namespace {

double spentFraction(double total, double spent) {
  if (!(total > 0)) return 0;
  const double fraction = spent / total;
  if (fraction <= 0) return 0;
  return fraction > 1 ? 1 : fraction;
}

}  // namespace

std::optional<SafeToSpendMetrics> makeSafeToSpendMetrics(double total,
                                                         double spent,
                                                         std::string_view periodEnd,
                                                         foundation::Instant now,
                                                         const foundation::Calendar& calendar) {
  const auto days = foundation::daysBetween(periodEnd, now, calendar);
  if (!days || *days < 0) return std::nullopt;

  SafeToSpendMetrics metrics;
  metrics.remaining = total - spent > 0 ? total - spent : 0;
  metrics.spentFraction = spentFraction(total, spent);
  // Today does not count: on the day before the last one the remainder is for one day, not two.
  if (*days != 0) metrics.perDay = metrics.remaining / static_cast<double>(*days);
  metrics.daysLeft = *days;
  return metrics;
}

bool isExceeded(const WidgetSnapshot::Budget& budget) {
  return budget.spent > budget.total;
}

std::int64_t wholePercent(double fraction) {
  return static_cast<std::int64_t>(std::round(fraction * 100));
}

}  // namespace quorvel
