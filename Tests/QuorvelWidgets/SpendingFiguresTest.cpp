#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "ViewKit/Length.hpp"

namespace quorvel {
namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::SizeIs;
using viewkit::Color;
using widgetruntime::RenderingMode;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

std::vector<Color> heatOf(std::size_t count) {
  std::vector<Color> heat;
  for (viewkit::Rgb i = 0; i < count; ++i) heat.push_back(Color::same(0x100000 + i));
  return heat;
}

Color full(double ratio, int day, int today, std::size_t heatCount = 4) {
  return barColor(ratio, day, today, heatOf(heatCount), RenderingMode::fullColor);
}

TEST(DailyBars, FourDaysOnTheThirdDayOfAHundredPoints) {
  const std::vector<double> daily{100, 0, 400, 25};
  const auto geometry = barGeometry<double>(daily.size(), 100);
  EXPECT_DOUBLE_EQ(geometry.gap, 1.5);
  EXPECT_DOUBLE_EQ(geometry.width, 23.875);
  EXPECT_DOUBLE_EQ(geometry.pitch, 25.375);
  const double top = topAmount(daily);
  EXPECT_EQ(top, 400);
  EXPECT_DOUBLE_EQ(dayRatio(daily[0], top), 0.5);
  EXPECT_EQ(dayRatio(daily[1], top), 0);
  EXPECT_EQ(dayRatio(daily[2], top), 1);
  EXPECT_EQ(barHeight<double>(0.25, true, 30), 3);
  EXPECT_EQ(full(0.5, 1, 3), heatOf(4)[1]);
  EXPECT_EQ(full(0, 2, 3), palette::cellEmpty);
  EXPECT_EQ(full(1, 3, 3), palette::textPrimary);
  EXPECT_EQ(full(0.25, 4, 3), palette::cellEmpty);
}

TEST(DailyBars, ANarrowChartHalvesTheShareForItsGap) {
  const auto geometry = barGeometry<double>(31, 31);
  EXPECT_DOUBLE_EQ(geometry.gap, 0.5);
  EXPECT_DOUBLE_EQ(geometry.width, 16.0 / 31);
}

TEST(DailyBars, NoAmountsAreMeasuredAsOneBar) {
  const auto geometry = barGeometry<double>(0, 100);
  EXPECT_DOUBLE_EQ(geometry.width, 100);
  EXPECT_DOUBLE_EQ(geometry.gap, 1.5);
}

TEST(DailyBars, NoWidthGivesNoBars) {
  EXPECT_EQ(barGeometry<double>(31, 0).width, 0);
  EXPECT_EQ(barGeometry<double>(31, 0).gap, 0);
}

TEST(DailyBars, RelativeLengthsSayTheSameAsNumbers) {
  const auto lengths = barGeometry<viewkit::Length>(31, viewkit::kWidth);
  for (const double width : {0.0, 10.0, 93.0, 138.0, 332.0}) {
    const auto numbers = barGeometry<double>(31, width);
    EXPECT_NEAR(lengths.width.resolve(width, 30), numbers.width, 1e-9) << width;
    EXPECT_NEAR(lengths.pitch.resolve(width, 30), numbers.pitch, 1e-9) << width;
  }
  for (const double height : {0.0, 3.0, 30.0}) {
    const auto length = barHeight<viewkit::Length>(0.7, false, viewkit::kHeight);
    EXPECT_NEAR(length.resolve(100, height), barHeight<double>(0.7, false, height), 1e-9);
  }
}

TEST(DailyBars, APastDayIsAtLeastFourHigh) {
  EXPECT_EQ(barHeight<double>(0, false, 30), 4);
  EXPECT_EQ(barHeight<double>(1, false, 30), 30);
  EXPECT_EQ(barHeight<double>(0.5, false, 30), 17);
  EXPECT_EQ(barHeight<double>(1, false, 2), 4);
}

TEST(DailyBars, AmountsBelowOneAreMeasuredAgainstOne) {
  EXPECT_EQ(topAmount(std::vector{0.25, 0.64}), 1);
  EXPECT_DOUBLE_EQ(dayRatio(0.25, 1), 0.5);
  EXPECT_DOUBLE_EQ(dayRatio(0.64, 1), 0.8);
}

TEST(DailyBars, AMonthHasAtMostThirtyOneDays) {
  EXPECT_EQ(drawnDays(28), 28U);
  EXPECT_EQ(drawnDays(31), 31U);
  EXPECT_EQ(drawnDays(40), 31U);
}

TEST(MonthHeatmap, AnAmountAboveTheTopFillsItsDay) {
  EXPECT_EQ(dayRatio(8, 4), 1);
}

TEST(MonthHeatmap, WithoutATopEveryDayIsEmpty) {
  EXPECT_EQ(dayRatio(8, 0), 0);
}

TEST(DailyBars, NonFiniteAmountsAreEmptyDays) {
  EXPECT_EQ(topAmount(std::vector{kNaN, kInf, 7.0}), 7);
  EXPECT_EQ(topAmount({}), 1);
  EXPECT_EQ(dayRatio(kNaN, 7), 0);
  EXPECT_EQ(dayRatio(kInf, 7), 0);
  EXPECT_EQ(dayRatio(-3, 7), 0);
}

TEST(HeatLevels, AQuarterStepBelongsToTheLevelBelowIt) {
  EXPECT_EQ(heatLevel(1.0), 3);
  EXPECT_EQ(heatLevel(0.75), 2);
  EXPECT_EQ(heatLevel(0.5), 1);
  EXPECT_EQ(heatLevel(0.25), 0);
  EXPECT_EQ(heatLevel(0.2501), 1);
  EXPECT_EQ(heatLevel(0.01), 0);
}

TEST(HeatLevels, AStepBeginsATenThousandthLate) {
  // 4 x 0.25002 - 0.0001 = 0.99998, 4 x 0.25003 - 0.0001 = 1.00002.
  EXPECT_EQ(heatLevel(0.25002), 0);
  EXPECT_EQ(heatLevel(0.25003), 1);
}

TEST(HeatLevels, ThereIsNoneAboveTheFourth) {
  EXPECT_EQ(heatLevel(1.25), 3);
}

TEST(HeatColours, AnEmptyDayOfTheMapHasTheEmptyColour) {
  EXPECT_EQ(cellColor(0, heatOf(4), RenderingMode::fullColor), palette::cellEmpty);
}

TEST(HeatColours, BarsTakeFourOrMoreAndTheMapExactlyFour) {
  const std::size_t count = 5;
  EXPECT_EQ(full(0.5, 1, 3, count), heatOf(count)[1]);
  EXPECT_EQ(cellColor(0.5, heatOf(count), RenderingMode::fullColor), palette::cellEmpty);
  EXPECT_EQ(cellColor(0.5, heatOf(4), RenderingMode::fullColor), heatOf(4)[1]);
  for (const std::size_t few : {0, 3}) {
    EXPECT_EQ(full(0.5, 1, 3, few), palette::cellEmpty);
    EXPECT_EQ(cellColor(0.5, heatOf(few), RenderingMode::fullColor), palette::cellEmpty);
  }
}

TEST(HeatColours, AnAccentedHostGetsOpacities) {
  const auto bar = [](double ratio, int day) {
    return barColor(ratio, day, 10, heatOf(4), RenderingMode::accented);
  };
  EXPECT_EQ(bar(0.3, 10), Color::primary());
  EXPECT_EQ(bar(0.3, 11), Color::primary().withOpacity(0.12));
  EXPECT_EQ(bar(0.5, 9), Color::primary().withOpacity(0.5));
  EXPECT_EQ(bar(0, 9), Color::primary().withOpacity(0.25));
  const auto cell = [](double ratio) {
    return cellColor(ratio, heatOf(4), RenderingMode::accented);
  };
  EXPECT_EQ(cell(0), Color::primary().withOpacity(0.1));
  EXPECT_EQ(cell(0.5), Color::primary().withOpacity(0.55));
}

WidgetSnapshot::Spending spendingOf(double spent,
                                    double lastMonth,
                                    std::vector<double> daily = {}) {
  WidgetSnapshot::Spending spending;
  spending.spent = spent;
  spending.lastMonthSpent = lastMonth;
  spending.daily = std::move(daily);
  return spending;
}

TEST(SpendingChange, IsTheDifferenceInPercentOfLastMonth) {
  EXPECT_THAT(changeAgainstLastMonth(spendingOf(120, 100)), ::testing::Optional(DoubleEq(20)));
  EXPECT_THAT(changeAgainstLastMonth(spendingOf(50, 200)), ::testing::Optional(DoubleEq(-75)));
  EXPECT_THAT(changeAgainstLastMonth(spendingOf(1, 0.5)), ::testing::Optional(DoubleEq(100)));
}

TEST(SpendingChange, NothingWasSpentLastMonth) {
  EXPECT_EQ(changeAgainstLastMonth(spendingOf(120, 0)), std::nullopt);
  EXPECT_EQ(changeAgainstLastMonth(spendingOf(120, -5)), std::nullopt);
}

TEST(SpendingStatistics, TodayIsItsOwnEntryOrNothing) {
  const auto spending = spendingOf(60, 90, {10, 20, 30});
  EXPECT_EQ(spendingStatistics(spending, 1), (SpendingStatistics{10, 60, 90}));
  EXPECT_EQ(spendingStatistics(spending, 2), (SpendingStatistics{20, 30, 90}));
  EXPECT_EQ(spendingStatistics(spending, 3), (SpendingStatistics{30, 20, 90}));
  // The series ends before today: its length counts as the days so far.
  EXPECT_EQ(spendingStatistics(spending, 20), (SpendingStatistics{0, 20, 90}));
}

TEST(SpendingStatistics, AnEmptySeriesIsAveragedOverOneDay) {
  EXPECT_EQ(spendingStatistics(spendingOf(60, 90), 14), (SpendingStatistics{0, 60, 90}));
}

TEST(MonthCells, TheFirstWeekStartsAtTheMonthsWeekday) {
  // March 2025 began on a Saturday (7); with Sunday first it has six rows, with Monday first too.
  const auto sundayFirst = monthCells(31, 7, 1);
  ASSERT_THAT(sundayFirst, SizeIs(31));
  EXPECT_EQ(sundayFirst.front(), (MonthCell{1, 6, 0}));
  EXPECT_EQ(sundayFirst[1], (MonthCell{2, 0, 1}));
  EXPECT_EQ(sundayFirst.back(), (MonthCell{31, 1, 5}));
  const auto mondayFirst = monthCells(31, 7, 2);
  EXPECT_EQ(mondayFirst.front(), (MonthCell{1, 5, 0}));
  EXPECT_EQ(mondayFirst.back(), (MonthCell{31, 0, 5}));
}

TEST(MonthCells, AFebruaryThatStartsOnTheFirstWeekdayFillsFourRows) {
  const auto cells = monthCells(28, 1, 1);
  ASSERT_THAT(cells, SizeIs(28));
  EXPECT_EQ(cells.front(), (MonthCell{1, 0, 0}));
  EXPECT_EQ(cells.back(), (MonthCell{28, 6, 3}));
}

TEST(MonthCells, DaysOutsideTheMonthHaveNone) {
  EXPECT_THAT(monthCells(0, 3, 1), SizeIs(0));
}

}  // namespace
}  // namespace quorvel
