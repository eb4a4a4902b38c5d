// Whether the spending runs ahead of the calendar.
#pragma once

#include <cstdint>
#include <string_view>

#include "Foundation/Calendar.hpp"
#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/Color.hpp"

namespace quorvel {

enum class PaceVerdict : std::uint8_t { good, warning, critical };

struct BudgetPace {
  PaceVerdict verdict = PaceVerdict::good;
  TextKey key;  ///< of the verdict's text
  viewkit::Color color;

  friend bool operator==(const BudgetPace&, const BudgetPace&) = default;
};

/// The verdict with its text key and colour.
[[nodiscard]] BudgetPace describePace(PaceVerdict verdict);

/// Today is `now` in the calendar's zone, and counts as elapsed.
[[nodiscard]] BudgetPace budgetPace(const WidgetSnapshot::Budget& budget,
                                    foundation::Instant now,
                                    const foundation::Calendar& calendar);

}  // namespace quorvel
