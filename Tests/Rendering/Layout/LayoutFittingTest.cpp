// Fitting takes the fullest child that stays within the proposal with every text whole; a group
// with one scale shrinks its texts alike. A character is 6 points wide at size 10, a line 12.1
// high.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "Rendering/Layout/PlacedDump.hpp"
#include "Rendering/Layout/PlacedText.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kLine = 12.1;
constexpr std::optional<double> kNothing = std::nullopt;

Text text(const char* words) {
  return Text(words).font(10);
}
/// One line that shrinks down to 0.5.
Text shrinking(const char* words, double least = 0.5) {
  return text(words).lineLimit(1).minimumScaleFactor(least);
}

void collectTexts(const PlacedNode& node, std::vector<const PlacedNode*>& out) {
  if (node.text) out.push_back(&node);
  for (const PlacedNode& child : node.children) collectTexts(child, out);
}
std::vector<std::string> wordsOf(const LayoutTree& tree) {
  std::vector<const PlacedNode*> nodes;
  collectTexts(tree.root, nodes);
  std::vector<std::string> words;
  for (const PlacedNode* node : nodes) words.push_back(node->text->paragraph->text);
  return words;
}
std::vector<double> scalesOf(const LayoutTree& tree) {
  std::vector<const PlacedNode*> nodes;
  collectTexts(tree.root, nodes);
  std::vector<double> scales;
  for (const PlacedNode* node : nodes) scales.push_back(node->text->scale);
  return scales;
}
auto areScales(std::vector<double> expected) {
  return ::testing::Pointwise(::testing::DoubleNear(1e-9), std::move(expected));
}

// ---- Fitting

View threeWords() {
  return Fitting{
      text("aaaaaaaaaa").lineLimit(1), text("bbbbb").lineLimit(1), text("cc").lineLimit(1)};
}

TEST(LayoutFitting, TheFirstChildThatStaysWithinTheWidthIsTaken) {
  EXPECT_THAT(wordsOf(placed(threeWords(), {100, 20})), ElementsAre("aaaaaaaaaa"));
  EXPECT_THAT(wordsOf(placed(threeWords(), {60, 20})), ElementsAre("aaaaaaaaaa"));
  EXPECT_THAT(wordsOf(placed(threeWords(), {59, 20})), ElementsAre("bbbbb"));
  EXPECT_THAT(wordsOf(placed(threeWords(), {30, 20})), ElementsAre("bbbbb"));
  EXPECT_THAT(wordsOf(placed(threeWords(), {29, 20})), ElementsAre("cc"));
}

TEST(LayoutFitting, TheLastChildIsTakenWhenNoneFits) {
  EXPECT_THAT(wordsOf(placed(threeWords(), {5, 20})), ElementsAre("cc"));
  EXPECT_THAT(wordsOf(placed(threeWords(), {0, 0})), ElementsAre("cc"));
}

TEST(LayoutFitting, HeightCountsAsWidthDoes) {
  const View boxes = Fitting{box(10, 30), box(10, 20), box(10, 10)};
  EXPECT_THAT(answered(boxes, {50, 30}), SizeIs(10, 30));
  EXPECT_THAT(answered(boxes, {50, 29.9}), SizeIs(10, 20));
  EXPECT_THAT(answered(boxes, {50, 19.9}), SizeIs(10, 10));
  EXPECT_THAT(answered(boxes, {9, 30}), SizeIs(10, 10));
}

TEST(LayoutFitting, AnAxisWithoutAProposalHoldsEverything) {
  EXPECT_THAT(answered(threeWords(), {kNothing, 20}), SizeIs(60, kLine));
  EXPECT_THAT(answered(threeWords(), {}), SizeIs(60, kLine));
  EXPECT_THAT(answered(threeWords(), {kInfinity, kInfinity}), SizeIs(60, kLine));
  EXPECT_THAT(answered(Fitting{box(10, 30), box(10, 20)}, {10, kNothing}), SizeIs(10, 30));
}

TEST(LayoutFitting, ATextThatShrinksIsWholeDownToItsMinimum) {
  // 10 characters are 60 points, at half size 30.
  const View view = Fitting{shrinking("aaaaaaaaaa"), text("b")};
  const LayoutTree small = placed(view, {30, 20});
  EXPECT_THAT(wordsOf(small), ElementsAre("aaaaaaaaaa"));
  EXPECT_THAT(scalesOf(small), areScales({0.5}));
  EXPECT_THAT(wordsOf(placed(view, {29.9, 20})), ElementsAre("b"));
}

