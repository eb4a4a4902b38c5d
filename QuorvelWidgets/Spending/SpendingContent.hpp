// What every spending layout draws from, and the pieces they share.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.hpp"
#include "QuorvelWidgets/Spending/DailyBars.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

inline constexpr std::string_view kSpendingSymbol = "cart.fill";

struct SpendingContent {
  WidgetSnapshot snapshot;  ///< its `isHidden` is the effective privacy
  const WidgetSnapshot::Spending& spending;
  WAccent accent;
  widgetruntime::Environment environment;
  ModeColors colors{environment.widgetRenderingMode};
  foundation::DateComponents today;
  int weekdayOfFirst = 1;  ///< of the month, 1 = Sunday
  int daysInMonth = 31;

  [[nodiscard]] std::string text(TextKey key) const;
  /// A caption: one line in the snapshot's language.
  [[nodiscard]] viewkit::Text caption(std::string text, double size, double leastScale) const;
  [[nodiscard]] viewkit::View header(bool compact) const;
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
