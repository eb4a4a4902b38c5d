// The other modifiers, canvases, gauges and leaves.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "ViewKit/OutermostModifier.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using enum ImageElement::ContentMode;

constexpr auto kNothing = std::nullopt;

TEST(LayoutModifier, PaddingReducesTheProposalAndIsAddedAgain) {
  const View view = Rectangle().padding({.top = 1, .leading = 2, .bottom = 3, .trailing = 4});
  EXPECT_THAT(answered(view, {50, 40}), SizeIs(50, 40));
  EXPECT_THAT(answered(view, {5, 2}), SizeIs(6, 4));
  EXPECT_THAT(answered(view, {}), SizeIs(16, 14));
  EXPECT_THAT(elementOf(placed(view, {50, 40}).root), FrameIs(2, 1, 44, 36));
  EXPECT_THAT(elementOf(placed(view, {50, 40}, kRtl).root), FrameIs(4, 1, 44, 36));
}

TEST(LayoutModifier, BackgroundsAndOverlaysGetTheTargetsSizeAndNeverChangeIt) {
  const View view =
      box(40, 20).overlay(box(50, 10), Alignment::bottomLeading).background(Rectangle());
  EXPECT_THAT(answered(view, {100, 100}), SizeIs(40, 20));
  const LayoutTree tree = placed(view, {100, 100});
  const PlacedNode& background = tree.root;
  ASSERT_EQ(background.children.size(), 2u);
  EXPECT_THAT(background.children[1], FrameIs(30, 40, 40, 20));
  const PlacedNode& overlay = background.children[0];
  ASSERT_EQ(overlay.children.size(), 2u);
  EXPECT_THAT(overlay.children[1], FrameIs(30, 50, 50, 10));
  const LayoutTree mirrored = placed(view, {100, 100}, kRtl);
  EXPECT_THAT(mirrored.root.children[0].children[1], FrameIs(20, 50, 50, 10));
}

TEST(LayoutModifier, OffsetMovesWithoutChangingTheAnswer) {
  const View view = box(10, 10).offset(kWidth * 0.1, 3);
  EXPECT_THAT(answered(view, {50, 40}), SizeIs(10, 10));
  const LayoutTree tree = placed(view, {50, 40});
  EXPECT_THAT(tree.root, FrameIs(20, 15, 10, 10));
  EXPECT_THAT(elementOf(tree.root), FrameIs(25, 18, 10, 10));
  EXPECT_THAT(elementOf(placed(view, {50, 40}, kRtl).root), FrameIs(15, 18, 10, 10));
}

TEST(LayoutModifier, PositionPutsTheCentreAndTakesTheWholeProposal) {
  const View view = box(10, 10).position(kWidth, kHeight / 2);
  EXPECT_THAT(answered(view, {50, 40}), SizeIs(50, 40));
  EXPECT_THAT(answered(view, {}), SizeIs(10, 10));
  EXPECT_THAT(elementOf(placed(view, {50, 40}).root), FrameIs(45, 15, 10, 10));
  EXPECT_THAT(elementOf(placed(view, {50, 40}, kRtl).root), FrameIs(-5, 15, 10, 10));
}

TEST(LayoutModifier, AspectRatioFitsOrFills) {
  const View fitting = Rectangle().aspectRatio(2, fit);
  EXPECT_THAT(answered(fitting, {100, 100}), SizeIs(100, 50));
  EXPECT_THAT(answered(fitting, {100, 20}), SizeIs(40, 20));
  EXPECT_THAT(answered(fitting, {100, kNothing}), SizeIs(100, 50));
  EXPECT_THAT(answered(fitting, {kNothing, 20}), SizeIs(40, 20));
  EXPECT_THAT(answered(fitting, {}), SizeIs(10, 5));
  const View filling = Rectangle().aspectRatio(2, fill);
  EXPECT_THAT(answered(filling, {100, 100}), SizeIs(200, 100));
  EXPECT_THAT(answered(filling, {100, 20}), SizeIs(100, 50));
  EXPECT_THAT(answered(Rectangle().aspectRatio(0, fit), {30, 20}), SizeIs(30, 20));
}

TEST(LayoutModifier, FixedSizeAsksForTheIdealLength) {
  const View text = Text("aaaa aaaa").font(10);
  EXPECT_THAT(answered(text.fixedSize(), {20, 10}), SizeIs(54, 12.1));
  EXPECT_THAT(answered(text.fixedSize(false, true), {30, 5}), SizeIs(24, 24.2));
  EXPECT_THAT(answered(Rectangle().fixedSize(true, false), {30, 5}), SizeIs(10, 5));
}

TEST(LayoutModifier, OtherModifiersAreTransparent) {
  const View plain = box(10, 10);
  const View dressed = plain.opacity(0.5)
                           .foregroundStyle(Color::white())
                           .clip(CircleShape{})
                           .cutout(CircleShape{})
                           .shadow({.radius = 9})
                           .accessibilityLabel("a")
                           .privacySensitive(PrivacyTreatment::covered)
                           .accentable()
                           .link("quorvel://open/a")
                           .widgetURL("quorvel://open/b")
                           .containerBackground(box(99, 99))
                           .layoutDirection(kRtl);
  EXPECT_THAT(answered(dressed, {5, 5}), SizeIs(10, 10));
  const LayoutTree tree = placed(dressed, {30, 30});
  EXPECT_THAT(tree.root, FrameIs(10, 10, 10, 10));
  EXPECT_EQ(tree.root.children.size(), 1u);
  EXPECT_EQ(widgetURL(HStack{{}, dressed}), "quorvel://open/b");
  EXPECT_EQ(containerBackground(HStack{{}, dressed}), box(99, 99));
  EXPECT_TRUE(containerBackground(plain).isEmpty());
  EXPECT_EQ(widgetURL(plain), std::nullopt);
}