TEST(LayoutFitting, AnEllipsisAnywhereBelowRefusesAChild) {
  // The frame stays within the proposal, the text in it is cut.
  const View view =
      Fitting{text("aaaaa").lineLimit(1).frame({.width = 29.0}).padding(1), box(7, 7)};
  EXPECT_THAT(answered(view, {50, 50}), SizeIs(7, 7));
  const View roomy =
      Fitting{text("aaaaa").lineLimit(1).frame({.width = 30.0}).padding(1), box(7, 7)};
  EXPECT_THAT(answered(roomy, {50, 50}), SizeIs(32, kLine + 2));
}

TEST(LayoutFitting, WhatAFittingOfOneChildHoldsMayBeCut) {
  const auto row = [](const View& name) {
    return Fitting{HStack{{.spacing = 0}, name.frame({.width = 20.0}), text("b")}, box(7, 7)};
  };
  const View name = text("aaaaa").lineLimit(1);
  EXPECT_THAT(wordsOf(placed(row(name), {50, 20})), IsEmpty());
  EXPECT_THAT(wordsOf(placed(row(Fitting{name}), {50, 20})), ElementsAre("aaaaa", "b"));
  // It has to stay within the proposal all the same.
  EXPECT_THAT(wordsOf(placed(row(Fitting{name}), {25, 20})), IsEmpty());
}

TEST(LayoutFitting, WhatIsNotNeededIsNotShaped) {
  FixedCellMeasurer measurer;
  static_cast<void>(layOut(threeWords(), {.size = {60, 20}}, measurer));
  EXPECT_EQ(measurer.shaped, 1);
  FixedCellMeasurer narrow;
  static_cast<void>(layOut(threeWords(), {.size = {30, 20}}, narrow));
  EXPECT_EQ(narrow.shaped, 2);
}

TEST(LayoutFitting, LinesBeyondTheHeightOrTheLimitRefuseAChild) {
  const View byHeight = Fitting{text("aa bb cc"), box(7, 7)};
  EXPECT_THAT(answered(byHeight, {12, 3 * kLine}), SizeIs(12, 3 * kLine));
  EXPECT_THAT(answered(byHeight, {12, 3 * kLine - 0.1}), SizeIs(7, 7));
  const View byLimit = Fitting{text("aa bb cc").lineLimit(2), box(7, 7)};
  EXPECT_THAT(answered(byLimit, {30, 50}), SizeIs(30, 2 * kLine));
  EXPECT_THAT(answered(byLimit, {12, 50}), SizeIs(7, 7));
}

TEST(LayoutFitting, ABrokenWordRefusesAChild) {
  const View view = Fitting{text("aa bbbbb"), box(7, 7)};
  EXPECT_THAT(answered(view, {30, 50}), SizeIs(30, 2 * kLine));
  EXPECT_THAT(answered(view, {29, 50}), SizeIs(7, 7));
}

TEST(LayoutFitting, TextsBesideAndBehindCountAsTheTextsBelow) {
  const View tile = Rectangle().frame({.width = 20.0, .height = 20.0});
  const auto fits = [&](const View& first) {
    return wordsOf(placed(Fitting{first, Circle()}, {50, 50})).size() == 1;
  };
  EXPECT_TRUE(fits(tile.overlay(text("aaa").lineLimit(1))));
  EXPECT_FALSE(fits(tile.overlay(text("aaaa").lineLimit(1))));
  EXPECT_TRUE(fits(tile.background(text("aaa").lineLimit(1))));
  EXPECT_FALSE(fits(tile.background(text("aaaa").lineLimit(1))));
}

TEST(LayoutFitting, CanvasesGaugesAndImagesAreLookedInto) {
  const auto fits = [](View first) {
    return wordsOf(placed(Fitting{std::move(first), Circle()}, {60, 60})).size() == 1;
  };
  const Text five = text("aaaaa").lineLimit(1);
  EXPECT_TRUE(fits(Canvas{five.frame({.width = kWidth / 2})}));
  EXPECT_FALSE(fits(Canvas{five.frame({.width = kWidth / 2 - 1})}));
  // The label's square has a side of (60 - 2 * 8) / sqrt 2 = 31.1, with a wider ring 28.3.
  EXPECT_TRUE(fits(Gauge{{.fraction = 1, .lineWidth = 8}, five}));
  EXPECT_FALSE(fits(Gauge{{.fraction = 1, .lineWidth = 10}, five}));
  EXPECT_TRUE(fits(Image{{.path = "a.png"}, text("aaaaaaaaaa").lineLimit(1)}));
  EXPECT_FALSE(fits(Image{{.path = "a.png"}, text("aaaaaaaaaaa").lineLimit(1)}));
}

