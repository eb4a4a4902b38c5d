// A folder that comes, goes and changes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "Resident/FolderWatch.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

class FolderWatchTest : public ::testing::Test {
 protected:
  FolderWatchTest() { fs::create_directories(path); }

  void watch() {
    watched = std::make_unique<FolderWatch>(
        loop,
        path,
        [](std::string_view name) { return name == "document"; },
        [this] { ++changes; });
  }
  /// How often it was told since the last time; everything that has happened is known to the kernel
  /// already.
  int told() {
    while (loop.step(0ms)) {
    }
    return std::exchange(changes, 0);
  }
  /// In a namespace of the test's own: a host that sleeps beside it hears nothing of it.
  static bool mayMount() {
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  }
  static int mountOn(const std::string& path) {
    return ::mount("none", path.c_str(), "tmpfs", 0, nullptr);
  }
  void replace(const std::string& name) {
    std::ofstream(path + "/." + name + ".new") << "x";
    fs::rename(path + "/." + name + ".new", path + "/" + name);
  }

  testsupport::TemporaryFolder folder;
  std::string path = folder.at("data/container");
  Loop loop;
  int changes = 0;
  std::unique_ptr<FolderWatch> watched;
};

TEST_F(FolderWatchTest, TellsOfAReplacedFile) {
  watch();
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAWrittenFileWhenItIsClosed) {
  watch();
  std::ofstream file(path + "/document");
  file << "half";
  file.flush();
  EXPECT_EQ(told(), 0);
  file.close();
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfALinkedFile) {
  folder.write("elsewhere", "x");
  watch();
  fs::create_hard_link(folder.at("elsewhere"), path + "/document");
  EXPECT_EQ(told(), 1);
  fs::remove(path + "/document");
  EXPECT_EQ(told(), 1);
  fs::create_symlink(folder.at("elsewhere"), path + "/document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfARemovedFile) {
  replace("document");
  watch();
  fs::remove(path + "/document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsNothingOfOtherFiles) {
  watch();
  replace("other");
  folder.write("data/beside", "x");
  EXPECT_EQ(told(), 0);
}

TEST_F(FolderWatchTest, TellsOnceOfChangesThatComeTogether) {
  watch();
  for (int i = 0; i < 50; ++i) replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatIsMadeLater) {
  fs::remove_all(folder.at("data"));
  watch();
  fs::create_directories(path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatGoesAndComesAgain) {
  watch();
  fs::remove_all(path);
  EXPECT_GE(told(), 1);
  fs::create_directory(path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatGoesWhileSomebodyStandsInIt) {
  watch();
  const int held = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(held, 0);
  fs::remove(path);
  EXPECT_GE(told(), 1);
  fs::create_directory(path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
  ::close(held);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatIsMovedAway) {
  watch();
  fs::rename(folder.at("data"), folder.at("gone"));
  EXPECT_GE(told(), 1);
  fs::create_directories(path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatBecomesAFileAndAFolderAgain) {
  watch();
  fs::remove(path);
  std::ofstream(path) << "x";
  EXPECT_GE(told(), 1);
  fs::remove(path);
  fs::create_directory(path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatIsReplacedWhole) {
  fs::create_directory(folder.at("data/other"));
  folder.write("data/other/document", "x");
  watch();
  fs::rename(path, folder.at("data/old"));
  fs::rename(folder.at("data/other"), path);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfAChangedPermission) {
  watch();
  ::chmod(path.c_str(), 0);
  EXPECT_GE(told(), 1);
  ::chmod(path.c_str(), 0700);
  EXPECT_GE(told(), 1);
}

TEST_F(FolderWatchTest, TellsOfWhatIsMountedOverTheFolder) {
  if (!mayMount()) GTEST_SKIP() << "only root may mount";
  watch();
  ASSERT_EQ(mountOn(path), 0);
  EXPECT_EQ(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
  ASSERT_EQ(::umount(path.c_str()), 0);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, TellsNothingOfOtherMounts) {
  if (!mayMount()) GTEST_SKIP() << "only root may mount";
  fs::create_directory(folder.at("other"));
  watch();
  ASSERT_EQ(mountOn(folder.at("other")), 0);
  EXPECT_EQ(told(), 0);
  ASSERT_EQ(::umount(folder.at("other").c_str()), 0);
  EXPECT_EQ(told(), 0);
}

TEST_F(FolderWatchTest, TellsOfAFolderThatIsUnmounted) {
  if (!mayMount()) GTEST_SKIP() << "only root may mount";
  ASSERT_EQ(mountOn(path), 0);
  watch();
  replace("document");
  EXPECT_EQ(told(), 1);
  ASSERT_EQ(::umount(path.c_str()), 0);
  EXPECT_GE(told(), 1);
  replace("document");
  EXPECT_EQ(told(), 1);
}

TEST_F(FolderWatchTest, LetsItsFolderGo) {
  watch();
  watched.reset();
  replace("document");
  EXPECT_EQ(told(), 0);
}

}  // namespace
}  // namespace resident
