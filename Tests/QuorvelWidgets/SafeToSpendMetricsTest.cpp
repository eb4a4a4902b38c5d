#include <gtest/gtest.h>

#include "QuorvelWidgets/SafeToSpend/BudgetPace.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendContent.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendMetrics.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"

namespace quorvel {
namespace {

const foundation::Calendar& calendar() {
  static const foundation::Calendar kCalendar{foundation::TimeZone{}};
  return kCalendar;
}

// The present is 14 March 2025: 24 March is 10 days after it, 22 February 20 days before it.
constexpr const char* kTenDaysAfter = "2025-03-24";
constexpr const char* kTwentyDaysBefore = "2025-02-22";

auto metrics(double total, double spent, std::string_view periodEnd) {
  return makeSafeToSpendMetrics(
      total, spent, periodEnd, testsupport::marchFourteenth(), calendar());
}

PaceVerdict verdict(double total,
                    double spent,
                    std::string periodEnd,
                    std::optional<std::string> periodStart = std::nullopt) {
  return budgetPace(
             testsupport::budgetOf(total, spent, std::move(periodEnd), std::move(periodStart)),
             testsupport::marchFourteenth(),
             calendar())
      .verdict;
}

TEST(SafeToSpendMetrics, TenDaysBeforeTheEndWith400Of1000Spent) {
  EXPECT_EQ(metrics(1000, 400, kTenDaysAfter), (SafeToSpendMetrics{600, 60, 10, 0.4}));
  EXPECT_EQ(verdict(1000, 400, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::good);
}

TEST(BudgetPace, Spent900Of1000IsCritical) {
  EXPECT_EQ(verdict(1000, 900, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::critical);
}

TEST(BudgetPace, Spent800Of1000IsAWarning) {
  EXPECT_EQ(verdict(1000, 800, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::warning);
}

TEST(BudgetPace, FivePointsAheadOrLessIsGood) {
  // 21 of 31 days are 67.742 %.
  EXPECT_EQ(verdict(1000, 727.4, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::good);
  EXPECT_EQ(verdict(1000, 727.5, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::warning);
}

TEST(BudgetPace, FiveAndTwentyPointsAheadBelongToTheMilderVerdict) {
  // Three of four days have passed: 75 %.
  const auto ahead = [](double spent) { return verdict(100, spent, "2025-03-15", "2025-03-12"); };
  EXPECT_EQ(ahead(80), PaceVerdict::good);
  EXPECT_EQ(ahead(80.5), PaceVerdict::warning);
  EXPECT_EQ(ahead(95), PaceVerdict::warning);
  EXPECT_EQ(ahead(95.5), PaceVerdict::critical);
}

TEST(SafeToSpendMetrics, OnTheLastDayThereIsNoAmountPerDay) {
  EXPECT_EQ(metrics(1000, 400, "2025-03-14"), (SafeToSpendMetrics{600, std::nullopt, 0, 0.4}));
  EXPECT_EQ(dayPhrase(0, "en"), "Last day");
}

TEST(SafeToSpendMetrics, AreAbsentOnceThePeriodIsOver) {
  EXPECT_EQ(metrics(1000, 400, "2025-03-13"), std::nullopt);
}

TEST(SafeToSpendMetrics, AreAbsentForAnUnreadableEnd) {
  for (const char* end : {"", "2025-03", "2025-03-x", "2025-03-14T00:00:00", "soon"}) {
    EXPECT_EQ(metrics(1000, 400, end), std::nullopt) << end;
  }
}

TEST(SafeToSpendMetrics, OverspendingLeavesNothing) {
  EXPECT_EQ(metrics(1000, 1210, kTenDaysAfter), (SafeToSpendMetrics{0, 0, 10, 1}));
  EXPECT_EQ(verdict(1000, 1210, kTenDaysAfter, kTwentyDaysBefore), PaceVerdict::critical);
}

TEST(BudgetPace, WithoutAStartNinetyPercentDecide) {
  EXPECT_EQ(verdict(100, 92, kTenDaysAfter), PaceVerdict::warning);
  EXPECT_EQ(verdict(100, 90, kTenDaysAfter), PaceVerdict::warning);
  EXPECT_EQ(verdict(100, 89, kTenDaysAfter), PaceVerdict::good);
}

TEST(BudgetPace, WithoutABudgetIsGood) {
  EXPECT_EQ(verdict(0, 0, kTenDaysAfter), PaceVerdict::good);
  EXPECT_EQ(verdict(0, 50, kTenDaysAfter), PaceVerdict::good);
  EXPECT_EQ(verdict(-10, 50, kTenDaysAfter), PaceVerdict::good);
  EXPECT_EQ(metrics(0, 50, kTenDaysAfter), (SafeToSpendMetrics{0, 0, 10, 0}));
}

TEST(SafeToSpendMetrics, ABudgetBelowOneUnitCountsLikeAnyOther) {
  EXPECT_EQ(metrics(0.5, 0.25, kTenDaysAfter), (SafeToSpendMetrics{0.25, 0.025, 10, 0.5}));
  EXPECT_EQ(verdict(0.5, 0.5, kTenDaysAfter), PaceVerdict::critical);
}

TEST(BudgetPace, APeriodOfOneDayHasPassedOnThatDay) {
  // 1 of 1 days: 94 - 100.
  EXPECT_EQ(verdict(100, 94, "2025-03-14", "2025-03-14"), PaceVerdict::good);
}

TEST(BudgetPace, NinetyFivePercentOnTheLastDayIsOnPace) {
  EXPECT_EQ(verdict(100, 95, "2025-03-14", "2025-03-01"), PaceVerdict::good);
}

TEST(BudgetPace, SpendingItAllIsCriticalButNotExceeded) {
  EXPECT_EQ(verdict(100, 100, "2025-03-14", "2025-03-01"), PaceVerdict::critical);
  EXPECT_FALSE(isExceeded(testsupport::budgetOf(100, 100, kTenDaysAfter)));
  EXPECT_TRUE(isExceeded(testsupport::budgetOf(100, 100.01, kTenDaysAfter)));
  EXPECT_TRUE(isExceeded(testsupport::budgetOf(0, 1, kTenDaysAfter)));
  EXPECT_FALSE(isExceeded(testsupport::budgetOf(0, 0, kTenDaysAfter)));
}

TEST(BudgetPace, AnUnreadableStartCountsFromToday) {
  // One elapsed day out of 10 + 1: 9.09 %.
  EXPECT_EQ(verdict(100, 14, kTenDaysAfter, "never"), PaceVerdict::good);
  EXPECT_EQ(verdict(100, 15, kTenDaysAfter, "never"), PaceVerdict::warning);
  EXPECT_EQ(verdict(100, 30, kTenDaysAfter, "never"), PaceVerdict::critical);
}

TEST(BudgetPace, AnUnreadableEndFallsBackToNinetyPercent) {
  EXPECT_EQ(verdict(100, 89, "never", kTwentyDaysBefore), PaceVerdict::good);
  EXPECT_EQ(verdict(100, 91, "never", kTwentyDaysBefore), PaceVerdict::warning);
}

TEST(BudgetPace, AStartAfterTheEndDividesByOneDay) {
  // Of -3 days in all, -13 have passed: 100 x -13 / 1 is far behind any share.
  EXPECT_EQ(verdict(100, 1, kTenDaysAfter, "2025-03-28"), PaceVerdict::critical);
}

TEST(BudgetPace, EachVerdictHasItsTextAndColour) {
  EXPECT_EQ(describePace(PaceVerdict::good),
            (BudgetPace{PaceVerdict::good, "paceGood", palette::statusGood}));
  EXPECT_EQ(describePace(PaceVerdict::warning),
            (BudgetPace{PaceVerdict::warning, "paceWarning", palette::statusWarning}));
  EXPECT_EQ(describePace(PaceVerdict::critical),
            (BudgetPace{PaceVerdict::critical, "paceCritical", palette::statusCritical}));
}

TEST(SafeToSpendMetrics, TheDayBeforeTheLastHasOneDayToSpendOn) {
  EXPECT_EQ(metrics(1000, 400, "2025-03-15"), (SafeToSpendMetrics{600, 600, 1, 0.4}));
}

TEST(SafeToSpendMetrics, CountDaysInTheCalendarsZone) {
  // It is already the 15th in Kiritimati.
  const foundation::Calendar kiritimati{foundation::TimeZone{"Pacific/Kiritimati"}};
  const auto late = *foundation::parseInternetDateTime("2025-03-14T10:30:00Z");
  EXPECT_EQ(makeSafeToSpendMetrics(100, 0, kTenDaysAfter, late, kiritimati)->daysLeft, 9);
  EXPECT_EQ(makeSafeToSpendMetrics(100, 0, kTenDaysAfter, late, calendar())->daysLeft, 10);
}

TEST(SafeToSpendMetrics, ANegativeSpendingLeavesMoreThanTheBudget) {
  EXPECT_EQ(metrics(100, -20, kTenDaysAfter), (SafeToSpendMetrics{120, 12, 10, 0}));
}

TEST(DayPhrase, CountsDaysInTheLanguage) {
  EXPECT_EQ(dayPhrase(12, "en"), "12d left");
  EXPECT_EQ(dayPhrase(12, "id"), "12h tersisa");
  EXPECT_EQ(dayPhrase(-1, "en"), "Today left");
  EXPECT_EQ(dayPhrase(0, "id"), "Hari terakhir");
}

TEST(WholePercent, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(wholePercent(0), 0);
  EXPECT_EQ(wholePercent(0.004), 0);
  EXPECT_EQ(wholePercent(0.125), 13);  // 12.5 exactly
  EXPECT_EQ(wholePercent(0.625), 63);  // 62.5 exactly
  EXPECT_EQ(wholePercent(0.6113), 61);
  EXPECT_EQ(wholePercent(1), 100);
}

TEST(SpentGaugeArc, RestsOnTheBottomEdge) {
  // A box of 138 x 63: the height bounds the radius.
  const auto wide = spentGaugeArc(138.0, 63.0);
  EXPECT_DOUBLE_EQ(wide.centerX, 69);
  EXPECT_DOUBLE_EQ(wide.centerY, 58.5);
  EXPECT_DOUBLE_EQ(wide.radius, 58.5);
  // 104 x 54: half the width does.
  EXPECT_DOUBLE_EQ(spentGaugeArc(104.0, 54.0).radius, 47.5);
}

TEST(SpentGaugeArc, IsTheSameForNumbersAndLengths) {
  const auto lengths = spentGaugeArc<viewkit::Length>(viewkit::kWidth, viewkit::kHeight);
  for (const auto& [width, height] : {std::pair{138.0, 63.0}, {104.0, 54.0}, {20.0, 80.0}}) {
    const auto numbers = spentGaugeArc(width, height);
    EXPECT_DOUBLE_EQ(lengths.centerX.resolve(width, height), numbers.centerX);
    EXPECT_DOUBLE_EQ(lengths.centerY.resolve(width, height), numbers.centerY);
    EXPECT_DOUBLE_EQ(lengths.radius.resolve(width, height), numbers.radius);
  }
}

}  // namespace
}  // namespace quorvel
