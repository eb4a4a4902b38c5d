#include "QuorvelWidgets/Spending/MonthHeatmap.hpp"

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kCell = 26;
constexpr double kSpacing = 3;
constexpr double kCorner = 0.25;  ///< of a cell
constexpr int kColumns = 7;
constexpr double kLetterHeight = 13;
constexpr double kLetterGap = 5;
constexpr double kHeader = kLetterHeight + kLetterGap;
constexpr double kFutureOpacity = 0.2;

int rowsOf(const std::vector<MonthCell>& cells) {
  return cells.empty() ? 0 : cells.back().row + 1;
}

/// How much `count` cells and the gaps between them take.
template <class Number>
Number extent(const Number& cell, int count) {
  return cell * count + kSpacing * std::max(count - 1, 0);
}

/// A cell's side in a map of the proposed height.
Length cellInHeight(int rows) {
  return max(min((kHeight - kHeader - kSpacing * (rows - 1)) / rows, kCell), 0);
}

/// A cell's side in a map of the proposed width, which follows from its height.
Length cellInWidth() {
  return (kWidth - kSpacing * (kColumns - 1)) / kColumns;
}

std::vector<MonthCell> cellsOf(const MonthHeatmap& map) {
  return monthCells(map.daysInMonth, map.weekdayOfFirst, map.firstWeekday);
}

View weekdayLetters(const MonthHeatmap& map, const ModeColors& colors) {
  const Length cell = cellInWidth();
  std::vector<View> letters;
  for (std::size_t column = 0; column < map.weekdayNames.size(); ++column) {
    const std::size_t weekday = (map.firstWeekday - 1 + column) % map.weekdayNames.size();
    letters.push_back(Text{map.weekdayNames[weekday]}
                          .font(10.5)
                          .lineLimit(1)
                          .minimumScaleFactor(0.8)
                          .language(map.lang)
                          .foregroundStyle(colors.caption())
                          .frame(FixedFrame{.width = cell, .height = kLetterHeight})
                          .offset((cell + kSpacing) * static_cast<double>(column), 0));
  }
  return Canvas{std::move(letters)}.frame(FixedFrame{.height = kLetterHeight});
}

/// A line inside the border, a gap of the canvas, and the day's colour.
View todayCell(const Color& color, const ModeColors& colors) {
  constexpr double kInset = 2;
  const View line = RoundedRectangle(kWidth * kCorner).innerStroke(colors.text(), 1);
  return RoundedRectangle(max(kWidth * kCorner + (kCorner * 2 - 1) * kInset, 0))
      .fill(color)
      .padding(kInset)
      .overlay(line);
}

// A day to come is hollow, so that the month does not seem to end today.
View dayCell(const MonthHeatmap& map, int day, double ratio) {
  const Color color = cellColor(ratio, map.heat, map.renderingMode);
  if (day == map.today) return todayCell(color, ModeColors{map.renderingMode});
  const Shape cell = RoundedRectangle(kWidth * kCorner);
  if (day < map.today) return cell.fill(color);
  return cell.fill(color.withOpacity(kFutureOpacity)).overlay(cell.innerStroke(color, 1));
}

View dayCells(const MonthHeatmap& map, const std::vector<MonthCell>& cells) {
  const std::size_t drawn = drawnDays(map.daily.size());
  const double top = topAmount({map.daily.data(), drawn});
  const Length side = cellInWidth();
  std::vector<View> days;
  days.reserve(cells.size());
  for (const MonthCell& cell : cells) {
    const bool known = cell.day <= static_cast<int>(drawn) && cell.day <= map.today;
    const double ratio = known ? dayRatio(map.daily[cell.day - 1], top) : 0;
    days.push_back(dayCell(map, cell.day, ratio)
                       .frame(FixedFrame{.width = side, .height = side})
                       .offset((side + kSpacing) * cell.column, (side + kSpacing) * cell.row));
  }
  return Canvas{std::move(days)}
      .frame(FixedFrame{.height = extent(side, rowsOf(cells))})
      .privacySensitive(PrivacyTreatment::covered);
}

}  // namespace

double MonthHeatmap::height() const {
  return kHeader + extent(kCell, rowsOf(cellsOf(*this)));
}

View MonthHeatmap::body() const {
  const std::vector<MonthCell> cells = cellsOf(*this);
  const Length side = cellInHeight(rowsOf(cells));
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = kLetterGap},
      weekdayLetters(*this, ModeColors{renderingMode}),
      dayCells(*this, cells),
  }
      .frame(FixedFrame{.width = extent(side, kColumns),
                        .height = extent(side, rowsOf(cells)) + kHeader,
                        .alignment = Alignment::topLeading})
      .accessibilityHidden();
}

}  // namespace quorvel
