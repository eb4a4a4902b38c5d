// What every safe-to-spend layout draws from, and the pieces they share.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/SafeToSpend/BudgetPace.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendMetrics.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

inline constexpr viewkit::FontWeight kFigureWeight = viewkit::FontWeight::semibold;

struct SafeToSpendContent : AccentedContext {
  const WidgetSnapshot::Budget& budget;
  SafeToSpendMetrics metrics;
  BudgetPace pace;
  bool showsBackground = true;

  /// Of the verdict and of what is spent.
  [[nodiscard]] viewkit::Color paceColor() const { return colors.mark(pace.color); }
  [[nodiscard]] bool isLastDay() const { return !metrics.perDay.has_value(); }
  /// The share that meters and gauges show: none while amounts are hidden.
  [[nodiscard]] double visibleFraction() const { return isHidden() ? 0 : metrics.spentFraction; }
  /// The amount per day; on the last day the whole remainder.
  [[nodiscard]] double mainAmount() const { return metrics.perDay.value_or(metrics.remaining); }

  /// The whole percentage with its sign, as one figure.
  [[nodiscard]] viewkit::View percentage(double size, double leastScale = 0.8) const;
  /// "61% used".
  [[nodiscard]] std::string spokenPercentage() const;
  /// "$106 per day"; on the last day "$1,166 left".
  [[nodiscard]] std::string spokenMainAmount() const;
};

/// "$106 / day", on the last day "$1,166 left", beyond the budget "$210 over budget".
[[nodiscard]] std::string summaryText(const SafeToSpendContent& content);

/// What stands in the middle of a gauge that shows nothing because amounts are hidden.
[[nodiscard]] viewkit::View gaugeLock(const SafeToSpendContent& content, double size);

/// Days left in words: "12d left", "Last day".
[[nodiscard]] std::string dayPhrase(std::int64_t daysLeft, std::string_view lang);

/// The day phrase as it is read aloud: "12 days left".
[[nodiscard]] std::string spokenDayPhrase(const SafeToSpendContent& content);

/// The day phrase as a caption.
[[nodiscard]] viewkit::View dayCaption(const SafeToSpendContent& content, double size);

/// The widget's own header: bare symbol and title in a row of 14.5 points, higher when the title
/// takes a second line.
[[nodiscard]] viewkit::View safeToSpendHeader(const SafeToSpendContent& content,
                                              viewkit::Color symbol,
                                              viewkit::Color title,
                                              int lines = 1);

/// Fonts of an amount and its unit, which has the amount's colour unless another is named.
struct AmountStyle {
  double size = 0;
  double unitSize = 0;
  std::optional<viewkit::Color> unitColor;
  viewkit::FontWeight weight = kFigureWeight;
};

/// The main amount with its unit on the same baseline; the unit may be absent, and is left out
/// where the amount needs its room.
[[nodiscard]] viewkit::View amountWithUnit(const SafeToSpendContent& content,
                                           const std::optional<std::string>& unit,
                                           const AmountStyle& style);

/// The unit of an amount per day without a space before it: "/ day".
[[nodiscard]] std::string perDayLabel(const SafeToSpendContent& content);

/// Where the words of the remainder stand, from the fullest form to the barest.
enum class RemainderWords { beside, below, leftOut };

/// What is left, or by how much the budget is exceeded, in 12 points: beside each other amount and
/// words have one scale.
[[nodiscard]] viewkit::View remainder(const SafeToSpendContent& content, RemainderWords words);

}  // namespace quorvel
