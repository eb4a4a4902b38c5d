#include <gmock/gmock.h>

#include <limits>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;
using ::testing::ElementsAre;

Color styleOf(const View& view) {
  return std::get<Color>(testsupport::modifier<ForegroundStyle>(view)->paint);
}

TEST(ChangeComponent, ZeroShowsALevelArrowInTheSecondaryColour) {
  const View view = WidgetChange{.value = 0, .precision = 1};
  EXPECT_THAT(testsupport::symbols(view), ElementsAre("arrow.right"));
  EXPECT_THAT(testsupport::texts(view), ElementsAre("0.0%"));
  EXPECT_EQ(styleOf(view), palette::textSecondary);
}

TEST(ChangeComponent, WhatIsNotFiniteTakesNoSpace) {
  for (const double value : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()}) {
    EXPECT_TRUE(WidgetChange{.value = value}.body().isEmpty());
    const View row = HStack{{.spacing = 5}, Text{"a"}, WidgetChange{.value = value}};
    EXPECT_EQ(row.node().children.size(), 1U);
  }
}

TEST(ChangeComponent, WithoutAPrecisionThePercentageIsWhole) {
  EXPECT_THAT(testsupport::texts(WidgetChange{.value = 3.4}), ElementsAre("3%"));
}

TEST(ChangeComponent, UnlessSaidOtherwiseARiseIsGood) {
  EXPECT_EQ(styleOf(WidgetChange{.value = 3.4}), palette::changeFavorable);
}

TEST(ChangeComponent, ARiseIsGoodOrBadByWhatRises) {
  const View worth = WidgetChange{.value = 5.5, .precision = 1, .favorableWhenPositive = true};
  EXPECT_THAT(testsupport::symbols(worth), ElementsAre("arrow.up.right"));
  EXPECT_EQ(styleOf(worth), palette::changeFavorable);
  const View spending = WidgetChange{.value = 8.1, .precision = 1, .favorableWhenPositive = false};
  EXPECT_EQ(styleOf(spending), palette::statusCritical);
}

TEST(ChangeComponent, AFallPrintsNoSign) {
  const View view = WidgetChange{.value = -3.26, .precision = 1, .favorableWhenPositive = true};
  EXPECT_THAT(testsupport::symbols(view), ElementsAre("arrow.down.right"));
  EXPECT_THAT(testsupport::texts(view), ElementsAre("3.3%"));
  EXPECT_EQ(styleOf(view), palette::statusCritical);
}

TEST(ChangeComponent, IsARowOnTheFirstBaselineWithAGapOfFive) {
  const View view = WidgetChange{.value = 1, .size = 12};
  const auto& row = std::get<StackElement>(view.node().element);
  EXPECT_EQ(row.axis, StackElement::Axis::horizontal);
  EXPECT_EQ(row.alignment.vertical, VerticalAlignment::firstTextBaseline);
  EXPECT_EQ(row.spacing, 5);
  EXPECT_EQ(std::get<TextElement>(testsupport::textNode(view, "1%")->element).lineLimit, 1);
  EXPECT_NE(testsupport::modifier<PrivacySensitive>(view), nullptr);
}

}  // namespace
}  // namespace quorvel