TEST(LayoutFitting, ACanvasIsAskedAtEverySizeItHas) {
  // The row asks its first child at all it has and at nothing before it settles on 60.
  const View canvas = Canvas{text("aaaaa").lineLimit(1).frame({.width = kWidth / 2})};
  const View row = HStack{{.spacing = 0}, Fitting{canvas, box(1, 1)}, box(40, 5)};
  EXPECT_THAT(wordsOf(placed(row, {100, 50})), ElementsAre("aaaaa"));
  EXPECT_THAT(wordsOf(placed(row, {99, 50})), ElementsAre());
}

TEST(LayoutFitting, InARowItTakesWhatTheOthersLeave) {
  // 100 less the box and the gap: 60 are left for the fullest.
  const View row = HStack{{.spacing = 4}, box(36, 5), threeWords()};
  EXPECT_THAT(wordsOf(placed(row, {100, 20})), ElementsAre("aaaaaaaaaa"));
  EXPECT_THAT(wordsOf(placed(row, {99, 20})), ElementsAre("bbbbb"));
  EXPECT_THAT(placed(row, {99, 20}).root, FrameIs(14.5, 3.95, 70, kLine));
}

TEST(LayoutFitting, InAColumnItTakesTheHeightThatIsLeft) {
  const View two = VStack{{.spacing = 0}, text("aa").lineLimit(1), text("bb").lineLimit(1)};
  const View column = VStack{{.spacing = 0}, box(10, 10), Fitting{two, text("cc").lineLimit(1)}};
  EXPECT_THAT(wordsOf(placed(column, {50, 10 + 2 * kLine})), ElementsAre("aa", "bb"));
  EXPECT_THAT(wordsOf(placed(column, {50, 9.9 + 2 * kLine})), ElementsAre("cc"));
}

TEST(LayoutFitting, FramesAndPaddingsReduceWhatItIsOffered) {
  const auto chosen = [](const View& view) { return wordsOf(placed(view, {100, 50})).at(0); };
  EXPECT_EQ(chosen(threeWords().frame({.width = 60.0})), "aaaaaaaaaa");
  EXPECT_EQ(chosen(threeWords().frame({.width = 59.0})), "bbbbb");
  EXPECT_EQ(chosen(threeWords().frame(FlexibleFrame{.maxWidth = 59})), "bbbbb");
  EXPECT_EQ(chosen(threeWords().padding({0, 20, 0, 20})), "aaaaaaaaaa");
  EXPECT_EQ(chosen(threeWords().padding({0, 20, 0, 20.1})), "bbbbb");
  EXPECT_EQ(chosen(threeWords().fixedSize().frame({.width = 10.0})), "aaaaaaaaaa");
}

TEST(LayoutFitting, OneWithinAnotherChoosesForItself) {
  const View inner = Fitting{text("bbbbb").lineLimit(1), text("c").lineLimit(1)};
  const View first = text("aaaaa").lineLimit(1).layoutPriority(1);
  const View outer = Fitting{HStack{{.spacing = 0}, first, inner}, text("d").lineLimit(1)};
  EXPECT_THAT(wordsOf(placed(outer, {60, 20})), ElementsAre("aaaaa", "bbbbb"));
  EXPECT_THAT(wordsOf(placed(outer, {59, 20})), ElementsAre("aaaaa", "c"));
  EXPECT_THAT(wordsOf(placed(outer, {36, 20})), ElementsAre("aaaaa", "c"));
  EXPECT_THAT(wordsOf(placed(outer, {35, 20})), ElementsAre("d"));
}

TEST(LayoutFitting, RightToLeftItIsTheMirrorImage) {
  const View row = HStack{{.spacing = 4}, box(36, 5), threeWords()};
  const LayoutTree tree = placed(row, {99, 20}, kRtl);
  EXPECT_THAT(wordsOf(tree), ElementsAre("bbbbb"));
  EXPECT_THAT(child(tree, 0), FrameIs(99 - 14.5 - 36, 7.5, 36, 5));
  EXPECT_THAT(child(tree, 1), FrameIs(14.5, 3.95, 30, kLine));
}

TEST(LayoutFitting, ItsBaselineIsThatOfItsChoice) {
  const View row = HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 0},
                          text("aa").font(20),
                          Fitting{text("bbbbb").lineLimit(1)}};
  const LayoutTree tree = placed(row, {100, 50});
  // Baselines lie 0.969 em below the top: 19.38 and 9.69.
  EXPECT_NEAR(child(tree, 1).frame.y - child(tree, 0).frame.y, 9.69, 1e-9);
}

