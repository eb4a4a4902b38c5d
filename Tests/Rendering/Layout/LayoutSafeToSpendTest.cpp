// The safe-to-spend widget's three layouts as trees: their rows add up as drawn.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using enum FontWeight;

constexpr double kLine = 1.21;

View header() {
  return HStack{{.spacing = 4},
                Symbol("gauge.with.needle").font(12),
                Text("Safe to spend").font(11.5, medium).lineLimit(1).minimumScaleFactor(0.85)}
      .opacity(0.92);
}

View amountRow(const char* amount, double size, const char* unit, double unitSize) {
  return HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
                Text(amount).font(size, semibold).tracking(-0.02 * size).lineLimit(1),
                Text(unit).font(unitSize).lineLimit(1)};
}

View filled(View view, Alignment alignment = Alignment::topLeading) {
  return view.frame(
      FlexibleFrame{.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = alignment});
}

View meter() {
  return Capsule()
      .overlay(Capsule().frame(FixedFrame{.width = kWidth * 0.61}), Alignment::leading)
      .frame({.height = 5});
}

View accentTile() {
  const View column = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 4},
                             amountRow("$106", 24, "/ day", 12).padding({.top = 2}),
                             Text("11d left").font(11).opacity(0.88)};
  const View foot = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                           meter().padding({.top = 1}),
                           Text("$1,166 left").font(12).lineLimit(1).padding({.top = 6})};
  return filled(VStack{{.alignment = HorizontalAlignment::leading, .spacing = 6},
                       header(),
                       column,
                       Spacer{0},
                       foot})
      .padding(16);
}

TEST(LayoutSafeToSpend, AccentTile) {
  const LayoutTree tree = placed(accentTile(), {170, 170});
  const PlacedNode& rows = elementOf(tree.root);
  ASSERT_EQ(rows.children.size(), 4u);
  EXPECT_NEAR(rows.frame.height, 138, 1e-6);
  // The header's symbol is as high as a 12-point line and 13 wide; the title is centred on it.
  EXPECT_NEAR(rows.children[0].frame.height, 12 * kLine, 1e-6);
  EXPECT_NEAR(rows.children[0].frame.y, 16, 1e-6);
  EXPECT_NEAR(child(rows.children[0], 0).frame.width, 13, 0.25);
  EXPECT_NEAR(child(rows.children[0], 1).frame.y, 16 + (12 - 11.5) * kLine / 2, 1e-6);
  // 6 below it 2 of padding, the amount's line, 4, the phrase.
  const PlacedNode& column = rows.children[1];
  EXPECT_NEAR(column.frame.y, 16 + 12 * kLine + 6, 1e-6);
  EXPECT_NEAR(column.frame.height, 2 + 24 * kLine + 4 + 11 * kLine, 1e-6);
  // The spacer takes 138 - (14.52 + 48.35 + 26.52) - 18 of spacing.
  EXPECT_NEAR(rows.children[2].frame.height, 30.61, 1e-6);
  const PlacedNode& foot = rows.children[3];
  EXPECT_NEAR(foot.frame.bottom(), 154, 1e-6);
  EXPECT_THAT(elementOf(child(foot, 1)), FrameIs(16, 154 - 14.52, 11 * 12 * 0.6, 14.52));
  EXPECT_NEAR(foot.frame.y, 154 - 26.52, 1e-6);
  EXPECT_NEAR(foot.frame.width, 138, 1e-6);
}

TEST(LayoutSafeToSpend, AccentTileMirrored) {
  const LayoutTree left = placed(accentTile(), {170, 170});
  const LayoutTree right = placed(accentTile(), {170, 170}, kRtl);
  const Rect title = child(elementOf(left.root).children[0], 1).frame;
  const Rect mirrored = child(elementOf(right.root).children[0], 1).frame;
  EXPECT_NEAR(mirrored.right(), 170 - title.x, 1e-6);
}

View ring() {
  const View gauge =
      Arc({})
          .frame(FlexibleFrame{.maxHeight = 63})
          .overlay(Text("61%").font(20, semibold).padding({.bottom = 2}), Alignment::bottom);
  const View column =
      VStack{{.alignment = HorizontalAlignment::leading, .spacing = 3},
             amountRow("$106", 21, "/ day", 11.5),
             HStack{{}, Text("11d left").font(11.5), Spacer{}, Text("On pace").font(11.5)}};
  return filled(VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                       header(),
                       Spacer{0},
                       gauge.padding({.top = 7}),
                       column.padding({.top = 6})})
      .padding(16);
}

