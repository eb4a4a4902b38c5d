// Texts: lines, shrinking, cutting, balance, alignment. Cells are 0.6 em, so that a character is 6
// wide at size 10.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "Rendering/Layout/PlacedText.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using testing::ElementsAre;

constexpr auto kNothing = std::nullopt;
constexpr double kLine = 12.1;

Text text(const char* characters) {
  return Text(characters).font(10);
}

struct Shown {
  LayoutTree tree;
  [[nodiscard]] const PlacedNode& node() const { return elementOf(tree.root); }
  [[nodiscard]] const PlacedText& words() const { return *node().text; }
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> result;
    for (const PlacedLine& line : words().lines) result.push_back(lineText(words(), line));
    return result;
  }
};

Shown shown(const View& view, Size size, LayoutDirection direction = kLtr) {
  return {placed(view, size, direction)};
}

TEST(LayoutText, AnswersWhatItNeeds) {
  EXPECT_THAT(answered(text("abcde"), {}), SizeIs(30, kLine));
  EXPECT_THAT(answered(text("abcde"), {100, 100}), SizeIs(30, kLine));
  EXPECT_THAT(answered(text("abcde"), {30, 1}), SizeIs(30, kLine));
  EXPECT_THAT(answered(text(""), {50, 50}), SizeIs(0, kLine));
}

TEST(LayoutText, TrackingFollowsEveryCharacter) {
  EXPECT_THAT(answered(text("abcde").tracking(-0.2), {}), SizeIs(29, kLine));
}

TEST(LayoutText, WrapsAtSpacesWhichHang) {
  const Shown two = shown(text("aaaa bbbb cc"), {56, 100});
  EXPECT_THAT(two.lines(), ElementsAre("aaaa bbbb", "cc"));
  EXPECT_THAT(two.node(), FrameIs(1, 50 - kLine, 54, 2 * kLine));
  EXPECT_THAT(shown(text("aaaa bbbb"), {54, 100}).lines(), ElementsAre("aaaa bbbb"));
  EXPECT_THAT(shown(text("aaaa bbbb"), {53, 100}).lines(), ElementsAre("aaaa", "bbbb"));
  EXPECT_THAT(answered(text("aaaa bbbb"), {53, kNothing}), SizeIs(24, 2 * kLine));
}

TEST(LayoutText, LineFeedsAlwaysBreak) {
  EXPECT_THAT(shown(text("a\nbb c"), {100, 100}).lines(), ElementsAre("a", "bb c"));
  EXPECT_THAT(answered(text("a\nbb c"), {}), SizeIs(24, 2 * kLine));
}

TEST(LayoutText, AWordWiderThanTheLineIsBrokenAtClusters) {
  EXPECT_THAT(shown(text("aa bbbbbbbb"), {30, 100}).lines(), ElementsAre("aa", "bbbbb", "bbb"));
  EXPECT_THAT(shown(text("ééééé"), {18, 100}).lines(), ElementsAre("ééé", "éé"));
}

TEST(LayoutText, ALineLimitCutsTheLastLineWithAnEllipsis) {
  const Shown one = shown(text("aaaa bbbb cccc").lineLimit(1), {60, 100});
  EXPECT_THAT(one.lines(), ElementsAre("aaaa bbbb…"));
  EXPECT_TRUE(one.words().isCut());
  EXPECT_THAT(shown(text("aaaa bbbb cccc").lineLimit(1), {50, 100}).lines(),
              ElementsAre("aaaa bb…"));
  EXPECT_THAT(shown(text("aaaa bbbb cccc").lineLimit(1), {36, 100}).lines(), ElementsAre("aaaa…"));
  EXPECT_THAT(shown(text("aaaa bbbb cccc").lineLimit(2), {30, 100}).lines(),
              ElementsAre("aaaa", "bbbb…"));
  EXPECT_FALSE(shown(text("aaaa bbbb").lineLimit(2), {30, 100}).words().isCut());
}

TEST(LayoutText, OnlyLinesThatTheHeightHoldsAreUsed) {
  EXPECT_THAT(shown(text("aa bb cc dd"), {12, 3 * kLine}).lines(), ElementsAre("aa", "bb", "c…"));
  EXPECT_THAT(shown(text("aa bb cc dd"), {12, 3 * kLine - 0.1}).lines(), ElementsAre("aa", "b…"));
  EXPECT_THAT(shown(text("aa bb cc dd"), {12, 1}).lines(), ElementsAre("a…"));
  EXPECT_EQ(shown(text("aa bb cc dd"), {12, 4 * kLine}).lines().size(), 4u);
}

