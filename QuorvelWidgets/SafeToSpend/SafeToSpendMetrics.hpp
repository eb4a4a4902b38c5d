// What is left of a budget, per day and in all.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Foundation/Calendar.hpp"
#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

struct SafeToSpendMetrics {
  double remaining;              ///< never below 0
  std::optional<double> perDay;  ///< absent on the period's last day
  std::int64_t daysLeft;         ///< whole days after today; 0 on the last day
  double spentFraction;          ///< 0...1

  friend bool operator==(const SafeToSpendMetrics&, const SafeToSpendMetrics&) = default;
};

/// Today is `now` in the calendar's zone. Nothing when the period's end cannot be read or is past.
[[nodiscard]] std::optional<SafeToSpendMetrics> makeSafeToSpendMetrics(
    double total,
    double spent,
    std::string_view periodEnd,
    foundation::Instant now,
    const foundation::Calendar& calendar);

/// More is spent than the budget holds; spending all of it does not exceed it.
[[nodiscard]] bool isExceeded(const WidgetSnapshot::Budget& budget);

/// A fraction in 0...1 as whole percent, halves away from zero.
[[nodiscard]] std::int64_t wholePercent(double fraction);

}  // namespace quorvel
