// Summaries of measured times.
#include <gtest/gtest.h>

#include <numeric>

#include "Cli/Commands/Timings.hpp"

namespace cli {
namespace {

TEST(Samples, OfNoneAreZero) {
  const Summary summary = summaryOf({});
  EXPECT_EQ(summary.least, 0);
  EXPECT_EQ(summary.median, 0);
  EXPECT_EQ(summary.p95, 0);
}

TEST(Samples, TheMedianOfAnEvenCountLiesBetween) {
  EXPECT_EQ(summaryOf({4, 1, 3, 2}).median, 2.5);
  EXPECT_EQ(summaryOf({9, 1, 3}).median, 3);
}

TEST(Samples, NinetyFiveOfAHundredDoNotExceedTheP95) {
  std::vector<double> hundred(100);
  std::iota(hundred.rbegin(), hundred.rend(), 1);
  EXPECT_EQ(summaryOf(hundred).p95, 95);
  EXPECT_EQ(summaryOf(hundred).least, 1);
  EXPECT_EQ(summaryOf({7}).p95, 7);
  EXPECT_EQ(summaryOf({1, 2}).p95, 2);
}

}  // namespace
}  // namespace cli
