#include <gtest/gtest.h>

#include "Foundation/EnvironmentVariables.hpp"

namespace foundation {
namespace {

std::string data(const ProcessEnvironment& environment) {
  return baseDirectory(environment, "XDG_DATA_HOME", ".local/share");
}

TEST(EnvironmentVariables, AreEmptyWhenTheyAreNotSet) {
  EXPECT_EQ(valueOf({{"HOME", "/home/a"}}, "HOME"), "/home/a");
  EXPECT_EQ(valueOf({{"HOME", "/home/a"}}, "LANG"), "");
}

TEST(BaseDirectory, IsTheVariableOrLiesBelowTheHomeFolder) {
  EXPECT_EQ(data({{"HOME", "/home/a"}, {"XDG_DATA_HOME", "/data"}}), "/data");
  EXPECT_EQ(data({{"HOME", "/home/a"}}), "/home/a/.local/share");
  EXPECT_EQ(data({{"HOME", "/home/a"}, {"XDG_DATA_HOME", ""}}), "/home/a/.local/share");
}

TEST(BaseDirectory, HeedsNoRelativePath) {
  EXPECT_EQ(data({{"HOME", "/home/a"}, {"XDG_DATA_HOME", "data"}}), "/home/a/.local/share");
  EXPECT_EQ(data({{"HOME", "home"}}), "");
  EXPECT_EQ(data({}), "");
}

}  // namespace
}  // namespace foundation
