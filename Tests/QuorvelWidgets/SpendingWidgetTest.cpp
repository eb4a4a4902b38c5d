#include <gmock/gmock.h>

#include "QuorvelWidgets/Spending/MonthHeatmap.hpp"
#include "QuorvelWidgets/Spending/SpendingWidgetView.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

constexpr std::array kLayouts{
    WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge};

SnapshotEntry entryAt(std::string_view instant, std::string month) {
  WidgetSnapshot snapshot = testsupport::emptySnapshot();
  WidgetSnapshot::Spending spending;
  spending.month = std::move(month);
  spending.spent = 1834;
  spending.lastMonthSpent = 1949;
  spending.topCategory = "Food";
  spending.topCategoryAmount = 612;
  spending.daily = {40, 0, 90};
  snapshot.spending = std::move(spending);
  return {*foundation::parseInternetDateTime(instant), std::move(snapshot)};
}

viewkit::View view(const SnapshotEntry& entry, WidgetFamily family, Environment environment = {}) {
  environment.widgetFamily = family;
  return SpendingWidgetView{
      {.entry = entry, .environment = environment, .urlScheme = "quorvel-widget"}};
}

std::vector<std::string> texts(const SnapshotEntry& entry,
                               WidgetFamily family,
                               const Environment& environment = {}) {
  return testsupport::texts(view(entry, family, environment));
}

TEST(SpendingWidget, ARecordOfMayReadInJuneIsAFreshMonth) {
  const auto entry = entryAt("2024-06-01T00:00:00Z", "2024-05");
  for (const auto family : kLayouts) {
    EXPECT_THAT(texts(entry, family),
                ElementsAre("Spent this month", "No spending yet this month", "A fresh month"));
  }
}

TEST(SpendingWidget, TheMonthIsTheUsersOwn) {
  // 23:30 in UTC on 31 May is June already in Tokyo.
  const auto entry = entryAt("2024-05-31T23:30:00Z", "2024-05");
  Environment tokyo;
  tokyo.timeZone = {"Asia/Tokyo"};
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall), Contains("$1,834"));
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall, tokyo), Contains("A fresh month"));
}

TEST(SpendingWidget, WithoutASnapshotOrARecord) {
  auto entry = entryAt("2025-03-14T09:30:00Z", "2025-03");
  entry.snapshot->spending.reset();
  EXPECT_THAT(texts(entry, WidgetFamily::systemLarge), Contains("A fresh month"));
  entry.snapshot.reset();
  EXPECT_THAT(texts(entry, WidgetFamily::systemLarge),
              ElementsAre("Spent this month", "Open Quorvel to get started", "Open Quorvel"));
  EXPECT_EQ(testsupport::modifier<viewkit::WidgetURL>(view(entry, WidgetFamily::systemLarge))->url,
            "quorvel-widget://open/spending");
}

TEST(SpendingWidget, ComparesWithLastMonth) {
  // (1834 - 1949) / 1949 = -5.90 %.
  const auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall),
              AllOf(Contains("5.9%"), Contains("vs last month")));
  EXPECT_THAT(testsupport::symbols(view(entry, WidgetFamily::systemMedium)),
              Contains("arrow.down.right"));
  EXPECT_THAT(texts(entry, WidgetFamily::systemLarge), Contains("5.9%"));
}

TEST(SpendingWidget, NoSpendingLastMonthMeansNoPercentage) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->lastMonthSpent = 0;
  for (const auto family : kLayouts) {
    EXPECT_THAT(texts(entry, family), Not(Contains(HasSubstr("%"))));
  }
}

TEST(SpendingWidget, LargeShowsTodayAverageAndLastMonth) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->spent = 130;
  EXPECT_THAT(texts(entry, WidgetFamily::systemLarge),
              AllOf(Contains("$90"), Contains("$43"), Contains("$1,949")));
}

TEST(SpendingWidget, PrivacyLeavesNoDigitOfAnAmount) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->isHidden = true;
  for (const auto family : kLayouts) {
    for (const std::string& text : texts(entry, family)) {
      EXPECT_THAT(text, Not(AllOf(HasSubstr("%")))) << text;
      EXPECT_THAT(text, Not(HasSubstr("$"))) << text;
    }
    EXPECT_THAT(texts(entry, family), Contains("Amounts hidden"));
  }
}

TEST(SpendingWidget, WithoutATopCategoryItsBlockIsAbsent) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->topCategory.reset();
  for (const auto family : kLayouts) {
    EXPECT_THAT(texts(entry, family), Not(Contains("Top category")));
  }
}

TEST(SpendingWidget, TheCategoryKeepsItsIconInLargeOnly) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->topCategoryIcon = "fork.knife";
  EXPECT_THAT(testsupport::symbols(view(entry, WidgetFamily::systemMedium)), Contains("tag.fill"));
  EXPECT_THAT(testsupport::symbols(view(entry, WidgetFamily::systemLarge)), Contains("fork.knife"));
}

TEST(SpendingWidget, AnEmptySeriesDrawsNoBars) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->daily.clear();
  const auto shown = view(entry, WidgetFamily::systemSmall);
  ASSERT_NE(testsupport::component(shown, "DailyBars"), nullptr);
  EXPECT_THAT(testsupport::component(shown, "DailyBars")->children, IsEmpty());
}

TEST(SpendingWidget, ALongSeriesDrawsAMonth) {
  auto entry = entryAt("2025-03-03T09:30:00Z", "2025-03");
  entry.snapshot->spending->daily.assign(100000, 1.5);
  const auto shown = view(entry, WidgetFamily::systemMedium);
  EXPECT_EQ(testsupport::component(shown, "DailyBars")->children.size(), 31U);
}

TEST(MonthHeatmap, HasACellForEveryDayOfTheMonthAndLettersInTheUsersOrder) {
  MonthHeatmap map{.daily = {10, 20},
                   .today = 2,
                   .daysInMonth = 28,
                   .weekdayOfFirst = 1,
                   .firstWeekday = 2,
                   .weekdayNames = {"S", "M", "T", "W", "T", "F", "S"}};
  EXPECT_THAT(testsupport::texts(map.body()), ElementsAre("M", "T", "W", "T", "F", "S", "S"));
  // Sunday the 1st ends the first of five weeks: 13 + 5 + 5 * 26 + 4 * 3.
  EXPECT_EQ(map.height(), 160);
  map.firstWeekday = 1;
  EXPECT_EQ(map.height(), 131);
}

}  // namespace
}  // namespace quorvel
