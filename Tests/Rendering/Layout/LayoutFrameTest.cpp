// Frames: fixed lengths, bounds, and the place of the view inside.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"

namespace rendering {
namespace {

using namespace viewkit;

constexpr auto kNothing = std::nullopt;

TEST(LayoutFrame, FixedLengthsHoldWhateverIsProposed) {
  const View view = Rectangle().frame({.width = 30, .height = 20});
  for (const Proposal p :
       {Proposal{}, Proposal{0, 0}, Proposal{100, 100}, Proposal{kInfinity, 1}}) {
    EXPECT_THAT(answered(view, p), SizeIs(30, 20));
  }
}

TEST(LayoutFrame, TheOtherAxisIsTheTargets) {
  EXPECT_THAT(answered(Rectangle().frame({.width = 30}), {100, 50}), SizeIs(30, 50));
  EXPECT_THAT(answered(Text("aa").font(10).frame({.height = 40}), {100, 50}), SizeIs(12, 40));
}

TEST(LayoutFrame, TheTargetIsAlignedAndMayOverflow) {
  const auto place = [](Alignment alignment, LayoutDirection direction) {
    const View view =
        box(10, 4).frame(FixedFrame{.width = 30, .height = 20, .alignment = alignment});
    const LayoutTree tree = placed(view, {30, 20}, direction);
    return std::pair{elementOf(tree.root).frame.x, elementOf(tree.root).frame.y};
  };
  EXPECT_EQ(place(Alignment::center, kLtr), std::pair(10.0, 8.0));
  EXPECT_EQ(place(Alignment::topLeading, kLtr), std::pair(0.0, 0.0));
  EXPECT_EQ(place(Alignment::bottomTrailing, kLtr), std::pair(20.0, 16.0));
  EXPECT_EQ(place(Alignment::topLeading, kRtl), std::pair(20.0, 0.0));
  EXPECT_EQ(place(Alignment::bottomTrailing, kRtl), std::pair(0.0, 16.0));
  const LayoutTree large = placed(box(50, 40).frame({.width = 30, .height = 20}), {30, 20});
  EXPECT_THAT(elementOf(large.root), FrameIs(-10, -10, 50, 40));
}

TEST(LayoutFrame, InfiniteMaximumTakesTheProposalOrTheLongerTarget) {
  const View view = box(40, 10).frame(FlexibleFrame{.maxWidth = kInfinity});
  EXPECT_THAT(answered(view, {100, 50}), SizeIs(100, 10));
  EXPECT_THAT(answered(view, {20, 50}), SizeIs(40, 10));
  EXPECT_THAT(answered(view, {}), SizeIs(40, 10));
  EXPECT_THAT(answered(view, {kInfinity, 50}), SizeIs(kInfinity, 10));
}

TEST(LayoutFrame, MaximumAlone) {
  const View shape = Rectangle().frame(FlexibleFrame{.maxWidth = 60});
  EXPECT_THAT(answered(shape, {100, 5}), SizeIs(60, 5));
  EXPECT_THAT(answered(shape, {40, 5}), SizeIs(40, 5));
  EXPECT_THAT(answered(shape, {kNothing, 5}), SizeIs(10, 5));
  const View wide = box(50, 5).frame(FlexibleFrame{.maxWidth = 60});
  EXPECT_THAT(answered(wide, {40, 5}), SizeIs(50, 5));
  EXPECT_THAT(answered(box(80, 5).frame(FlexibleFrame{.maxWidth = 60}), {40, 5}), SizeIs(60, 5));
}

TEST(LayoutFrame, MaximumWithoutAProposalOffersItToATargetThatWouldPassIt) {
  const View text = Text("aaaa aaaa").font(10).frame(FlexibleFrame{.maxWidth = 30});
  EXPECT_THAT(answered(text, {}), SizeIs(24, 24.2));
}

TEST(LayoutFrame, MinimumAlone) {
  const View shape = Rectangle().frame(FlexibleFrame{.minWidth = 60});
  EXPECT_THAT(answered(shape, {100, 5}), SizeIs(100, 5));
  EXPECT_THAT(answered(shape, {40, 5}), SizeIs(60, 5));
  EXPECT_THAT(answered(shape, {kNothing, 5}), SizeIs(60, 5));
  const View small = box(20, 5).frame(FlexibleFrame{.minWidth = 10});
  EXPECT_THAT(answered(small, {100, 5}), SizeIs(20, 5));
  EXPECT_THAT(answered(small, {15, 5}), SizeIs(15, 5));
  EXPECT_THAT(answered(small, {5, 5}), SizeIs(10, 5));
}

TEST(LayoutFrame, BothBoundsClampTheProposal) {
  const View view = box(20, 5).frame(FlexibleFrame{.minWidth = 30, .maxWidth = 60});
  EXPECT_THAT(answered(view, {45, 5}), SizeIs(45, 5));
  EXPECT_THAT(answered(view, {100, 5}), SizeIs(60, 5));
  EXPECT_THAT(answered(view, {5, 5}), SizeIs(30, 5));
  EXPECT_THAT(answered(view, {kNothing, 5}), SizeIs(30, 5));
}

TEST(LayoutFrame, HeightFollowsTheSameRules) {
  EXPECT_THAT(answered(Rectangle().frame(FlexibleFrame{.maxHeight = 63}), {100, 68}),
              SizeIs(100, 63));
  EXPECT_THAT(answered(Rectangle().frame(FlexibleFrame{.maxHeight = 63}), {100, 56}),
              SizeIs(100, 56));
  EXPECT_THAT(answered(box(5, 5).frame(FlexibleFrame{.maxHeight = kInfinity}), {9, 90}),
              SizeIs(5, 90));
  EXPECT_THAT(answered(box(5, 5).frame(FlexibleFrame{.minHeight = 20}), {9, 90}), SizeIs(5, 20));
}

TEST(LayoutFrame, RelativeLengthsReferToTheProposal) {
  const View view =
      Rectangle().frame(FixedFrame{.width = kWidth * 0.25, .height = min(kWidth, kHeight)});
  EXPECT_THAT(answered(view, {80, 30}), SizeIs(20, 30));
  EXPECT_THAT(answered(view, {kInfinity, 30}), SizeIs(kInfinity, 30));
  EXPECT_THAT(answered(view, {}), SizeIs(2.5, 10));
}

TEST(LayoutFrame, SenselessBoundsAreDropped) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THAT(answered(Rectangle().frame(FixedFrame{.width = nan}), {40, 10}), SizeIs(40, 10));
  EXPECT_THAT(answered(Rectangle().frame(FixedFrame{.width = -5}), {40, 10}), SizeIs(0, 10));
  EXPECT_THAT(answered(Rectangle().frame(FixedFrame{.width = kInfinity}), {40, 10}),
              SizeIs(40, 10));
  EXPECT_THAT(
      answered(Rectangle().frame(FlexibleFrame{.minWidth = nan, .maxWidth = nan}), {40, 10}),
      SizeIs(40, 10));
  EXPECT_THAT(answered(Rectangle().frame(FlexibleFrame{.minWidth = 50, .maxWidth = 20}), {40, 10}),
              SizeIs(50, 10));
}

}  // namespace
}  // namespace rendering
