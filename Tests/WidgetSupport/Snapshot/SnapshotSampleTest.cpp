// The sample's fixed values, and that its figures agree with each other on every day.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numeric>
#include <set>

#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "SnapshotFixtures.hpp"

namespace quorvel {
namespace {

using namespace std::chrono;

std::int64_t noon(year_month_day date) {
  return (sys_days(date) + hours(12)).time_since_epoch() / seconds(1);
}

WidgetSnapshot sampleOn(year_month_day date) {
  return sampleSnapshot(testsupport::device(noon(date)));
}

TEST(SnapshotSample, FixedValues) {
  const WidgetSnapshot sample = sampleOn(2025y / March / 14);
  EXPECT_EQ(sample.generatedAt.seconds, noon(2025y / March / 14));
  EXPECT_FALSE(sample.isHidden);
  EXPECT_EQ(sample.lang, "en");
  EXPECT_EQ(sample.money, (WidgetMoneyStyle{"$", false, std::nullopt}));
  EXPECT_EQ(sample.totalLimit, 30000);
  EXPECT_EQ(sample.totalRemaining, 25730);
  EXPECT_FALSE(sample.accent);
}

TEST(SnapshotSample, Dues) {
  const auto dues = sampleOn(2025y / March / 28).dues;
  ASSERT_EQ(dues.size(), 3U);
  EXPECT_EQ(dues[0].amount, 125);
  EXPECT_EQ(dues[0].kind, "card");
  EXPECT_EQ(dues[0].cardId, "a");
  EXPECT_EQ(dues[0].subtitle, "•• 8478");
  EXPECT_EQ(dues[0].symbol, "creditcard.fill");
  EXPECT_EQ(dues[0].face, (std::vector<std::string>{"#315792", "#20375D"}));
  EXPECT_EQ(dues[0].dueDate, "2025-03-31");
  EXPECT_EQ(dues[1].name, "Netflix");
  EXPECT_EQ(dues[1].amount, 15.99);
  EXPECT_EQ(dues[1].kind, "bill");
  EXPECT_EQ(dues[1].brandId, "netflix");
  EXPECT_EQ(dues[1].face, (std::vector<std::string>{"#EA353E", "#E50914", "#670409"}));
  EXPECT_EQ(dues[1].dueDate, "2025-04-02");
  EXPECT_EQ(dues[2].name, "Home internet");
  EXPECT_EQ(dues[2].amount, 40);
  EXPECT_EQ(dues[2].kind, "bill");
  EXPECT_EQ(dues[2].symbol, "wifi");
  EXPECT_EQ(dues[2].face, (std::vector<std::string>{"#3F3F46", "#27272A", "#09090B"}));
  EXPECT_EQ(dues[2].dueDate, "2025-04-06");
}

TEST(SnapshotSample, CardsAddUpToTheTotals) {
  const WidgetSnapshot sample = sampleOn(2025y / March / 14);
  ASSERT_EQ(sample.cards.size(), 3U);
  double limit = 0;
  double remaining = 0;
  for (const auto& card : sample.cards) {
    limit += card.limit;
    remaining += card.remaining;
    EXPECT_FALSE(card.hasImage);
    EXPECT_FALSE(card.bankName.empty());
    EXPECT_FALSE(card.productName.empty());
  }
  EXPECT_EQ(limit, sample.totalLimit);
  EXPECT_EQ(remaining, sample.totalRemaining);
  EXPECT_EQ(sample.cards[0].id + sample.cards[1].id + sample.cards[2].id, "abc");
  EXPECT_EQ(sample.cards[1].last4, "5195");
  EXPECT_EQ(sample.cards[2].gradient, (std::vector<std::string>{"#687280", "#414953"}));
  EXPECT_EQ(sample.dues.front().name, sample.cards.front().productName);
}

TEST(SnapshotSample, BudgetIsTheMonths) {
  const WidgetSnapshot sample = sampleOn(2024y / February / 10);
  EXPECT_EQ(sample.budget->total, 3000);
  EXPECT_EQ(sample.budget->periodStart, "2024-02-01");
  EXPECT_EQ(sample.budget->periodEnd, "2024-02-29");
  EXPECT_EQ(sample.spending->month, "2024-02");
}

TEST(SnapshotSample, Spending) {
  const auto spending = *sampleOn(2025y / March / 14).spending;
  EXPECT_EQ(spending.lastMonthSpent, 1950);
  EXPECT_EQ(spending.topCategory, "Food & drinks");
  EXPECT_EQ(spending.topCategoryAmount, 612);
  EXPECT_EQ(spending.topCategoryIcon, "fork.knife");
  EXPECT_EQ(spending.topCategoryColor, (WidgetSnapshot::Shade{"#EDA100", "#C98500"}));
}

TEST(SnapshotSample, FiguresAgreeOnEveryDayOfALeapAndACommonYear) {
  for (sys_days day = 2024y / January / 1; day < sys_days(2026y / January / 1); day += days(1)) {
    const year_month_day date(day);
    const auto today = static_cast<std::size_t>(static_cast<unsigned>(date.day()));
    const auto length =
        static_cast<unsigned>(year_month_day_last(date.year(), month_day_last(date.month())).day());
    const WidgetSnapshot sample = sampleOn(date);
    const auto& daily = sample.spending->daily;
    SCOPED_TRACE(sample.budget->periodEnd + " seen on day " + std::to_string(today));
    ASSERT_EQ(daily.size(), length);
    EXPECT_EQ(std::accumulate(daily.begin(), daily.begin() + today, 0.0), sample.spending->spent);
    EXPECT_TRUE(std::all_of(daily.begin() + today, daily.end(), [](double v) { return v == 0; }));
    EXPECT_EQ(sample.budget->spent, sample.spending->spent);
    EXPECT_GE(sample.spending->spent, sample.spending->topCategoryAmount);
    EXPECT_LT(sample.spending->spent, sample.spending->lastMonthSpent);
    const double top = *std::max_element(daily.begin(), daily.end());
    if (today > 1) {
      EXPECT_TRUE(std::any_of(daily.begin(), daily.end(), [&](double v) {
        return v > 0 && v < top / 16;
      })) << "no day of the lowest level";
    }
  }
}

TEST(SnapshotSample, NetWorthAgreesWithItself) {
  const auto netWorth = *sampleOn(2025y / February / 3).netWorth;
  EXPECT_EQ(netWorth.value, 97260);
  EXPECT_EQ(netWorth.assets, 121840);
  EXPECT_EQ(netWorth.liabilities, 24580);
  EXPECT_EQ(*netWorth.liquid + *netWorth.nonLiquid, netWorth.assets);
  EXPECT_EQ(netWorth.assets - netWorth.liabilities, netWorth.value);
  ASSERT_EQ(netWorth.history.size(), 12U);
  EXPECT_EQ(netWorth.history.front().month, "2024-03");
  EXPECT_EQ(netWorth.history[9].month, "2024-12");
  EXPECT_EQ(netWorth.history[10].month, "2025-01");
  EXPECT_EQ(netWorth.history.back().month, "2025-02");
  EXPECT_EQ(netWorth.history.back().value, netWorth.value);
  EXPECT_TRUE(
      std::ranges::is_sorted(netWorth.history, {}, &WidgetSnapshot::NetWorth::Point::value));
  const double before = netWorth.history[10].value;
  EXPECT_EQ(std::round((netWorth.value - before) / before * 1000) / 10, *netWorth.changePercent);
}

TEST(SnapshotSample, TodayIsTheDevicesToday) {
  // 2025-03-31T23:30:00Z is already April in Tokyo and still March in New York.
  const std::int64_t now = noon(2025y / March / 31) + (11 * 60 + 30) * 60;
  EXPECT_EQ(sampleSnapshot(testsupport::device(now, "Asia/Tokyo")).spending->month, "2025-04");
  EXPECT_EQ(sampleSnapshot(testsupport::device(now, "America/New_York")).spending->month,
            "2025-03");
}

TEST(SnapshotSample, SpeaksEachLanguage) {
  std::set<std::string> categories;
  std::set<std::string> bills;
  for (const std::string_view code : kLanguageCodes) {
    const WidgetSnapshot sample =
        sampleSnapshot(testsupport::device(noon(2025y / March / 14), "UTC", {std::string(code)}));
    EXPECT_EQ(sample.lang, code);
    categories.insert(*sample.spending->topCategory);
    bills.insert(sample.dues[2].name);
  }
  EXPECT_EQ(categories.size(), kLanguageCount);
  EXPECT_EQ(bills.size(), kLanguageCount);
}

TEST(SnapshotSample, IsAValidDocument) {
  const WidgetSnapshot sample = sampleOn(2025y / March / 14);
  EXPECT_EQ(decodeWidgetSnapshot(encodeWidgetSnapshot(sample)), sample);
}

}  // namespace
}  // namespace quorvel
