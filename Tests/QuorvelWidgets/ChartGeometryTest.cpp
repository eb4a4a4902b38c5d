#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <span>

#include "QuorvelWidgets/NetWorth/ChartGeometry.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"

namespace quorvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Point = ChartPoint<double>;

/// As the chart draws them: over a width without its end inset, which is never below 0.
std::vector<Point> chartPoints(std::span<const double> values,
                               double width,
                               double height,
                               double endInset) {
  return chartPointsOver(values, std::max(width - endInset, 0.0), height);
}

MATCHER_P2(IsAt, x, y, "") {
  return std::abs(arg.x - x) < 1e-9 && std::abs(arg.y - y) < 1e-9;
}

TEST(ChartGeometry, ThreeValuesInAHundredByAHundredWithAnInsetOfTen) {
  EXPECT_THAT(chartPoints(std::vector{100.0, 200.0, 150.0}, 100, 100, 10),
              ElementsAre(IsAt(0, 80), IsAt(45, 18), IsAt(90, 49)));
}

TEST(ChartGeometry, NoValuesGiveNoPoints) {
  EXPECT_THAT(chartPoints({}, 100, 100, 5), IsEmpty());
}

TEST(ChartGeometry, OneValueStandsAtTheRightEndInTheMiddle) {
  EXPECT_THAT(chartPoints(std::vector{7.0}, 100, 50, 5), ElementsAre(IsAt(95, 24.5)));
}

TEST(ChartGeometry, EqualValuesGiveAFlatLineInTheMiddle) {
  EXPECT_THAT(chartPoints(std::vector{3.0, 3.0, 3.0}, 100, 100, 0),
              ElementsAre(IsAt(0, 49), IsAt(50, 49), IsAt(100, 49)));
}

TEST(ChartGeometry, ValuesLessThanOneApartFillTheBandToo) {
  EXPECT_THAT(chartPoints(std::vector{0.25, 0.75}, 100, 100, 0),
              ElementsAre(IsAt(0, 80), IsAt(100, 18)));
}

TEST(ChartGeometry, AWidthBelowTheInsetPutsEveryPointAtZero) {
  for (const Point& point : chartPoints(std::vector{1.0, 2.0, 3.0}, 4, 100, 10)) {
    EXPECT_EQ(point.x, 0);
  }
}

TEST(ChartGeometry, TheLargestDoublesDoNotOverflow) {
  constexpr double kMost = std::numeric_limits<double>::max();
  EXPECT_THAT(chartPoints(std::vector{-kMost, kMost, 0.0}, 100, 100, 0),
              ElementsAre(IsAt(0, 80), IsAt(50, 18), IsAt(100, 49)));
}

TEST(ChartGeometry, ValuesBelowZeroKeepTheirOrder) {
  EXPECT_THAT(chartPoints(std::vector{-10.0, -30.0}, 10, 100, 0),
              ElementsAre(IsAt(0, 18), IsAt(10, 80)));
}

TEST(ChartLabels, CountBackFromThePresentInEqualSteps) {
  EXPECT_THAT(labelledPoints(0), IsEmpty());
  EXPECT_THAT(labelledPoints(1), ElementsAre(0));
  EXPECT_THAT(labelledPoints(2), ElementsAre(0, 1));
  EXPECT_THAT(labelledPoints(7), ElementsAre(0, 1, 2, 3, 4, 5, 6));
  // Eleven steps need ceil(11 / 6) = 2 a label.
  EXPECT_THAT(labelledPoints(12), ElementsAre(1, 3, 5, 7, 9, 11));
  EXPECT_THAT(labelledPoints(13), ElementsAre(0, 2, 4, 6, 8, 10, 12));
}

TEST(ChartLabels, AreNeverMoreThanSeven) {
  for (std::size_t count = 1; count <= 240; ++count) {
    const auto labels = labelledPoints(count);
    EXPECT_LE(labels.size(), 7U) << count;
    EXPECT_EQ(labels.back(), count - 1) << count;
  }
}

std::vector<std::string> monthsFrom(int year, int month, int count) {
  std::vector<std::string> months;
  for (int i = month - 1; i < month - 1 + count; ++i) {
    months.push_back(std::to_string(year + i / 12) + "-" + std::to_string(i % 12 + 101).substr(1));
  }
  return months;
}

TEST(ChartLabels, ALongHistoryIsLabelledAtEachJanuary) {
  EXPECT_THAT(labelledYears(monthsFrom(2024, 3, 13)), ElementsAre(10));
  EXPECT_THAT(labelledYears(monthsFrom(2020, 1, 60)), ElementsAre(0, 12, 24, 36, 48));
  EXPECT_THAT(labelledYears(monthsFrom(2020, 3, 60)), ElementsAre(10, 22, 34, 46, 58));
}

TEST(ChartLabels, YearsThatWouldTouchAreLeftOutInEqualSteps) {
  // 12.8 points per year on the narrowest chart: 27 and a gap of 7 take every third.
  EXPECT_THAT(labelledYears(monthsFrom(2005, 1, 240)), ElementsAre(12, 48, 84, 120, 156, 192, 228));
}

TEST(ChartLabels, MalformedMonthsHaveNoYears) {
  EXPECT_THAT(labelledYears(std::vector<std::string>(20, "January")), IsEmpty());
}

WidgetSnapshot::NetWorth netWorthOf(double value,
                                    std::optional<double> change,
                                    std::vector<WidgetSnapshot::NetWorth::Point> history) {
  WidgetSnapshot::NetWorth netWorth;
  netWorth.value = value;
  netWorth.changePercent = change;
  netWorth.history = std::move(history);
  return netWorth;
}

TEST(NetWorthComparison, NamesTheMonthThatBearsThePercentageOut) {
  // (110 - 100) / 100 = 10 %.
  EXPECT_EQ(comparedMonth(netWorthOf(110, 10.04, {{"2025-02", 100}, {"2025-03", 110}})), "2025-02");
  EXPECT_EQ(comparedMonth(netWorthOf(-110, -10, {{"2025-02", -100}, {"2025-03", -110}})),
            "2025-02");
}

TEST(NetWorthComparison, IsSilentWhereItWouldNotBeTrue) {
  EXPECT_EQ(comparedMonth(netWorthOf(110, 11, {{"2025-02", 100}, {"2025-03", 110}})), std::nullopt);
  EXPECT_EQ(comparedMonth(netWorthOf(110, -10, {{"2025-02", 100}, {"2025-03", 110}})),
            std::nullopt);
  EXPECT_EQ(comparedMonth(netWorthOf(110, 10, {{"2025-03", 110}})), std::nullopt);
  EXPECT_EQ(comparedMonth(netWorthOf(110, std::nullopt, {{"2025-02", 100}, {"2025-03", 110}})),
            std::nullopt);
  EXPECT_EQ(comparedMonth(netWorthOf(110, 10, {{"2025-02", 0}, {"2025-03", 110}})), std::nullopt);
}

}  // namespace
}  // namespace quorvel
