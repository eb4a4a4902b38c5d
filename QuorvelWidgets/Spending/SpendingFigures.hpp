// The arithmetic of the spending charts and figures, apart from any view.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "ViewKit/Color.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// How many of a series' amounts are looked at: as many as the longest month has days.
[[nodiscard]] std::size_t drawnDays(std::size_t recorded);

/// Percent by which `spent` differs from last month's; nothing when that was not above 0.
[[nodiscard]] std::optional<double> changeAgainstLastMonth(
    const WidgetSnapshot::Spending& spending);

/// The same as it is written, with one decimal.
[[nodiscard]] std::optional<ChangeDescription> shownChange(
    const WidgetSnapshot::Spending& spending);

struct SpendingStatistics {
  double today;    ///< 0 when the series ends before today
  double average;  ///< a day, over the days so far, at least one
  double lastMonth;
  friend bool operator==(const SpendingStatistics&, const SpendingStatistics&) = default;
};
/// `today` is the day of the month, from 1.
[[nodiscard]] SpendingStatistics spendingStatistics(const WidgetSnapshot::Spending& spending,
                                                    int today);

/// The largest finite amount, but at least 1.
[[nodiscard]] double topAmount(std::span<const double> daily);

/// How high a day stands, 0...1: the square root lifts small days so that they stay visible. 0 for
/// what is not a positive finite amount.
[[nodiscard]] double dayRatio(double amount, double top);

/// The step 0...3 of a ratio above 0; a quarter itself belongs to the step below it.
[[nodiscard]] int heatLevel(double ratio);

template <class Number>
struct BarGeometry {
  Number width;  ///< of one bar
  Number gap;    ///< between two
  Number pitch;  ///< from one bar's leading edge to the next one's
};

/// Bars side by side over the whole width. The gap is at most half of a bar's share, so no bar's
/// width falls below 0 in a width that does not.
template <class Number>
[[nodiscard]] BarGeometry<Number> barGeometry(std::size_t count, const Number& width) {
  using std::min;
  const auto n = static_cast<double>(std::max<std::size_t>(count, 1));
  const Number gap = min(width / (2 * n), Number(1.5));
  return {(width - gap * (n - 1)) / n, gap, (width + gap) / n};
}

/// A day after today is a stub of 3, any other at least 4 of the chart's height.
template <class Number>
[[nodiscard]] Number barHeight(double ratio, bool isFuture, const Number& height) {
  using std::max;
  if (isFuture) return Number(3);
  return max(Number(4) + (height - Number(4)) * ratio, Number(4));
}

/// What a day's bar is drawn in. `day` and `today` count from 1.
[[nodiscard]] viewkit::Color barColor(double ratio,
                                      int day,
                                      int today,
                                      std::span<const viewkit::Color> heat,
                                      widgetruntime::RenderingMode mode);

/// What a day's cell is drawn in up to today. Unlike the bars it takes exactly four heat colours.
[[nodiscard]] viewkit::Color cellColor(double ratio,
                                       std::span<const viewkit::Color> heat,
                                       widgetruntime::RenderingMode mode);

/// A day's place in the month's grid of weeks.
struct MonthCell {
  int day;     ///< 1...31
  int column;  ///< 0...6
  int row;     ///< 0...5
  friend bool operator==(const MonthCell&, const MonthCell&) = default;
};
/// One cell per day. Weekdays count from 1 = Sunday; `weekdayOfFirst` is that of the month's first
/// day, `firstWeekday` the one in the first column.
[[nodiscard]] std::vector<MonthCell> monthCells(int daysInMonth,
                                                int weekdayOfFirst,
                                                int firstWeekday);

}  // namespace quorvel
