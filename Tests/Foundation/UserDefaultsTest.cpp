// Shared preferences: where they are kept, what survives, what is never lost.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>
#include <vector>

#include "Foundation/PropertyList.hpp"
#include "Foundation/UserDefaults.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::TemporaryFolder;

constexpr std::string_view kSuite = "group.x";
constexpr std::string_view kFile = "Library/Preferences/group.x.plist";

class UserDefaultsTest : public testing::Test {
 protected:
  [[nodiscard]] UserDefaults open() const {
    return *UserDefaults::initWithSuiteName(kSuite,
                                            FileManager::withContainer(folder.path().string()));
  }
  void writeValues(std::string_view content) const {
    folder.write(kFile, "<plist version=\"1.0\"><dict>" + std::string(content) + "</dict></plist>");
  }

  TemporaryFolder folder;
};

TEST_F(UserDefaultsTest, NoContainerNoSuite) {
  EXPECT_FALSE(UserDefaults::initWithSuiteName(kSuite, FileManager(folder.path().string())));
  EXPECT_FALSE(UserDefaults::initWithSuiteName("..", FileManager(folder.path().string())));
}

TEST_F(UserDefaultsTest, OpeningWritesNothing) {
  EXPECT_FALSE(open().boolForKey("flag"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(UserDefaultsTest, FlagIsSeenByOthersAtOnce) {
  EXPECT_FALSE(open().boolForKey("flag"));
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));
  EXPECT_TRUE(open().setBool(false, "flag"));
  EXPECT_FALSE(open().boolForKey("flag"));
  EXPECT_EQ(open().path(), folder.at(kFile));
}

TEST_F(UserDefaultsTest, IsStoredAsABooleanOnceHoweverOftenSet) {
  ASSERT_TRUE(open().setBool(true, "flag"));
  ASSERT_TRUE(open().setBool(true, "flag"));
  EXPECT_EQ(parsePropertyList(*contentsOfFile(folder.at(kFile))),
            PropertyList(PropertyList::Dictionary{{"flag", true}}));
}

TEST_F(UserDefaultsTest, OtherKeysAreKept) {
  writeValues("<key>name</key><string>x</string><key>n</key><integer>-5</integer>");
  ASSERT_TRUE(open().setBool(true, "flag"));
  EXPECT_EQ(parsePropertyList(*contentsOfFile(folder.at(kFile))),
            PropertyList(
                PropertyList::Dictionary{{"flag", true}, {"n", std::int64_t{-5}}, {"name", "x"}}));
}

TEST_F(UserDefaultsTest, LeavesNoTemporaryFileAndIsPrivate) {
  ASSERT_TRUE(open().setBool(true, "flag"));
  std::size_t files = 0;
  for ([[maybe_unused]] const auto& entry :
       std::filesystem::directory_iterator(folder.at("Library/Preferences"))) {
    ++files;
  }
  EXPECT_EQ(files, 1U);
  struct stat status {};
  ASSERT_EQ(::stat(folder.at(kFile).c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(UserDefaultsTest, LeftoverTemporaryFileIsNoObstacle) {
  folder.write(std::string(kFile) + ".new", "half");
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));
}

TEST_F(UserDefaultsTest, MalformedFileIsRefusedAndLeftAsItIs) {
  folder.write(kFile, "<plist><dict>precious");
  EXPECT_EQ(open().setBool(true, "flag"), std::unexpected(DefaultsError::malformed));
  EXPECT_EQ(contentsOfFile(folder.at(kFile)), "<plist><dict>precious");
  EXPECT_FALSE(open().boolForKey("flag"));
}

TEST_F(UserDefaultsTest, FileThatCannotBeReadIsRefused) {
  std::filesystem::create_directories(folder.at(kFile));
  EXPECT_EQ(open().setBool(true, "flag"), std::unexpected(DefaultsError::unreadable));
}

TEST_F(UserDefaultsTest, FolderThatCannotBeMadeIsRefused) {
  folder.write("Library", "a file in the way");
  EXPECT_EQ(open().setBool(true, "flag"), std::unexpected(DefaultsError::unwritable));
}

TEST_F(UserDefaultsTest, NumbersAndTextsReadAsFlags) {
  writeValues(
      "<key>one</key><integer>1</integer><key>zero</key><integer>0</integer><key>half</"
      "key><real>0.5</real>"
      "<key>yes</key><string>YES</string><key>true</key><string>true</string><key>three</"
      "key><string>3</string>"
      "<key>no</key><string>NO</string><key>nought</key><string>00</string><key>array</key><array/"
      ">");
  for (const char* key : {"one", "half", "yes", "true", "three"})
    EXPECT_TRUE(open().boolForKey(key)) << key;
  for (const char* key : {"zero", "no", "nought", "array", "none"})
    EXPECT_FALSE(open().boolForKey(key)) << key;
}

TEST_F(UserDefaultsTest, WritersAtTheSameTimeLoseNothing) {
  std::vector<std::thread> writers;
  for (int i = 0; i < 8; ++i) {
    writers.emplace_back([&, i] { EXPECT_TRUE(open().setBool(true, "flag" + std::to_string(i))); });
  }
  for (std::thread& writer : writers) writer.join();
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(open().boolForKey("flag" + std::to_string(i))) << i;
}

}  // namespace
}  // namespace foundation
