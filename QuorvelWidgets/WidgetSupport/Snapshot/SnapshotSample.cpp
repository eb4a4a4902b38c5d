#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "Foundation/Calendar.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace quorvel {
namespace {

using foundation::Calendar;
using foundation::DateComponents;

/// What a language calls the top category and the internet bill; makers' names are not translated.
struct SampleTexts {
  std::string_view category;
  std::string_view internet;
};

constexpr std::array<SampleTexts, kLanguageCount> kTexts{{
    {"Food & drinks", "Home internet"},
    {"Makanan", "Internet rumah"},
    {"Alimentación", "Internet en casa"},
    {"Alimentação", "Internet residencial"},
    {"Alimentation", "Box Internet"},
    {"Restaurants", "Internet zu Hause"},
    {"Еда и напитки", "Домашний интернет"},
    {"食費", "インターネット料金"},
    {"식비", "인터넷 요금"},
    {"餐饮", "家庭宽带"},
    {"餐飲", "家用網路"},
    {"खाना-पीना", "घर का इंटरनेट"},
    {"طعام وشراب", "الإنترنت المنزلي"},
}};

constexpr double kBudget = 3000;
constexpr double kTopCategoryAmount = 612;
/// The share of the budget that a whole month takes: below last month's, on pace.
constexpr double kMonthShare = 0.62;
/// From the first day on more is spent than the top category alone.
constexpr double kLeastSpent = 630;

/// How the days of a month weigh against each other: weekends high, one day almost empty, some
/// empty.
constexpr std::array<double, 31> kDayWeights{52, 3,  64, 41, 88, 97, 36, 0,  45, 58, 39,
                                             82, 96, 61, 12, 33, 0,  47, 79, 98, 70, 28,
                                             44, 51, 0,  66, 90, 95, 38, 24, 55};

/// Net worth at the end of each month up to the present one; the last step is 5.5 %.
constexpr std::array<double, 12> kNetWorth{
    71400, 73150, 74800, 76900, 78200, 80650, 82100, 84700, 86300, 89050, 92190, 97260};

std::string dayText(const DateComponents& date) {
  return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
}

std::string monthText(int year, int month) {
  return fmt::format("{:04}-{:02}", year, month);
}

/// The month `back` months before another.
std::string monthBefore(const DateComponents& date, int back) {
  const int index = date.year * 12 + (date.month - 1) - back;
  return monthText(index / 12, index % 12 + 1);
}

std::string dayAfter(const Calendar& calendar, const DateComponents& today, int days) {
  const auto date = calendar.date(today.year, today.month, today.day + days);
  return dayText(date ? calendar.components(*date) : today);
}

/// Whole amounts for the days up to today and none after it.
std::vector<double> dailyAmounts(int today, int daysInMonth) {
  std::vector<double> daily(static_cast<std::size_t>(daysInMonth), 0.0);
  const double weight = std::accumulate(kDayWeights.begin(), kDayWeights.begin() + today, 0.0);
  const double target = std::max(kLeastSpent, kBudget * kMonthShare * today / daysInMonth);
  std::transform(kDayWeights.begin(), kDayWeights.begin() + today, daily.begin(), [&](double day) {
    return std::round(target * day / weight);
  });
  return daily;
}

std::vector<WidgetSnapshot::Card> cards() {
  return {
      {"a", "Northbank", "Everyday", "8478", 10000, 8320, {"#315792", "#20375D"}, false},
      {"b", "Harbor Bank", "Voyager", "5195", 12000, 10460, {"#23477C", "#152D50"}, false},
      {"c", "Lumen Credit", "Graphite", "6652", 8000, 6950, {"#687280", "#414953"}, false},
  };
}

std::vector<WidgetSnapshot::Due> dues(const Calendar& calendar,
                                      const DateComponents& today,
                                      const WidgetSnapshot::Card& card,
                                      const SampleTexts& texts) {
  return {
      {.id = "d1",
       .name = card.productName,
       .amount = 125,
       .dueDate = dayAfter(calendar, today, 3),
       .kind = "card",
       .cardId = card.id,
       .face = card.gradient,
       .subtitle = "•• 8478",
       .symbol = "creditcard.fill"},
      {.id = "d2",
       .name = "Netflix",
       .amount = 15.99,
       .dueDate = dayAfter(calendar, today, 5),
       .kind = "bill",
       .face = {{"#EA353E", "#E50914", "#670409"}},
       .brandId = "netflix"},
      {.id = "d3",
       .name = std::string(texts.internet),
       .amount = 40,
       .dueDate = dayAfter(calendar, today, 9),
       .kind = "bill",
       .face = {{"#3F3F46", "#27272A", "#09090B"}},
       .symbol = "wifi"},
  };
}

WidgetSnapshot::Spending spending(const DateComponents& today,
                                  int daysInMonth,
                                  const SampleTexts& texts) {
  WidgetSnapshot::Spending spending;
  spending.month = monthText(today.year, today.month);
  spending.daily = dailyAmounts(today.day, daysInMonth);
  spending.spent = std::accumulate(spending.daily.begin(), spending.daily.end(), 0.0);
  spending.lastMonthSpent = 1950;
  spending.topCategory = texts.category;
  spending.topCategoryAmount = kTopCategoryAmount;
  spending.topCategoryIcon = "fork.knife";
  spending.topCategoryColor = {"#EDA100", "#C98500"};
  return spending;
}

WidgetSnapshot::NetWorth netWorth(const DateComponents& today) {
  WidgetSnapshot::NetWorth netWorth{.value = kNetWorth.back(),
                                    .changePercent = 5.5,
                                    .assets = 121840,
                                    .liabilities = 24580,
                                    .liquid = 51240,
                                    .nonLiquid = 70600};
  int back = static_cast<int>(kNetWorth.size());
  for (const double value : kNetWorth)
    netWorth.history.push_back({monthBefore(today, --back), value});
  return netWorth;
}

}  // namespace

WidgetSnapshot sampleSnapshot(const foundation::Device& device) {
  const Calendar calendar(device.timeZone);
  const DateComponents today = calendar.components(device.now);
  const int daysInMonth = std::max(calendar.daysInMonth(today.year, today.month), today.day);

  WidgetSnapshot snapshot;
  snapshot.generatedAt = device.now;
  snapshot.lang = preferredLanguageCode(device.preferredLanguages);
  const SampleTexts& texts = kTexts[static_cast<std::size_t>(languageForCode(snapshot.lang))];
  snapshot.money = {.symbol = "$", .showDecimals = false};
  snapshot.cards = cards();
  snapshot.dues = dues(calendar, today, snapshot.cards.front(), texts);
  snapshot.totalLimit = 30000;
  snapshot.totalRemaining = 25730;
  snapshot.spending = spending(today, daysInMonth, texts);
  snapshot.budget = WidgetSnapshot::Budget{
      .total = kBudget,
      .spent = snapshot.spending->spent,
      .periodEnd = fmt::format("{}-{:02}", snapshot.spending->month, daysInMonth),
      .periodStart = fmt::format("{}-01", snapshot.spending->month)};
  snapshot.netWorth = netWorth(today);
  return snapshot;
}

}  // namespace quorvel
