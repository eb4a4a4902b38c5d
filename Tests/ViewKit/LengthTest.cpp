// Relative lengths: their arithmetic with hand-worked numbers, and their normal form.
#include <gtest/gtest.h>

#include <cmath>

#include "ViewKit/Length.hpp"

namespace viewkit {
namespace {

TEST(Length, ResolvesItsFactorsAndPoints) {
  const Length length = kWidth * 0.5 + kHeight * 2 - 4.5;
  EXPECT_DOUBLE_EQ(length.resolve(100, 10), 50 + 20 - 4.5);
  EXPECT_DOUBLE_EQ(length.resolve(0, 0), -4.5);
}

TEST(Length, ArithmeticWorksOnEveryPart) {
  const Length a{0.5, 0.25, 3};
  const Length b{0.25, 1, -1};
  EXPECT_EQ(a + b, (Length{0.75, 1.25, 2}));
  EXPECT_EQ(a - b, (Length{0.25, -0.75, 4}));
  EXPECT_EQ(a * 4, (Length{2, 1, 12}));
  EXPECT_EQ(4 * a, a * 4);
  EXPECT_EQ(a / 2, (Length{0.25, 0.125, 1.5}));
  EXPECT_EQ(-a, (Length{-0.5, -0.25, -3}));
}

TEST(Length, ANumberIsAConstantLength) {
  const Length four = 4;
  EXPECT_TRUE(four.isConstant());
  EXPECT_EQ(four.points(), 4);
  EXPECT_FALSE(kWidth.isConstant());
  EXPECT_FALSE(kHeight.isConstant());
}

TEST(Length, DivisionIsExactWhereTheNumbersAre) {
  EXPECT_EQ(kWidth * 7 / 10, kWidth * 0.7);
}

// 31 bars with gaps of at most 1.5: at 332 wide the gap is 1.5, at 62 wide it is 1.
TEST(Length, BarsWithGaps) {
  const int n = 31;
  const Length gap = min(kWidth / (2.0 * n), 1.5);
  const Length bar = max((kWidth - gap * (n - 1)) / n, 0);
  EXPECT_DOUBLE_EQ(gap.resolve(332, 54), 1.5);
  EXPECT_DOUBLE_EQ(gap.resolve(62, 54), 1);
  EXPECT_NEAR(bar.resolve(332, 54), (332 - 45) / 31.0, 1e-12);
  EXPECT_NEAR(bar.resolve(62, 54), (62 - 30) / 31.0, 1e-12);
}

TEST(Length, MinimumAndMaximumChooseByTheSize) {
  EXPECT_DOUBLE_EQ(min(kWidth, kHeight).resolve(30, 20), 20);
  EXPECT_DOUBLE_EQ(max(kWidth, kHeight).resolve(30, 20), 30);
  EXPECT_DOUBLE_EQ((3 - 2 * min(kWidth, 10)).resolve(4, 0), -5);
  EXPECT_DOUBLE_EQ((3 - 2 * min(kWidth, 10)).resolve(40, 0), -17);
  EXPECT_DOUBLE_EQ(max(min(kWidth, 10), kHeight).resolve(40, 12), 12);
}

TEST(Length, ChoicesBetweenConstantsAreFolded) {
  EXPECT_EQ(min(Length{3}, 5), Length{3});
  EXPECT_EQ(max(3, Length{5}), Length{5});
  EXPECT_TRUE(min(Length{3}, 5).isConstant());
  EXPECT_TRUE((min(min(Length{2}, 1), max(Length{0}, 4)) + 1).isConstant());
}

TEST(Length, ChoicesBetweenEqualsAreFolded) {
  EXPECT_EQ(min(kWidth + 1, 1 + kWidth), kWidth + 1);
  const Length choice = max(kWidth, kHeight);
  EXPECT_EQ(min(choice, choice), choice);
  EXPECT_EQ(2 * min(choice, choice) + 1, 2 * choice + 1);
}

TEST(Length, OrderDoesNotMatterToEquality) {
  EXPECT_EQ(min(kWidth, 3), min(3, kWidth));
  EXPECT_EQ(min(kWidth, 3) + max(kHeight, 2), max(2, kHeight) + min(3, kWidth));
  EXPECT_EQ(min(max(kWidth, 1), kHeight), min(kHeight, max(1, kWidth)));
}

TEST(Length, EqualTermsAreJoinedAndVanish) {
  const Length gap = min(kWidth / 62, 1.5);
  EXPECT_EQ(gap + gap, 2 * gap);
  EXPECT_EQ((gap + gap).terms().size(), 1u);
  EXPECT_EQ(gap - gap, Length{0});
  EXPECT_TRUE((gap - gap).isConstant());
  EXPECT_TRUE((gap * 0).isConstant());
  EXPECT_EQ(kWidth + gap - gap, kWidth);
}

TEST(Length, ZeroHasNoSign) {
  EXPECT_FALSE(std::signbit((kWidth * -1).points()));
  EXPECT_FALSE(std::signbit((-Length{0}).points()));
}

TEST(Length, DifferentLengthsDiffer) {
  EXPECT_NE(kWidth, kHeight);
  EXPECT_NE(kWidth, kWidth + 1);
  EXPECT_NE(min(kWidth, 3), max(kWidth, 3));
  EXPECT_NE(min(kWidth, 3), min(kWidth, 4));
  EXPECT_NE(min(kWidth, 3), 2 * min(kWidth, 3));
  EXPECT_NE(min(kWidth, 3), kWidth);
}

}  // namespace
}  // namespace viewkit
