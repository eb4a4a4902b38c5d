#include "QuorvelWidgets/Spending/SpendingFigures.hpp"

#include <cmath>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"

namespace quorvel {

using viewkit::Color;
using widgetruntime::RenderingMode;

std::size_t drawnDays(std::size_t recorded) {
  constexpr std::size_t kLongestMonth = 31;
  return std::min(recorded, kLongestMonth);
}

std::optional<double> changeAgainstLastMonth(const WidgetSnapshot::Spending& spending) {
  if (!(spending.lastMonthSpent > 0)) return std::nullopt;
  return (spending.spent - spending.lastMonthSpent) / spending.lastMonthSpent * 100;
}

std::optional<ChangeDescription> shownChange(const WidgetSnapshot::Spending& spending) {
  const auto percent = changeAgainstLastMonth(spending);
  return percent ? describeChange(*percent, 1, /*favorableWhenPositive=*/false) : std::nullopt;
}

SpendingStatistics spendingStatistics(const WidgetSnapshot::Spending& spending, int today) {
  const int recorded = static_cast<int>(drawnDays(spending.daily.size()));
  return {.today = today >= 1 && today <= recorded ? spending.daily[today - 1] : 0,
          .average = spending.spent / std::max(std::min(today, recorded), 1),
          .lastMonth = spending.lastMonthSpent};
}

double topAmount(std::span<const double> daily) {
  double top = 1;
  for (const double amount : daily) {
    if (std::isfinite(amount)) top = std::max(top, amount);
  }
  return top;
}

double dayRatio(double amount, double top) {
  if (!std::isfinite(amount) || amount <= 0 || !(top > 0)) return 0;
  return std::sqrt(std::min(amount / top, 1.0));
}

int heatLevel(double ratio) {
  return std::min(static_cast<int>(ratio * 4 - 0.0001), 3);
}

Color barColor(double ratio, int day, int today, std::span<const Color> heat, RenderingMode mode) {
  if (mode != RenderingMode::fullColor) {
    if (day == today) return Color::primary();
    return Color::primary().withOpacity(day > today ? 0.12 : ratio * 0.5 + 0.25);
  }
  if (day == today) return palette::textPrimary;
  if (day > today || ratio == 0 || heat.size() < 4) return palette::cellEmpty;
  return heat[heatLevel(ratio)];
}

Color cellColor(double ratio, std::span<const Color> heat, RenderingMode mode) {
  if (mode != RenderingMode::fullColor) {
    return Color::primary().withOpacity(ratio > 0 ? ratio * 0.6 + 0.25 : 0.1);
  }
  return ratio > 0 && heat.size() == 4 ? heat[heatLevel(ratio)] : palette::cellEmpty;
}

std::vector<MonthCell> monthCells(int daysInMonth, int weekdayOfFirst, int firstWeekday) {
  const int blanks = (weekdayOfFirst - firstWeekday + 7) % 7;
  std::vector<MonthCell> cells;
  for (int day = 1; day <= daysInMonth; ++day) {
    const int place = blanks + day - 1;
    cells.push_back({day, place % 7, place / 7});
  }
  return cells;
}

}  // namespace quorvel