TEST(LayoutText, LessThanTheLeastWidthIsAnsweredWithIt) {
  EXPECT_THAT(answered(text("aaaa").lineLimit(1), {0, 50}), SizeIs(6, kLine));
  EXPECT_THAT(answered(text("aaaa").lineLimit(1).minimumScaleFactor(0.5), {0, 50}),
              SizeIs(3, kLine / 2));
  EXPECT_THAT(answered(text("aaaa"), {0, kNothing}), SizeIs(6, 4 * kLine));
}

TEST(LayoutText, OneLineShrinksToTheLargestScaleThatFits) {
  const Shown small = shown(text("aaaaaaaaaa").lineLimit(1).minimumScaleFactor(0.5), {45, 40});
  EXPECT_NEAR(small.words().scale, 0.75, 1e-9);
  EXPECT_NEAR(small.words().size, 7.5, 1e-9);
  EXPECT_NEAR(small.node().frame.width, 45, 1e-9);
  EXPECT_NEAR(small.node().frame.height, 0.75 * kLine, 1e-9);
  EXPECT_FALSE(small.words().isCut());
}

TEST(LayoutText, BelowTheLeastScaleItIsCut) {
  const Shown cut = shown(text("aaaaaaaaaa").lineLimit(1).minimumScaleFactor(0.8), {45, 40});
  EXPECT_NEAR(cut.words().scale, 0.8, 1e-9);
  // 45 / 4.8 = 9 cells, the ninth is the ellipsis.
  EXPECT_THAT(cut.lines(), ElementsAre("aaaaaaaa…"));
}

