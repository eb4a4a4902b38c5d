#include <gtest/gtest.h>

#include <limits>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetUsageGauge.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// The fill's width on a track of 100 points; 0 when only the track is there.
double filled(double fraction) {
  const View meter = WidgetMeter{.fraction = fraction,
                                 .color = palette::statusGood,
                                 .track = palette::meterTrack,
                                 .height = 5};
  const auto shapes = testsupport::nodesWith<ShapeElement>(meter);
  if (shapes.size() < 2) return 0;
  return testsupport::modifier<FixedFrame>(*shapes[1])->width->resolve(100, 5);
}

TEST(MeterComponent, AFractionAboveOneFillsTheWholeTrack) {
  EXPECT_DOUBLE_EQ(filled(1.7), 100);
}

TEST(MeterComponent, ANegativeFractionOrNoNumberShowsOnlyTheTrack) {
  EXPECT_EQ(filled(-0.2), 0);
  EXPECT_EQ(filled(kNaN), 0);
  EXPECT_EQ(filled(kInf), 0);
  EXPECT_EQ(filled(0), 0);
}

TEST(MeterComponent, FillsItsShareOfTheAvailableWidth) {
  EXPECT_DOUBLE_EQ(filled(0.14), 14);
  EXPECT_DOUBLE_EQ(filled(0.5), 50);
}

std::string gaugeText(double fraction) {
  const WidgetSnapshot snapshot = testsupport::emptySnapshot();
  const View gauge =
      WidgetUsageGauge{.fraction = fraction, .symbol = "creditcard.fill", .snapshot = snapshot};
  const auto texts = testsupport::texts(gauge);
  return texts.empty() ? "" : texts.front();
}

TEST(UsageGaugeComponent, RoundsThePercentageToTheNearestInteger) {
  EXPECT_EQ(gaugeText(0.004), "0%");
  EXPECT_EQ(gaugeText(0.996), "100%");
  EXPECT_EQ(gaugeText(0.62), "62%");
}

TEST(UsageGaugeComponent, LimitsTheFraction) {
  EXPECT_EQ(gaugeText(1.3), "100%");
  EXPECT_EQ(gaugeText(-1), "0%");
  EXPECT_EQ(gaugeText(kNaN), "0%");
  EXPECT_EQ(gaugeText(kInf), "0%");
}

TEST(UsageGaugeComponent, SaysHowMuchIsUsed) {
  const WidgetSnapshot snapshot = testsupport::emptySnapshot();
  const View gauge =
      WidgetUsageGauge{.fraction = 0.62, .symbol = "creditcard.fill", .snapshot = snapshot};
  EXPECT_EQ(testsupport::modifier<Accessibility>(gauge)->label, "62% used");
  EXPECT_DOUBLE_EQ(std::get<GaugeElement>(gauge.node().element).fraction, 0.62);
}

TEST(UsageGaugeComponent, HidesFractionAndPercentageWithTheAmounts) {
  WidgetSnapshot snapshot = testsupport::emptySnapshot();
  snapshot.isHidden = true;
  const View gauge =
      WidgetUsageGauge{.fraction = 0.62, .symbol = "creditcard.fill", .snapshot = snapshot};
  EXPECT_TRUE(testsupport::texts(gauge).empty());
  EXPECT_EQ(std::get<GaugeElement>(gauge.node().element).fraction, 0);
  EXPECT_EQ(testsupport::modifier<Accessibility>(gauge)->label, "Amounts hidden");
}

}  // namespace
}  // namespace quorvel
