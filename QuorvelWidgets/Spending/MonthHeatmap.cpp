#include "QuorvelWidgets/Spending/MonthHeatmap.hpp"

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kCell = 26;
constexpr double kSpacing = 3;
constexpr double kPitch = kCell + kSpacing;
constexpr double kCorner = kCell * 0.25;
constexpr double kLetterHeight = 13;
constexpr double kLetterGap = 5;
constexpr double kFutureOpacity = 0.2;

int rowsOf(const std::vector<MonthCell>& cells) {
  return cells.empty() ? 0 : cells.back().row + 1;
}

double cellsHeight(const std::vector<MonthCell>& cells) {
  return cells.empty() ? 0 : rowsOf(cells) * kPitch - kSpacing;
}

/// Square where there is room; six rows on a small screen are flatter rather than cut off.
Length cellHeight(int rows) {
  return max(min((kHeight - kSpacing * (rows - 1)) / rows, kCell), 0);
}

std::vector<MonthCell> cellsOf(const MonthHeatmap& map) {
  return monthCells(map.daysInMonth, map.weekdayOfFirst, map.firstWeekday);
}

View weekdayLetters(const MonthHeatmap& map) {
  std::vector<View> letters;
  for (std::size_t column = 0; column < map.weekdayNames.size(); ++column) {
    const std::size_t weekday = (map.firstWeekday - 1 + column) % map.weekdayNames.size();
    letters.push_back(Text{map.weekdayNames[weekday]}
                          .font(10.5)
                          .lineLimit(1)
                          .minimumScaleFactor(0.8)
                          .language(map.lang)
                          .foregroundStyle(palette::textSecondary)
                          .frame(FixedFrame{.width = kCell, .height = kLetterHeight})
                          .offset(kPitch * static_cast<double>(column), 0));
  }
  return Canvas{std::move(letters)}.frame(
      FixedFrame{.width = MonthHeatmap::kMapWidth, .height = kLetterHeight});
}

// A day to come is hollow, so that the month does not seem to end today.
View dayCell(const MonthHeatmap& map, int day, double ratio) {
  const Color color = cellColor(ratio, map.heat, map.renderingMode);
  const Shape cell = RoundedRectangle(kCorner);
  if (day > map.today) {
    return cell.fill(color.withOpacity(kFutureOpacity)).overlay(cell.innerStroke(color, 1));
  }
  const View filled = cell.fill(color);
  return day < map.today ? filled : filled.overlay(cell.innerStroke(palette::textPrimary, 1));
}

}  // namespace

double MonthHeatmap::height() const {
  return kLetterHeight + kLetterGap + cellsHeight(cellsOf(*this));
}

View MonthHeatmap::body() const {
  const std::vector<MonthCell> cells = cellsOf(*this);
  const double top = topAmount({daily.data(), drawnDays(daily.size())});
  std::vector<View> days;
  days.reserve(cells.size());
  const Length height = cellHeight(rowsOf(cells));
  for (const MonthCell& cell : cells) {
    const bool known = cell.day <= static_cast<int>(drawnDays(daily.size()));
    const double ratio = known && cell.day <= today ? dayRatio(daily[cell.day - 1], top) : 0;
    days.push_back(dayCell(*this, cell.day, ratio)
                       .frame(FixedFrame{.width = kCell, .height = height})
                       .offset(kPitch * cell.column, (height + kSpacing) * cell.row));
  }
  const View map = Canvas{std::move(days)}
                       .frame(FixedFrame{.width = kMapWidth})
                       .frame(FlexibleFrame{.maxHeight = cellsHeight(cells)})
                       .accentable()
                       .privacySensitive(PrivacyTreatment::covered);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = kLetterGap},
      weekdayLetters(*this),
      map,
  }
      .accessibilityHidden();
}

}  // namespace quorvel
