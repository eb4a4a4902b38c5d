// What every spending layout draws from, and the pieces they share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.hpp"
#include "QuorvelWidgets/Spending/DailyBars.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

struct SpendingContent : AccentedContext {
  const WidgetSnapshot::Spending& spending;
  foundation::DateComponents today;
  int weekdayOfFirst = 1;  ///< of the month, 1 = Sunday
  int daysInMonth = 31;

  [[nodiscard]] DailyBars bars() const;
  /// The colour of the top category's mark.
  [[nodiscard]] viewkit::Color categoryColor() const;
  /// Change against last month in words, or that amounts are hidden; empty without a comparison.
  [[nodiscard]] viewkit::View comparisonLine() const;
  /// The same without words, for where these have no room.
  [[nodiscard]] viewkit::View comparisonFigure() const;
  /// Title, name and amount of the top category, as a person would say them.
  [[nodiscard]] viewkit::Accessibility spokenCategory() const;
  /// The user's own name for the top category.
  [[nodiscard]] viewkit::Text categoryName(double size) const;

 private:
  [[nodiscard]] viewkit::View comparison(viewkit::View words) const;
};

[[nodiscard]] viewkit::View spendingSmall(const SpendingContent& content);
[[nodiscard]] viewkit::View spendingMedium(const SpendingContent& content);
[[nodiscard]] viewkit::View spendingLarge(const SpendingContent& content);

}  // namespace quorvel