TEST(LayoutFitting, ASpacerInItStretchesAlongTheStackAroundIt) {
  const View row = HStack{{.spacing = 0}, Fitting{Spacer{4}}, box(10, 10)};
  EXPECT_THAT(answered(row, {50, 50}), SizeIs(50, 10));
}

TEST(LayoutFitting, WithoutChildrenItTakesNoRoom) {
  EXPECT_THAT(answered(Fitting{}, {50, 50}), SizeIs(0, 0));
  EXPECT_TRUE(placed(Fitting{}, {50, 50}).root.children.empty());
}

TEST(LayoutFitting, TheDumpShowsTheChoice) {
  EXPECT_EQ(dumpPlaced(placed(threeWords(), {40, 20})),
            "Fitting 5 3.95 30 12.1\n"
            "  Text \"bbbbb\" 5 3.95 30 12.1\n");
}

// ---- one scale

TEST(LayoutSharedScale, TheWidestDecides) {
  // 10 characters in 45 points shrink to 0.75, 5 would not have to.
  const View column = VStack{{.spacing = 0}, shrinking("aaaaaaaaaa"), shrinking("bbbbb")};
  EXPECT_THAT(scalesOf(placed(column, {45, 50})), areScales({0.75, 1}));
  const LayoutTree tree = placed(column.sharedScale(), {45, 50});
  EXPECT_THAT(scalesOf(tree), areScales({0.75, 0.75}));
  EXPECT_THAT(child(tree, 1), FrameIs(11.25, 25, 22.5, 0.75 * kLine));
}

TEST(LayoutSharedScale, NothingShrinksThatFits) {
  const View column = VStack{{.spacing = 0}, shrinking("aaaaaaaaaa"), shrinking("bbbbb")};
  EXPECT_THAT(scalesOf(placed(column.sharedScale(), {60, 50})), areScales({1, 1}));
}

TEST(LayoutSharedScale, OnlyTextsOfOneLineThatMayShrinkTakePart) {
  const View column = VStack{{.spacing = 0},
                             shrinking("aaaaaaaaaa"),
                             text("bbbbb").lineLimit(1),
                             text("cc").lineLimit(2).minimumScaleFactor(0.5),
                             text("dd").minimumScaleFactor(0.5)};
  EXPECT_THAT(scalesOf(placed(column.sharedScale(), {45, 100})), areScales({0.75, 1, 1, 1}));
}

TEST(LayoutSharedScale, ATextThatTakesNoPartDoesNotDecide) {
  // The second shrinks to 0.5 on two lines of 30, but is not of one line.
  const View column = VStack{{.spacing = 0},
                             shrinking("bbbbb"),
                             text("aaaaaaaaaa cccccccccc").lineLimit(2).minimumScaleFactor(0.5)};
  EXPECT_THAT(scalesOf(placed(column.sharedScale(), {30, 100})), areScales({1, 0.5}));
}

TEST(LayoutSharedScale, NoTextGoesBelowItsOwnMinimum) {
  const View column = VStack{{.spacing = 0}, shrinking("aaaaaaaaaa"), shrinking("bbbbb", 0.9)};
  EXPECT_THAT(scalesOf(placed(column.sharedScale(), {36, 50})), areScales({0.6, 0.9}));
}

TEST(LayoutSharedScale, ACutTextCountsWithItsMinimum) {
  const View column = VStack{{.spacing = 0}, shrinking("aaaaaaaaaa", 0.8), shrinking("bbbbb")};
  const LayoutTree tree = placed(column.sharedScale(), {30, 50});
  EXPECT_THAT(scalesOf(tree), areScales({0.8, 0.8}));
}

TEST(LayoutSharedScale, InARowEachTakesOnlyWhatItsScaleNeeds) {
  // 16 characters in 88 points. By themselves: the word takes its 36, the amount 52 of 60.
  const View row = HStack{{.spacing = 0}, shrinking("1234567890"), shrinking("per da")};
  EXPECT_THAT(scalesOf(placed(row, {88, 20})), areScales({52.0 / 60, 1}));
  const LayoutTree tree = placed(row.sharedScale(), {88, 20});
  EXPECT_THAT(scalesOf(tree), areScales({52.0 / 60, 52.0 / 60}));
  EXPECT_NEAR(tree.root.frame.width, 96 * 52.0 / 60, 1e-9);
}

