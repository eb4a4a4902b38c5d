#include "QuorvelWidgets/SafeToSpend/SafeToSpendMetrics.hpp"

#include <algorithm>
#include <cmath>

#include "Foundation/DayString.hpp"

namespace quorvel {

std::optional<SafeToSpendMetrics> makeSafeToSpendMetrics(double total,
                                                         double spent,
                                                         std::string_view periodEnd,
                                                         foundation::Instant now,
                                                         const foundation::Calendar& calendar) {
  const auto days = foundation::daysBetween(periodEnd, now, calendar);
  if (!days || *days < 0) return std::nullopt;

  const double remaining = std::max(total - spent, 0.0);
  // Today does not count: on the day before the last one the remainder is for one day, not two.
  const auto perDay =
      *days != 0 ? std::optional(remaining / static_cast<double>(*days)) : std::nullopt;
  return SafeToSpendMetrics{.remaining = remaining,
                            .perDay = perDay,
                            .daysLeft = *days,
                            .spentFraction = total > 0 ? std::clamp(spent / total, 0.0, 1.0) : 0};
}

bool isExceeded(const WidgetSnapshot::Budget& budget) {
  return budget.spent > budget.total;
}

std::int64_t wholePercent(double fraction) {
  return static_cast<std::int64_t>(std::round(fraction * 100));
}

}  // namespace quorvel
