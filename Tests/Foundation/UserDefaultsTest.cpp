// Shared preferences: where they are kept, what survives, what is never lost.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <ostream>
#include <thread>
#include <vector>

#include "Foundation/PropertyList.hpp"
#include "Foundation/UserDefaults.hpp"
#include "Tests/Support/FileSizeLimit.hpp"
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

/// A name for each way in which a file may be unusable, and what makes it so.
struct UnusableRow {
  const char* name;
  std::string content;
};
void PrintTo(const UnusableRow& unusableRow, std::ostream* out) {
  *out << unusableRow.name;
}

class UserDefaultsUnusableFile : public UserDefaultsTest,
                                 public testing::WithParamInterface<UnusableRow> {};

TEST_P(UserDefaultsUnusableFile, IsKeptAsideAndReplaced) {
  folder.write(kFile, GetParam().content);
  EXPECT_FALSE(open().boolForKey("flag"));
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));
  EXPECT_EQ(testsupport::contentsOf(folder.at(std::string(kFile) + ".corrupt")),
            GetParam().content);
}

INSTANTIATE_TEST_SUITE_P(
    Rows,
    UserDefaultsUnusableFile,
    testing::Values(
        UnusableRow{"Empty", ""},
        UnusableRow{"Blank", " \n"},
        UnusableRow{"Half", "<plist><dict><key>precious"},
        UnusableRow{"NoDictionary", "<plist version=\"1.0\"><array/></plist>"},
        UnusableRow{"HalfBinary", "bplist00\xD1\x01"},
        UnusableRow{"Json", "{\"flag\": true}"},
        UnusableRow{"Zeros", std::string(4096, '\0')},
        UnusableRow{"Nul", "<plist><dict><key>a</key><string>&#0;</string></dict></plist>"},
        UnusableRow{"Large",
                    "<plist><dict><key>a</key><string>" + std::string(kMaximumPropertyList, 'x') +
                        "</string></dict></plist>"}),
    [](const auto& row) { return row.param.name; });

TEST_F(UserDefaultsTest, AReferenceToACharacterIsNoReasonToReplace) {
  writeValues("<key>name</key><string>it&#039;s</string>");
  ASSERT_TRUE(open().setBool(true, "flag"));
  EXPECT_FALSE(std::filesystem::exists(folder.at(std::string(kFile) + ".corrupt")));
  EXPECT_EQ(parsePropertyList(*contentsOfFile(folder.at(kFile))),
            PropertyList(PropertyList::Dictionary{{"flag", true}, {"name", "it's"}}));
}

TEST_F(UserDefaultsTest, ALaterUnusableFileTakesTheEarliersPlace) {
  for (const char* content : {"first", "second"}) {
    folder.write(kFile, content);
    ASSERT_TRUE(open().setBool(true, "flag"));
  }
  EXPECT_EQ(testsupport::contentsOf(folder.at(std::string(kFile) + ".corrupt")), "second");
}

TEST_F(UserDefaultsTest, AFolderAPipeOrALoopInItsPlaceIsKeptAside) {
  const std::string file = folder.at(kFile);
  std::filesystem::create_directories(std::filesystem::path(file).parent_path());
  std::filesystem::create_directory(file);
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));

  std::filesystem::remove(file);
  std::filesystem::remove_all(file + ".corrupt");
  ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));

  std::filesystem::remove(file);
  std::filesystem::create_symlink(file, file);
  EXPECT_TRUE(open().setBool(true, "flag"));
  EXPECT_TRUE(open().boolForKey("flag"));
}

TEST_F(UserDefaultsTest, AReadOnlyFileIsReplacedAndKeepsItsMode) {
  writeValues("<key>name</key><string>x</string>");
  for (const mode_t mode : {0400U, 0644U, 0640U}) {
    ASSERT_EQ(::chmod(folder.at(kFile).c_str(), mode), 0);
    EXPECT_TRUE(open().setBool(true, "flag"));
    struct stat status {};
    ASSERT_EQ(::stat(folder.at(kFile).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, mode);
  }
  EXPECT_TRUE(open().boolForKey("flag"));
}

TEST_F(UserDefaultsTest, WhereNothingCanBeWrittenTheOldFileStands) {
  const std::string before = "<plist version=\"1.0\"><dict><key>a</key><true/></dict></plist>";
  const std::string file = folder.write(kFile, before);
  {
    const testsupport::FileSizeLimit full{10};
    EXPECT_EQ(open().setBool(true, "flag"), std::unexpected(DefaultsError::unwritable));
  }
  EXPECT_EQ(contentsOfFile(file), before);
}

TEST_F(UserDefaultsTest, AProcessThatHoldsTheLockIsWaitedForATenthOfASecond) {
  writeValues("<key>name</key><string>x</string>");
  const int holder = ::open(folder.at("Library/Preferences").c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::flock(holder, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(open().setBool(true, "flag"));
  const auto waited = std::chrono::steady_clock::now() - start;
  ::close(holder);
  EXPECT_GE(waited, std::chrono::milliseconds(100));
  EXPECT_LT(waited, std::chrono::milliseconds(1000));
  EXPECT_TRUE(open().boolForKey("flag"));
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
  for (int i = 0; i < 4; ++i) {
    writers.emplace_back([&, i] { EXPECT_TRUE(open().setBool(true, "flag" + std::to_string(i))); });
  }
  for (std::thread& writer : writers) writer.join();
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(open().boolForKey("flag" + std::to_string(i))) << i;
}

}  // namespace
}  // namespace foundation