TEST(LayoutSharedScale, ARowThatWouldCutItsAmountShrinksItsWordsInstead) {
  // 0.85 of 96 points: whole with one scale, while by themselves the amount would be cut.
  const View row = HStack{{.spacing = 0}, shrinking("1234567890", 0.85), shrinking("per da", 0.85)};
  const LayoutTree alone = placed(row, {81.6, 20});
  EXPECT_TRUE(child(alone, 0).text->isCut());
  const LayoutTree together = placed(row.sharedScale(), {81.6, 20});
  EXPECT_THAT(scalesOf(together), areScales({0.85, 0.85}));
  EXPECT_FALSE(child(together, 0).text->isCut());
}

TEST(LayoutSharedScale, TilesOfARowShrinkAlike) {
  const auto tile = [](const char* words) {
    return View{shrinking(words)}.frame({.width = 30.0, .height = 14.0});
  };
  const View row = HStack{{.spacing = 2}, tile("aaa"), tile("bbbbbbbb"), tile("cccccc")};
  EXPECT_THAT(scalesOf(placed(row.sharedScale(), {94, 20})), areScales({0.625, 0.625, 0.625}));
}

TEST(LayoutSharedScale, TextsInOverlaysAndOnCanvasesBelongToIt) {
  const View tile = box(24, 20);
  const View pile = VStack{{.spacing = 0},
                           tile.overlay(shrinking("aaaaa")),
                           Canvas{shrinking("bbbb").frame({.width = kWidth / 2})}.frame(
                               {.width = 60.0, .height = 14.0})};
  EXPECT_THAT(scalesOf(placed(pile.sharedScale(), {80, 50})), areScales({0.8, 0.8}));
}

TEST(LayoutSharedScale, TheInnerOfTwoGroupsFollowsTheOuter) {
  const View inner = VStack{{.spacing = 0}, shrinking("aaaa"), shrinking("bb")}.sharedScale();
  const View outer = VStack{{.spacing = 0}, shrinking("cccccccccc"), inner}.sharedScale();
  EXPECT_THAT(scalesOf(placed(outer, {45, 50})), areScales({0.75, 0.75, 0.75}));
  EXPECT_THAT(scalesOf(placed(outer, {18, 50})), areScales({0.5, 0.5, 0.5}));
}

TEST(LayoutSharedScale, GroupsSideBySideDoNotKnowEachOther) {
  const auto group = [](const char* first) {
    return VStack{{.spacing = 0}, shrinking(first), shrinking("b")}.sharedScale();
  };
  const View column = VStack{{.spacing = 0}, group("aaaaaaaaaa"), group("aa")};
  EXPECT_THAT(scalesOf(placed(column, {45, 80})), areScales({0.75, 0.75, 1, 1}));
}

TEST(LayoutSharedScale, AGroupIsMeasuredAtItsScale) {
  const View column = VStack{{.spacing = 0}, shrinking("aaaaaaaaaa"), shrinking("bbbbb")};
  EXPECT_THAT(answered(column.sharedScale(), {45, 50}), SizeIs(45, 2 * 0.75 * kLine));
}

TEST(LayoutSharedScale, AFittingSeesTheScaleOfTheGroup) {
  // One line down to 0.85, else two: 16 characters are 96 points, 81.6 at 0.85.
  const auto amount = [] { return shrinking("1234567890", 0.85); };
  const auto word = [] { return shrinking("per da", 0.85); };
  const View view = Fitting{HStack{{.spacing = 0}, amount(), word()}.sharedScale(),
                            VStack{{.spacing = 0}, amount(), word()}.sharedScale()};
  EXPECT_NEAR(placed(view, {81.6, 40}).root.frame.width, 81.6, 1e-6);
  EXPECT_NEAR(placed(view, {81.5, 40}).root.frame.width, 60, 1e-6);
}

TEST(LayoutSharedScale, AFittingInAGroupChoosesAtTheScaleOfTheGroup) {
  // At 0.75 the long text needs 45 points, and has them.
  const View column =
      VStack{{.spacing = 0}, shrinking("aaaaaaaaaa"), Fitting{shrinking("bbbbbbbbbb"), text("c")}};
  const LayoutTree tree = placed(column.sharedScale(), {45, 50});
  EXPECT_THAT(wordsOf(tree), ElementsAre("aaaaaaaaaa", "bbbbbbbbbb"));
  EXPECT_THAT(scalesOf(tree), areScales({0.75, 0.75}));
}

TEST(LayoutSharedScale, RightToLeftItIsTheMirrorImage) {
  const View column = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                             shrinking("aaaaaaaaaa"),
                             shrinking("bbbbb")};
  const LayoutTree tree = placed(column.sharedScale(), {45, 50}, kRtl);
  EXPECT_THAT(child(tree, 1), FrameIs(22.5, 25, 22.5, 0.75 * kLine));
}

}  // namespace
}  // namespace rendering
