#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Control/Paths.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace control {
namespace {

TEST(Paths, FollowTheBaseDirectories) {
  const Paths paths = pathsFrom({{"XDG_RUNTIME_DIR", "/run/user/7"},
                                 {"XDG_CONFIG_HOME", "/c"},
                                 {"XDG_STATE_HOME", "/s"},
                                 {"HOME", "/h"}});
  EXPECT_EQ(paths.socket(), "/run/user/7/quorvel-host/control");
  EXPECT_EQ(paths.placements(), "/c/quorvel-host/placements.json");
  EXPECT_EQ(paths.pictures(), "/s/quorvel-host/pictures");
}

TEST(Paths, StandBelowHomeWithoutThem) {
  const Paths paths = pathsFrom({{"HOME", "/h"}, {"XDG_CONFIG_HOME", "relative"}});
  EXPECT_EQ(paths.runtime, "");
  EXPECT_EQ(paths.config, "/h/.config/quorvel-host");
  EXPECT_EQ(paths.state, "/h/.local/state/quorvel-host");
}

TEST(Paths, AreNowhereWithoutAHome) {
  EXPECT_EQ(pathsFrom({}).config, "");
}

TEST(MakePrivateFolder, MakesAllThatIsMissingForItsOwner) {
  const testsupport::TemporaryFolder folder;
  EXPECT_EQ(makePrivateFolder(folder.at("a/b")), std::nullopt);
  EXPECT_EQ(makePrivateFolder(folder.at("a/b")), std::nullopt);
  struct stat status {};
  ASSERT_EQ(::stat(folder.at("a/b").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST(MakePrivateFolder, SaysWhatIsInTheWay) {
  const testsupport::TemporaryFolder folder;
  folder.write("a", "x");
  EXPECT_NE(makePrivateFolder(folder.at("a/b")), std::nullopt);
  EXPECT_NE(makePrivateFolder(folder.at("a")), std::nullopt);
}

}  // namespace
}  // namespace control
