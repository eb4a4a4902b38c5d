#include <gtest/gtest.h>

#include "Control/KindName.hpp"

namespace control {
namespace {

TEST(KindName, IsTheKindsOwnWords) {
  EXPECT_EQ(shortKind("QuorvelSafeToSpendWidget"), "safe-to-spend");
  EXPECT_EQ(shortKind("QuorvelDueWidget"), "due");
  EXPECT_EQ(shortKind("QuorvelNetWorthWidget"), "net-worth");
}

TEST(KindName, IsTheKindItselfWhereThereIsNothingToLeaveOut) {
  EXPECT_EQ(shortKind("Clock"), "Clock");
  EXPECT_EQ(shortKind("DueWidget"), "DueWidget");
  EXPECT_EQ(shortKind("QuorvelDueControl"), "QuorvelDueControl");
  EXPECT_EQ(shortKind(""), "");
}

TEST(KindName, NamesAKindInFullOrShort) {
  EXPECT_TRUE(namesKind("due", "QuorvelDueWidget"));
  EXPECT_TRUE(namesKind("QuorvelDueWidget", "QuorvelDueWidget"));
  EXPECT_FALSE(namesKind("dues", "QuorvelDueWidget"));
}

}  // namespace
}  // namespace control
