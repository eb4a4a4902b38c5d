#include <gmock/gmock.h>

#include "QuorvelWidgets/NetWorth/AreaChart.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthWidgetView.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

constexpr std::array kLayouts{
    WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge};

SnapshotEntry fullEntry() {
  WidgetSnapshot snapshot = testsupport::emptySnapshot();
  WidgetSnapshot::NetWorth netWorth;
  netWorth.value = 110;
  netWorth.changePercent = 10;
  netWorth.assets = 150;
  netWorth.liabilities = 40;
  netWorth.liquid = 60;
  netWorth.nonLiquid = 90;
  netWorth.history = {{"2025-01", 95}, {"2025-02", 100}, {"2025-03", 110}};
  snapshot.netWorth = std::move(netWorth);
  return {*foundation::parseInternetDateTime("2025-03-14T09:30:00Z"), std::move(snapshot)};
}

viewkit::View view(const SnapshotEntry& entry, WidgetFamily family, Environment environment = {}) {
  environment.widgetFamily = family;
  return NetWorthWidgetView{
      {.entry = entry, .environment = environment, .urlScheme = "quorvel-widget"}};
}

std::vector<std::string> texts(const SnapshotEntry& entry, WidgetFamily family) {
  return testsupport::texts(view(entry, family));
}

std::size_t shapes(const viewkit::View& view) {
  return testsupport::nodesWith<viewkit::ShapeElement>(view).size();
}

TEST(NetWorth, WithoutASnapshotOrARecord) {
  auto entry = fullEntry();
  entry.snapshot->netWorth.reset();
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall),
              ElementsAre("Net worth", "Add assets in Quorvel", "Add assets"));
  entry.snapshot.reset();
  EXPECT_THAT(texts(entry, WidgetFamily::systemLarge),
              ElementsAre("Net worth", "Open Quorvel to get started", "Open Quorvel"));
}

TEST(NetWorth, EveryStateOpensTheDashboard) {
  auto entry = fullEntry();
  for (int state = 0; state < 3; ++state) {
    EXPECT_EQ(
        testsupport::modifier<viewkit::WidgetURL>(view(entry, WidgetFamily::systemMedium))->url,
        "quorvel-widget://open/dashboard");
    if (state == 0) entry.snapshot->netWorth.reset();
    if (state == 1) entry.snapshot.reset();
  }
}

TEST(NetWorth, LargeBreaksAssetsDown) {
  EXPECT_THAT(texts(fullEntry(), WidgetFamily::systemLarge),
              ElementsAre("Net worth",
                          "$110",
                          "10.0%",
                          "Jan",
                          "Feb",
                          "Mar",
                          "Liquid assets",
                          "$60",
                          "Non-liquid assets",
                          "$90",
                          "Liabilities",
                          "$40"));
}

TEST(NetWorth, WithoutEitherPartAssetsStandInOneRow) {
  for (const bool dropsLiquid : {true, false}) {
    auto entry = fullEntry();
    if (dropsLiquid) {
      entry.snapshot->netWorth->liquid.reset();
    } else {
      entry.snapshot->netWorth->nonLiquid.reset();
    }
    const auto shown = texts(entry, WidgetFamily::systemLarge);
    EXPECT_THAT(shown, AllOf(Contains("Assets"), Contains("$150"), Contains("Liabilities")));
    EXPECT_THAT(shown, Not(Contains("Liquid assets")));
    EXPECT_THAT(shown, Not(Contains("Non-liquid assets")));
  }
}

TEST(NetWorth, TheComparedMonthStandsInSmallAndMediumWhenItIsTrue) {
  auto entry = fullEntry();
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall), Contains("vs Feb"));
  EXPECT_THAT(texts(entry, WidgetFamily::systemMedium), Contains("vs Feb"));
  entry.snapshot->netWorth->changePercent = 12;
  EXPECT_THAT(texts(entry, WidgetFamily::systemSmall), Not(Contains("vs Feb")));
}

TEST(NetWorth, AnAbsentChangeTakesItsRowWithIt) {
  auto entry = fullEntry();
  entry.snapshot->netWorth->changePercent.reset();
  for (const auto family : kLayouts) {
    EXPECT_EQ(testsupport::component(view(entry, family), "WidgetChange"), nullptr);
    EXPECT_THAT(texts(entry, family), Not(Contains(HasSubstr("%"))));
  }
}

TEST(NetWorth, PrivacyHidesAmountsChangeAndTrend) {
  auto entry = fullEntry();
  entry.snapshot->isHidden = true;
  for (const auto family : kLayouts) {
    const auto shown = view(entry, family);
    EXPECT_THAT(testsupport::texts(shown), Contains("Amounts hidden"));
    EXPECT_THAT(testsupport::texts(shown), Not(Contains(HasSubstr("$"))));
    EXPECT_THAT(testsupport::texts(shown), Not(Contains(HasSubstr("%"))));
    EXPECT_EQ(testsupport::component(shown, "AreaChart"), nullptr);
    EXPECT_NE(testsupport::component(shown, "HiddenChart"), nullptr);
  }
  // Another history leaves the same tree.
  auto other = entry;
  other.snapshot->netWorth->history = {{"2025-01", 1}, {"2025-02", 900}, {"2025-03", 2}};
  EXPECT_EQ(view(entry, WidgetFamily::systemLarge), view(other, WidgetFamily::systemLarge));
}

TEST(AreaChart, OneMonthIsALoneDotAndNoneIsNothing) {
  // The dot is a filled circle under a stroked one.
  EXPECT_EQ(shapes(AreaChart{.points = {5}}), 2U);
  EXPECT_EQ(shapes(AreaChart{.points = {}}), 0U);
  EXPECT_EQ(shapes(AreaChart{.points = {5, 6}}), 4U);
  EXPECT_EQ(shapes(AreaChart{.points = {5, 6}, .showsGrid = true}), 5U);
  EXPECT_EQ(shapes(AreaChart{.points = {}, .showsGrid = true}), 0U);
}

TEST(NetWorth, ManyYearsAreDrawnByTheirLatestMonths) {
  auto entry = fullEntry();
  entry.snapshot->netWorth->history.assign(10000, {"2025-03", 1});
  const auto many = testsupport::nodes(view(entry, WidgetFamily::systemLarge)).size();
  entry.snapshot->netWorth->history.assign(240, {"2025-03", 1});
  EXPECT_EQ(many, testsupport::nodes(view(entry, WidgetFamily::systemLarge)).size());
}

}  // namespace
}  // namespace quorvel
