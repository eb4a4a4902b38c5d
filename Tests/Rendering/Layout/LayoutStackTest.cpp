// Stacks: how a length is shared and how children line up.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"

namespace rendering {
namespace {

using namespace viewkit;

/// With half-em cells a text of n characters at size 10 is 5 n wide.
View textOfWidth(double width) {
  return Text(std::string(static_cast<std::size_t>(width / 5), 'a')).font(10).lineLimit(1);
}

std::vector<double> widths(const LayoutTree& row) {
  std::vector<double> result;
  for (const PlacedNode& node : elementOf(row.root).children) result.push_back(node.frame.width);
  return result;
}

TEST(LayoutStack, ThreeShapesShareEqually) {
  const View row = HStack{{.spacing = 0}, Rectangle(), Rectangle(), Rectangle()};
  const LayoutTree tree = placed(row, {300, 20});
  EXPECT_THAT(child(tree, 0), FrameIs(0, 0, 100, 20));
  EXPECT_THAT(child(tree, 1), FrameIs(100, 0, 100, 20));
  EXPECT_THAT(child(tree, 2), FrameIs(200, 0, 100, 20));
}

TEST(LayoutStack, LeastFlexibleIsOfferedFirstAndTheRowMayOverflow) {
  const View row = HStack{{.spacing = 0},
                          Rectangle().frame(FlexibleFrame{.maxWidth = 100}),
                          Rectangle().frame(FlexibleFrame{.minWidth = 100})};
  EXPECT_THAT(widths(placed(row, {150, 20})), testing::ElementsAre(75, 100));
  EXPECT_THAT(answered(row, {150, 20}), SizeIs(175, 20));
}

TEST(LayoutStack, TheSpacerTakesWhatTextsLeave) {
  const View row = HStack{{.spacing = 0}, textOfWidth(40), Spacer{8}, textOfWidth(50)};
  EXPECT_THAT(widths(placed(row, {150, 20}, kLtr, 0.5)), testing::ElementsAre(40, 60, 50));
}

TEST(LayoutStack, TextsShareWhatTheSpacersMinimumLeaves) {
  const View row = HStack{{.spacing = 0}, textOfWidth(90), Spacer{8}, textOfWidth(70)};
  // Of 142 the 70 is offered half and fits; 72 remain: 14 cells of 5, the last of them the
  // ellipsis.
  const LayoutTree tree = placed(row, {150, 20}, kLtr, 0.5);
  EXPECT_THAT(widths(tree), testing::ElementsAre(70, 10, 70));
  EXPECT_TRUE(elementOf(child(tree, 0)).text->isCut());
  EXPECT_FALSE(elementOf(child(tree, 2)).text->isCut());
}

TEST(LayoutStack, DefaultSpacingIsEightButNoneBesideSpacers) {
  EXPECT_THAT(answered(HStack{{}, box(10, 10), box(10, 10), box(10, 10)}, {}), SizeIs(46, 10));
  EXPECT_THAT(answered(HStack{{}, box(10, 10), Spacer{3}, box(10, 10)}, {}), SizeIs(23, 10));
  EXPECT_THAT(answered(VStack{{}, box(10, 10), Spacer{}, box(10, 10)}, {}), SizeIs(10, 28));
  EXPECT_THAT(answered(HStack{{.spacing = 5}, box(10, 10), Spacer{3}, box(10, 10)}, {}),
              SizeIs(33, 10));
}

TEST(LayoutStack, EmptyViewsTakeNeitherRoomNorSpacing) {
  EXPECT_THAT(answered(HStack{{}, View{}, box(10, 10), View{}, box(10, 10)}, {}), SizeIs(28, 10));
  EXPECT_THAT(answered(HStack{{}, std::vector<View>{}}, {50, 50}), SizeIs(0, 0));
  EXPECT_THAT(answered(ZStack{{}, std::vector<View>{}}, {50, 50}), SizeIs(0, 0));
}

TEST(LayoutStack, WithoutAProposalChildrenTakeTheirIdealLength) {
  EXPECT_THAT(answered(HStack{{.spacing = 0}, Rectangle(), textOfWidth(40)}, {}, 0.5),
              SizeIs(50, 12.1));
}

TEST(LayoutStack, HigherPriorityTakesFirstAfterTheMinimaOfTheOthers) {
  const View row = HStack{{.spacing = 0},
                          Rectangle().frame(FlexibleFrame{.minWidth = 20}),
                          Rectangle().layoutPriority(1)};
  EXPECT_THAT(widths(placed(row, {100, 10})), testing::ElementsAre(20, 80));
}

TEST(LayoutStack, PrioritiesAreServedInDescendingOrder) {
  // 90 for all; the 10 and the 15 are kept back from the first, the 10 from the second.
  const View row = HStack{{.spacing = 0},
                          Rectangle().frame(FlexibleFrame{.minWidth = 10}),
                          Rectangle().frame(FlexibleFrame{.minWidth = 15}).layoutPriority(1),
                          Rectangle().frame(FlexibleFrame{.maxWidth = 40}).layoutPriority(2)};
  EXPECT_THAT(widths(placed(row, {90, 10})), testing::ElementsAre(10, 40, 40));
  EXPECT_THAT(widths(placed(row, {50, 10})), testing::ElementsAre(10, 15, 25));
}

TEST(LayoutStack, PriorityPassesThroughModifiersAndTheOutermostCounts) {
  const View row = HStack{{.spacing = 0},
                          Rectangle().layoutPriority(1).padding(0),
                          Rectangle().layoutPriority(2).layoutPriority(-1)};
  EXPECT_THAT(widths(placed(row, {100, 10})), testing::ElementsAre(100, 0));
}

TEST(LayoutStack, SpacersShareAndKeepTheirMinimum) {
  const View row = HStack{{}, Spacer{8}, box(20, 10), Spacer{8}};
  EXPECT_THAT(widths(placed(row, {100, 10})), testing::ElementsAre(40, 20, 40));
  EXPECT_THAT(widths(placed(row, {10, 10})), testing::ElementsAre(8, 20, 8));
  EXPECT_THAT(widths(placed(HStack{{}, box(20, 10), Spacer{0}}, {10, 10})),
              testing::ElementsAre(20, 0));
}

TEST(LayoutStack, ASpacerStretchesAlongItsStackOnly) {
  EXPECT_THAT(answered(HStack{{}, Spacer{}}, {100, 50}), SizeIs(100, 0));
  EXPECT_THAT(answered(VStack{{}, Spacer{}}, {100, 50}), SizeIs(0, 50));
  EXPECT_THAT(answered(HStack{{}, VStack{{}, Spacer{}}}, {100, 50}), SizeIs(0, 50));
  EXPECT_THAT(answered(Spacer{}, {100, 50}), SizeIs(100, 50));
  EXPECT_THAT(answered(ZStack{{}, Spacer{}}, {100, 50}), SizeIs(100, 50));
  EXPECT_THAT(answered(Spacer{}, {}), SizeIs(8, 8));
}

TEST(LayoutStack, CrossAlignmentOfRows) {
  const auto tops = [](VerticalAlignment alignment) {
    const LayoutTree tree =
        placed(HStack{{.alignment = alignment, .spacing = 0}, box(5, 30), box(5, 10)}, {10, 30});
    return child(tree, 1).frame.y;
  };
  EXPECT_EQ(tops(VerticalAlignment::top), 0);
  EXPECT_EQ(tops(VerticalAlignment::center), 10);
  EXPECT_EQ(tops(VerticalAlignment::bottom), 20);
}

TEST(LayoutStack, CrossAlignmentOfColumnsInBothDirections) {
  const auto left = [](HorizontalAlignment alignment, LayoutDirection direction) {
    const View column = VStack{{.alignment = alignment, .spacing = 0}, box(30, 5), box(10, 5)};
    return child(placed(column, {30, 10}, direction), 1).frame.x;
  };
  EXPECT_EQ(left(HorizontalAlignment::leading, kLtr), 0);
  EXPECT_EQ(left(HorizontalAlignment::center, kLtr), 10);
  EXPECT_EQ(left(HorizontalAlignment::trailing, kLtr), 20);
  EXPECT_EQ(left(HorizontalAlignment::leading, kRtl), 20);
  EXPECT_EQ(left(HorizontalAlignment::center, kRtl), 10);
  EXPECT_EQ(left(HorizontalAlignment::trailing, kRtl), 0);
}

TEST(LayoutStack, RowsRunFromTheRightInRightToLeftLayouts) {
  const LayoutTree tree = placed(HStack{{.spacing = 4}, box(10, 5), box(20, 5)}, {100, 5}, kRtl);
  // 34 wide, centred in 100: from 33 to 67.
  EXPECT_THAT(child(tree, 0), FrameIs(57, 0, 10, 5));
  EXPECT_THAT(child(tree, 1), FrameIs(33, 0, 20, 5));
}

TEST(LayoutStack, TextsOfDifferentSizesStandOnOneBaseline) {
  const View row = HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
                          Text("24").font(24),
                          Text("12").font(12)};
  const LayoutTree tree = placed(row, {200, 29.04});
  EXPECT_NEAR(elementOf(child(tree, 0)).text->lines[0].baseline, 0.969 * 24, 1e-9);
  EXPECT_NEAR(elementOf(child(tree, 1)).text->lines[0].baseline, 0.969 * 24, 1e-9);
  EXPECT_NEAR(child(tree, 1).frame.y, 0.969 * 12, 1e-9);
  EXPECT_THAT(answered(row, {}), SizeIs(28.8 + 4 + 14.4, 29.04));
}

TEST(LayoutStack, ASymbolsMiddleStandsAboveTheBaselineOfTheTextBesideIt) {
  const LayoutTree tree = placed(HStack{{.alignment = VerticalAlignment::firstTextBaseline},
                                        Symbol("tag.fill").font(10),
                                        Text("20").font(20)},
                                 {200, 50});
  const Rect symbol = child(tree, 0).frame;
  const double baseline = elementOf(child(tree, 1)).text->lines[0].baseline;
  EXPECT_NEAR(symbol.y + symbol.height / 2, baseline - 3.64, 1e-9);
}

TEST(LayoutStack, AViewWithoutTextStandsOnItsBottomEdge) {
  const LayoutTree tree = placed(
      HStack{{.alignment = VerticalAlignment::firstTextBaseline}, Text("aa").font(10), box(10, 4)},
      {100, 12.1});
  EXPECT_NEAR(child(tree, 1).frame.bottom(), 9.69, 1e-9);
}

TEST(LayoutStack, BaselinesPassThroughPaddingFramesAndStacks) {
  // Top of the text in its column: 3 (padding) + 20 + 2 (box and spacing).
  const View column = VStack{{.spacing = 2}, box(10, 20), Text("aa").font(10)};
  const View row = HStack{{.alignment = VerticalAlignment::firstTextBaseline},
                          column.padding(3),
                          Text("b").font(10).frame({.height = 20})};
  const LayoutTree tree = placed(row, {100, 60});
  const double first = child(child(tree, 0), 1).frame.y;
  const double second = elementOf(child(tree, 1)).frame.y;
  EXPECT_NEAR(first, second, 1e-9);
  // The column's first baseline lies at 3 + 22 + 9.69, the framed one's at (20 - 12.1) / 2 + 9.69.
  EXPECT_NEAR(child(tree, 1).frame.y - child(tree, 0).frame.y, 25 - 3.95, 1e-9);
}

TEST(LayoutStack, TheFirstLineCountsAndTheHighestChild) {
  const View column = VStack{{.spacing = 0}, Text("aa").font(10), Text("bb").font(10)};
  const LayoutTree tree = placed(
      HStack{{.alignment = VerticalAlignment::firstTextBaseline}, column, Text("c\nd").font(10)},
      {100, 40});
  EXPECT_NEAR(child(tree, 0).frame.y, child(tree, 1).frame.y, 1e-9);
}

TEST(LayoutStack, DepthStackIsTheUnionOnItsAlignment) {
  const View stack =
      ZStack{{.alignment = Alignment::bottomTrailing}, box(30, 10), box(10, 20), Rectangle()};
  EXPECT_THAT(answered(stack, {}), SizeIs(30, 20));
  const LayoutTree tree = placed(stack.fixedSize(), {30, 20});
  EXPECT_THAT(child(tree, 0), FrameIs(0, 10, 30, 10));
  EXPECT_THAT(child(tree, 1), FrameIs(20, 0, 10, 20));
  EXPECT_THAT(child(placed(stack.fixedSize(), {30, 20}, kRtl), 1), FrameIs(0, 0, 10, 20));
}

TEST(LayoutStack, ZIndexReordersDrawingButNotPlaces) {
  const View row = HStack{{.spacing = 0}, box(10, 5).zIndex(1), box(20, 5), box(30, 5).zIndex(-1)};
  const LayoutTree tree = placed(row, {60, 5});
  EXPECT_THAT(child(tree, 0), FrameIs(30, 0, 30, 5));
  EXPECT_THAT(child(tree, 1), FrameIs(10, 0, 20, 5));
  EXPECT_THAT(child(tree, 2), FrameIs(0, 0, 10, 5));
}

TEST(LayoutStack, NegativeSpacingOverlapsAndLengthStaysAboveZero) {
  EXPECT_THAT(answered(VStack{{.spacing = -20}, box(10, 66), box(10, 66), box(10, 66)}, {}),
              SizeIs(10, 158));
  EXPECT_THAT(answered(VStack{{.spacing = -200}, box(10, 66), box(10, 66)}, {}), SizeIs(10, 0));
}

TEST(LayoutStack, InfiniteSpaceIsOfferedToAll) {
  EXPECT_THAT(answered(HStack{{}, Rectangle(), box(10, 10), Rectangle()}, {kInfinity, 10}),
              SizeIs(kInfinity, 10));
  EXPECT_THAT(answered(HStack{{}, box(10, 10), box(10, 10)}, {kInfinity, kInfinity}),
              SizeIs(28, 10));
}

TEST(LayoutStack, AnswersOverASweepOfProposals) {
  const View row = HStack{{.spacing = 0}, box(30, 10), Rectangle()};
  for (double width = 0; width <= 200; width += 0.5) {
    EXPECT_THAT(answered(row, {width, 40}), SizeIs(std::max(width, 30.0), 40)) << width;
    const View column = VStack{{.spacing = 0}, box(10, 30), Rectangle()};
    EXPECT_THAT(answered(column, {40, width}), SizeIs(40, std::max(width, 30.0))) << width;
  }
}

}  // namespace
}  // namespace rendering