TEST(LayoutText, FactorsOfOneAndMoreDoNotShrink) {
  for (const double factor : {1.0, 2.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(
        shown(text("aaaaaaaaaa").lineLimit(1).minimumScaleFactor(factor), {45, 40}).words().scale,
        1);
  }
}

TEST(LayoutText, TrackingShrinksWithTheText) {
  // 10 x (6 + 2) = 80 in 60.
  const Shown small =
      shown(text("aaaaaaaaaa").tracking(2).lineLimit(1).minimumScaleFactor(0.5), {60, 40});
  EXPECT_NEAR(small.words().scale, 0.75, 1e-9);
  EXPECT_NEAR(small.words().tracking, 1.5, 1e-9);
}

TEST(LayoutText, SeveralLinesShrinkToTheirLimit) {
  // "aaaa bbbb" is 54: at 50 / 54 it stands above "cccc" in two lines.
  const Shown two = shown(text("aaaa bbbb cccc").lineLimit(2).minimumScaleFactor(0.8), {50, 100});
  EXPECT_THAT(two.lines(), ElementsAre("aaaa bbbb", "cccc"));
  EXPECT_NEAR(two.words().scale, 50.0 / 54, 1e-9);
}

TEST(LayoutText, SeveralLinesShrinkToTheHeight) {
  // Three lines of 12.1 in 33: the scale by height, 33 / 36.3, leaves every word its line.
  const Shown three = shown(text("aaaa bbbb cccc").minimumScaleFactor(0.5), {30, 33});
  EXPECT_THAT(three.lines(), ElementsAre("aaaa", "bbbb", "cccc"));
  EXPECT_NEAR(three.words().scale, 33 / 36.3, 1e-9);
}

TEST(LayoutText, AWordIsShrunkRatherThanBroken) {
  const Shown word = shown(text("aa bbbbbb").lineLimit(2).minimumScaleFactor(0.8), {30, 100});
  EXPECT_THAT(word.lines(), ElementsAre("aa", "bbbbbb"));
  EXPECT_NEAR(word.words().scale, 30.0 / 36, 1e-9);
}

TEST(LayoutText, TheScaleIsTheLargestThatFits) {
  // Second method: the scale found is compared with a fine search that breaks the lines by hand.
  const std::string words = "aa bbbb ccc ddddd e fff";
  for (double width = 34; width < 140; width += 1.7) {
    for (const int limit : {1, 2, 3}) {
      const Shown found =
          shown(text(words.c_str()).lineLimit(limit).minimumScaleFactor(0.6), {width, 200});
      double best = 0;
      for (double scale = 1; scale >= 0.6 && best == 0; scale -= 0.0005) {
        int lines = 1;
        double at = 0;
        double cells = 0;
        for (std::size_t i = 0; i <= words.size(); ++i) {
          if (i < words.size() && words[i] != ' ') {
            ++cells;
            continue;
          }
          const double needed = (at > 0 ? at + 1 : 0) + cells;
          if (needed * 6 * scale > width && at > 0) {
            ++lines;
            at = cells;
          } else {
            at = needed;
          }
          cells = 0;
        }
        if (lines <= limit) best = scale;
      }
      if (best == 0) {
        EXPECT_TRUE(found.words().isCut()) << width << " " << limit;
      } else {
        EXPECT_NEAR(found.words().scale, best, 0.0006) << width << " " << limit;
      }
    }
  }
}

TEST(LayoutText, BalancedLinesAreAsShortAsTheirNumberAllows) {
  // Greedy: "Set a monthly budget" / "in"; balanced: 13 and 9 characters.
  const View message = text("Set a monthly budget in").balanced();
  const Shown balanced = shown(message, {125, 100});
  EXPECT_THAT(balanced.lines(), ElementsAre("Set a monthly", "budget in"));
  EXPECT_NEAR(balanced.node().frame.width, 78, 1e-4);
  EXPECT_THAT(shown(message, {200, 100}).lines(), ElementsAre("Set a monthly budget in"));
}

TEST(LayoutText, LinesAreAlignedInTheBoxInBothDirections) {
  const auto starts = [](TextAlignment alignment, LayoutDirection direction) {
    const Shown two = shown(text("aaaa bb").multilineAlignment(alignment), {24, 50}, direction);
    return std::pair{two.words().lines[0].x, two.words().lines[1].x};
  };
  EXPECT_EQ(starts(TextAlignment::leading, kLtr), std::pair(0.0, 0.0));
  EXPECT_EQ(starts(TextAlignment::center, kLtr), std::pair(0.0, 6.0));
  EXPECT_EQ(starts(TextAlignment::trailing, kLtr), std::pair(0.0, 12.0));
  EXPECT_EQ(starts(TextAlignment::leading, kRtl), std::pair(0.0, 12.0));
  EXPECT_EQ(starts(TextAlignment::trailing, kRtl), std::pair(0.0, 0.0));
}

TEST(LayoutText, BaselinesStandALineApart) {
  const Shown two = shown(text("aaaa bb"), {24, 2 * kLine});
  EXPECT_NEAR(two.words().lines[0].baseline, 9.69, 1e-9);
  EXPECT_NEAR(two.words().lines[1].baseline, 9.69 + kLine, 1e-9);
}

TEST(LayoutText, ATextsOwnDirectionGoesToTheMeasurer) {
  EXPECT_EQ(shown(text("$1"), {50, 50}, kRtl).words().paragraph->direction, kRtl);
  EXPECT_EQ(shown(text("$1").direction(kLtr), {50, 50}, kRtl).words().paragraph->direction, kLtr);
}

TEST(LayoutText, PlaceholdersAreAtLeastTwoEmWide) {
  FixedCellMeasurer measurer;
  const LayoutTree tree =
      layOut(text("a"), {.size = {100, 20}, .placeholderRedaction = true}, measurer);
  EXPECT_NEAR(tree.root.frame.width, 20, 1e-9);
}

TEST(LayoutText, APlaceholderIsNoWiderThanItsRoom) {
  FixedCellMeasurer measurer;
  const LayoutTree tree =
      layOut(text("a"), {.size = {14, 20}, .placeholderRedaction = true}, measurer);
  EXPECT_NEAR(tree.root.frame.width, 14, 1e-9);
}

TEST(LayoutText, AnswersOverASweepOfWidths) {
  const View wrapping = text("aaaa bb ccccc d");
  const View single = text("aaaa bb ccccc d").lineLimit(1).minimumScaleFactor(0.7);
  double lastHeight = 1e9;
  for (double width = 0; width < 120; width += 0.25) {
    const Size wrapped = answered(wrapping, {width, kNothing});
    EXPECT_LE(wrapped.width, std::max(width, 6.0) + 1e-9);
    EXPECT_LE(wrapped.height, lastHeight + 1e-9) << width;
    lastHeight = wrapped.height;
    const Size one = answered(single, {width, kNothing});
    EXPECT_LE(one.width, std::max(width, 4.2) + 1e-9);
    EXPECT_LE(one.height, kLine + 1e-9);
    EXPECT_GE(one.height, 0.7 * kLine - 1e-9);
  }
  EXPECT_THAT(answered(wrapping, {kInfinity, kInfinity}), SizeIs(90, kLine));
}

TEST(LayoutText, AnswersFitWhenTheyAreProposedAgain) {
  const View view = text("aaaa bb ccccc d").lineLimit(2).minimumScaleFactor(0.7).balanced();
  for (double width = 20; width < 120; width += 0.37) {
    const Size once = answered(view, {width, 100});
    const Size again = answered(view, {once.width, once.height});
    EXPECT_NEAR(again.width, once.width, 1e-4) << width;
    EXPECT_NEAR(again.height, once.height, 1e-4) << width;
  }
}

TEST(LayoutText, EachTextIsShapedOnce) {
  FixedCellMeasurer measurer;
  const View row = HStack{{}, text("a"), Spacer{}, VStack{{}, text("b"), text("c")}, text("d")};
  static_cast<void>(layOut(row, {.size = {100, 50}}, measurer));
  EXPECT_EQ(measurer.shaped, 4);
}

}  // namespace
}  // namespace rendering
