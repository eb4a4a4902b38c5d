#include <gtest/gtest.h>

#include "Control/LineBuffer.hpp"

namespace control {
namespace {

TEST(LineBuffer, GivesWholeLines) {
  LineBuffer lines;
  lines.append("one\ntwo\r\n\nthr");
  EXPECT_EQ(lines.next(), "one");
  EXPECT_EQ(lines.next(), "two");
  EXPECT_EQ(lines.next(), "");
  EXPECT_EQ(lines.next(), std::nullopt);
  EXPECT_EQ(lines.pending(), 3U);
  lines.append("ee\n");
  EXPECT_EQ(lines.next(), "three");
}

TEST(LineBuffer, KnowsALineThatIsTooLong) {
  LineBuffer lines{4};
  lines.append("four\nfives\n");
  EXPECT_FALSE(lines.isTooLong());
  EXPECT_EQ(lines.next(), "four");
  EXPECT_TRUE(lines.isTooLong());
  EXPECT_EQ(lines.next(), std::nullopt);
}

TEST(LineBuffer, KnowsATooLongLineBeforeItsEnd) {
  LineBuffer lines{4};
  lines.append("fives");
  EXPECT_TRUE(lines.isTooLong());
}

}  // namespace
}  // namespace control
