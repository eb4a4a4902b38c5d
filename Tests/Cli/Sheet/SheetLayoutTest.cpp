// Where pictures stand on a contact sheet, worked out by hand.
#include <gmock/gmock.h>

#include "Cli/Sheet/SheetLayout.hpp"

namespace cli {
namespace {

using rendering::Point;
using rendering::Size;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Size kSmall{170, 170};
constexpr Size kMedium{364, 170};
constexpr Size kLarge{364, 382};

TEST(PackRow, SmallAndMediumShareAColumnBesideTheLargeOne) {
  const Packing row = packRow({kSmall, kMedium, kLarge}, 20);
  // The column is spread to the height of the row: 382 - 2 * 170 = 42 between them.
  EXPECT_THAT(row.places, ElementsAre(Point{0, 0}, Point{0, 212}, Point{384, 0}));
  EXPECT_EQ(row.size, (Size{748, 382}));
}

TEST(PackRow, PicturesOfOneHeightStandSideBySide) {
  const Packing row = packRow({kSmall, kSmall, kMedium}, 20);
  EXPECT_THAT(row.places, ElementsAre(Point{0, 0}, Point{190, 0}, Point{380, 0}));
  EXPECT_EQ(row.size, (Size{744, 170}));
}

TEST(PackRow, AColumnEndsWhereTheNextPictureWouldReachBelowTheRow) {
  // 100 + 20 + 100 fit 220; a third would need 340.
  const Packing row = packRow({{50, 220}, {60, 100}, {70, 100}, {80, 100}}, 20);
  EXPECT_THAT(row.places, ElementsAre(Point{0, 0}, Point{70, 0}, Point{70, 120}, Point{160, 0}));
  EXPECT_EQ(row.size, (Size{240, 220}));
}

TEST(PackRow, OnePictureIsTheRow) {
  EXPECT_EQ(packRow({kMedium}, 20).size, kMedium);
  EXPECT_THAT(packRow({}, 20).places, IsEmpty());
}

TEST(FlowRows, AFewRowsStandInOneColumn) {
  const Packing flow = flowRows({{300, 100}, {200, 100}}, 10, 40, 1);
  EXPECT_THAT(flow.places, ElementsAre(Point{0, 0}, Point{0, 110}));
  EXPECT_EQ(flow.size, (Size{300, 210}));
}

TEST(FlowRows, ManyGoOnInFurtherColumnsAllAsWideAsTheWidest) {
  // Four rows of 100 in one column are 430 high and 100 wide. Two columns make 240 by 210, nearer
  // to a square; three would make 380 by 210.
  const Packing flow = flowRows({{100, 100}, {80, 100}, {60, 100}, {100, 100}}, 10, 40, 1);
  EXPECT_THAT(flow.places, ElementsAre(Point{0, 0}, Point{0, 110}, Point{140, 0}, Point{140, 110}));
  EXPECT_EQ(flow.size, (Size{240, 210}));
}

TEST(FlowRows, PanelsSideBySideNeedFewerColumns) {
  // The same rows shown twice: 240 by 430 in one column, 520 by 210 in two.
  const Packing flow = flowRows({{100, 100}, {80, 100}, {60, 100}, {100, 100}}, 10, 40, 2);
  EXPECT_EQ(flow.size, (Size{100, 430}));
}

TEST(FlowRows, ColumnsAreAsEvenAsTheOrderAllows) {
  // 300 alone, then 100 + 10 + 100: no split of these in order into two is lower than 300.
  const Packing flow = flowRows({{100, 300}, {100, 100}, {100, 100}}, 10, 40, 1);
  EXPECT_THAT(flow.places, ElementsAre(Point{0, 0}, Point{140, 0}, Point{140, 110}));
  EXPECT_EQ(flow.size, (Size{240, 300}));
}

TEST(FlowRows, NoRowsNeedNoRoom) {
  EXPECT_THAT(flowRows({}, 10, 40, 2).places, IsEmpty());
}

}  // namespace
}  // namespace cli