TEST(LayoutSafeToSpend, Ring) {
  // 14.52 + 7 + 63 + 6 + 25.41 + 3 + 13.915 = 132.845: the spacer has the rest of 138.
  const LayoutTree tree = placed(ring(), {170, 170});
  const PlacedNode& rows = elementOf(tree.root);
  EXPECT_NEAR(rows.frame.height, 138, 1e-6);
  EXPECT_NEAR(rows.children[1].frame.height, 138 - 132.845, 1e-6);
  EXPECT_THAT(elementOf(rows.children[2]), FrameIs(16, 16 + 14.52 + 5.155 + 7, 138, 63));
  EXPECT_NEAR(rows.children[3].frame.bottom(), 154, 1e-6);
  const PlacedNode& verdicts = child(rows.children[3], 1);
  EXPECT_NEAR(child(verdicts, 2).frame.right(), 154, 1e-6);
}

TEST(LayoutSafeToSpend, TheRingsBoxGivesWayInTheNarrowWidget) {
  // 126 - (14.52 + 7 + 6 + 25.41 + 3 + 13.915) = 56.155.
  const LayoutTree tree = placed(ring(), {158, 158});
  const PlacedNode& rows = elementOf(tree.root);
  EXPECT_NEAR(rows.children[1].frame.height, 0, 1e-6);
  EXPECT_NEAR(elementOf(rows.children[2]).frame.height, 56.155, 1e-6);
}

View mediumWidget() {
  const View pace = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                           header(),
                           Spacer{},
                           Arc({}).frame({.width = 104, .height = 54})}
                        .frame({.width = 104});
  const View left = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 3},
                           Text("Left to spend").font(12),
                           Text("$1,166").font(22, semibold)};
  const View used = HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3},
                           Text("61%").font(19, semibold),
                           Text("used").font(11.5)};
  const View column =
      VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
             left,
             Spacer{},
             Text("Spent").font(10),
             used,
             Text("11d left").font(11.5).padding({.top = 3})}
          .frame(FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::leading});
  const View tile = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                           Text("$106").font(17, semibold),
                           Text("per day").font(11).padding({.top = 3}),
                           Spacer{},
                           Text("Days left").font(11).lineLimit(1).minimumScaleFactor(0.8),
                           Text("11").font(17, semibold).padding({.top = 3})}
                        .padding(12)
                        .frame(FixedFrame{.width = 92, .alignment = Alignment::leading})
                        .background(RoundedRectangle(14));
  return filled(HStack{{.spacing = 12}, pace, column, tile}).padding(16);
}

TEST(LayoutSafeToSpend, Medium) {
  const LayoutTree tree = placed(mediumWidget(), {364, 170});
  const PlacedNode& parts = elementOf(tree.root);
  EXPECT_THAT(parts, FrameIs(16, 16, 332, 138));
  EXPECT_THAT(parts.children[0], FrameIs(16, 16, 104, 138));
  EXPECT_THAT(parts.children[1], FrameIs(132, 16, 112, 138));
  EXPECT_THAT(parts.children[2], FrameIs(256, 16, 92, 138));
  EXPECT_THAT(child(parts.children[0], 2), FrameIs(16, 100, 104, 54));
  const PlacedNode& column = elementOf(parts.children[1]);
  EXPECT_NEAR(elementOf(column.children[4]).frame.bottom(), 154, 1e-6);
  EXPECT_NEAR(column.children[2].frame.y, 154 - 11.5 * kLine - 3 - 19 * kLine - 10 * kLine, 1e-6);
  EXPECT_NEAR(child(parts.children[2], 4).frame.bottom(), 142, 1e-6);
}

TEST(LayoutSafeToSpend, MessageStandsAtTheFoot) {
  const View message =
      VStack{{.alignment = HorizontalAlignment::leading, .spacing = 8},
             HStack{{.spacing = 8},
                    Symbol("gauge.with.needle").font(15).frame({.width = 30, .height = 30}),
                    Text("Safe to spend").font(13).lineLimit(2).minimumScaleFactor(0.85)},
             Spacer{0},
             Text("Set a budget in it").font(13).lineLimit(3).balanced(),
             box(60, 26).padding({.top = 10})};
  const LayoutTree tree = placed(filled(message), {138, 138});
  const PlacedNode& rows = elementOf(tree.root);
  EXPECT_NEAR(elementOf(rows.children[3]).frame.bottom(), 138, 1e-6);
  EXPECT_NEAR(rows.children[3].frame.height, 36, 1e-6);
  // 18 characters of 7.8 need two lines in 138: "Set a budget" and "in it" turn into two of 9
  // and 8.
  EXPECT_NEAR(rows.children[2].frame.height, 2 * 13 * kLine, 1e-6);
  EXPECT_NEAR(rows.children[2].frame.width, 12 * 7.8, 1e-4);
  EXPECT_NEAR(rows.children[2].frame.bottom(), 138 - 36 - 8, 1e-6);
}

}  // namespace
}  // namespace rendering