TEST(LayoutModifier, ADirectionHoldsInsideItOnly) {
  const View inner = HStack{{.spacing = 0}, box(10, 5), box(20, 5)}.layoutDirection(kRtl);
  const LayoutTree tree = placed(HStack{{.spacing = 0}, inner, box(5, 5)}, {35, 5});
  EXPECT_THAT(child(child(tree, 0), 0), FrameIs(20, 0, 10, 5));
  EXPECT_THAT(child(child(tree, 0), 1), FrameIs(0, 0, 20, 5));
  EXPECT_THAT(child(tree, 1), FrameIs(30, 0, 5, 5));
  EXPECT_EQ(child(tree, 0).direction, kLtr);
  EXPECT_EQ(elementOf(child(tree, 0)).direction, kRtl);
}

TEST(LayoutModifier, CanvasChildrenReferToTheCanvas) {
  const View bar = Rectangle()
                       .frame(FixedFrame{.width = kWidth * 0.1, .height = kHeight * 0.5})
                       .offset(kWidth * 0.2, kHeight * 0.5);
  const View canvas = Canvas{bar, Circle().frame({.width = 4, .height = 4}).position(kWidth, 0)};
  EXPECT_THAT(answered(canvas, {100, 40}), SizeIs(100, 40));
  EXPECT_THAT(answered(canvas, {}), SizeIs(10, 10));
  const LayoutTree tree = placed(canvas.padding(5), {110, 50});
  EXPECT_THAT(elementOf(child(tree, 0)), FrameIs(25, 25, 10, 20));
  EXPECT_THAT(elementOf(child(tree, 1)), FrameIs(103, 3, 4, 4));
  const LayoutTree mirrored = placed(canvas.padding(5), {110, 50}, kRtl);
  EXPECT_THAT(elementOf(child(mirrored, 0)), FrameIs(75, 25, 10, 20));
}

TEST(LayoutModifier, EveryModifierOfACanvasChildRefersToTheCanvas) {
  const View child1 =
      Rectangle()
          .frame(FixedFrame{.width = kWidth * 0.5, .height = 10})
          .frame(FixedFrame{.width = kWidth * 0.75, .height = 10, .alignment = Alignment::leading});
  const LayoutTree tree = placed(Canvas{child1}, {100, 40});
  EXPECT_THAT(child(tree, 0), FrameIs(0, 0, 75, 10));
  EXPECT_THAT(elementOf(child(tree, 0)), FrameIs(0, 0, 50, 10));
}

TEST(LayoutModifier, ShapesImagesAndCanvasesAreTenWithoutAProposal) {
  const View image = Image{{.path = "a.png"}, Rectangle()};
  for (const View& view : {View{Rectangle()}, image, View{Canvas{}}, View{Circle()}}) {
    EXPECT_THAT(answered(view, {}), SizeIs(10, 10));
    EXPECT_THAT(answered(view, {70, kNothing}), SizeIs(70, 10));
    EXPECT_THAT(answered(view, {0, 3}), SizeIs(0, 3));
  }
  EXPECT_THAT(child(placed(image, {70, 30}), 0), FrameIs(0, 0, 70, 30));
}

TEST(LayoutModifier, GaugeIsASquareWithItsLabelInTheMiddle) {
  const View gauge = Gauge{{.fraction = 0.5, .lineWidth = 6}, box(20, 10)};
  EXPECT_THAT(answered(gauge, {76, 90}), SizeIs(76, 76));
  EXPECT_THAT(answered(gauge, {kNothing, 30}), SizeIs(30, 30));
  EXPECT_THAT(answered(gauge, {}), SizeIs(10, 10));
  EXPECT_THAT(child(placed(gauge, {76, 90}), 0), FrameIs(28, 40, 20, 10));
  // The label is offered the square inside the ring: (76 - 12) / sqrt 2.
  const View open = Gauge{{.fraction = 0.5, .lineWidth = 6}, Rectangle()};
  EXPECT_NEAR(child(placed(open, {76, 76}), 0).frame.width, 64 / std::sqrt(2.0), 1e-9);
}

TEST(LayoutModifier, SymbolsHaveTheirOwnSize) {
  const View symbol = Symbol("tag.fill").font(20);
  for (const Proposal p : {Proposal{}, Proposal{0, 0}, Proposal{100, 100}}) {
    EXPECT_THAT(answered(symbol, p), SizeIs(22, 24.2));
  }
  EXPECT_THAT(answered(symbol.frame({.width = 30, .height = 30}), {}), SizeIs(30, 30));
}

TEST(LayoutModifier, ProposalsOfCarriersAreDefinite) {
  const View shape = RoundedRectangle(kHeight / 2).frame({.width = 30, .height = 8});
  const LayoutTree tree = placed(HStack{{}, shape, Rectangle()}.fixedSize(), {100, 50});
  const PlacedNode& rounded = elementOf(child(tree, 0));
  EXPECT_EQ(rounded.proposal, (Size{30, 8}));
  EXPECT_EQ(elementOf(child(tree, 1)).proposal, (Size{10, 10}));
}

}  // namespace
}  // namespace rendering
