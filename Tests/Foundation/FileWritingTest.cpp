#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <set>
#include <thread>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileWriting.hpp"
#include "Tests/Support/FileSizeLimit.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testsupport::contentsOf;
using testsupport::FileSizeLimit;
using testsupport::TemporaryFolder;

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

unsigned modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

TEST(FileWriting, MakesAFileForItsOwnerAlone) {
  const TemporaryFolder folder;
  EXPECT_FALSE(replaceFile(folder.at("a"), "bytes"));
  EXPECT_EQ(contentsOf(folder.at("a")), "bytes");
  EXPECT_EQ(modeOf(folder.at("a")), 0600U);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST(FileWriting, ReplacesAFileWithItsMode) {
  const TemporaryFolder folder;
  folder.write("a", "old");
  ::chmod(folder.at("a").c_str(), 0640);
  EXPECT_FALSE(replaceFile(folder.at("a"), "new", {.keepsMode = true}));
  EXPECT_EQ(contentsOf(folder.at("a")), "new");
  EXPECT_EQ(modeOf(folder.at("a")), 0640U);
  EXPECT_FALSE(replaceFile(folder.at("a"), "newer"));
  EXPECT_EQ(modeOf(folder.at("a")), 0600U);
}

TEST(FileWriting, TakesTheProcessesMaskIntoAccount) {
  const TemporaryFolder folder;
  const mode_t before = ::umask(027);
  EXPECT_FALSE(replaceFile(folder.at("a"), "new", {.mode = 0666}));
  ::umask(before);
  EXPECT_EQ(modeOf(folder.at("a")), 0640U);
}

TEST(FileWriting, ReplacesALinkAndLeavesWhatItPointsTo) {
  const TemporaryFolder folder;
  folder.write("target", "old");
  fs::create_symlink("target", folder.at("link"));
  EXPECT_FALSE(replaceFile(folder.at("link"), "new"));
  EXPECT_FALSE(fs::is_symlink(folder.at("link")));
  EXPECT_EQ(contentsOf(folder.at("link")), "new");
  EXPECT_EQ(contentsOf(folder.at("target")), "old");
}

TEST(FileWriting, TakesTheLongestName) {
  const TemporaryFolder folder;
  const std::string name(255, 'n');
  EXPECT_FALSE(replaceFile(folder.at(name), "bytes"));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre(name));
}

TEST(FileWriting, LeavesTheReaderOfTheOldFileAlone) {
  const TemporaryFolder folder;
  folder.write("a", "old");
  const FileDescriptor reader{::open(folder.at("a").c_str(), O_RDONLY | O_CLOEXEC)};
  EXPECT_FALSE(replaceFile(folder.at("a"), "new"));
  char bytes[4]{};
  EXPECT_EQ(::read(reader.get(), bytes, sizeof bytes), 3);
  EXPECT_STREQ(bytes, "old");
}

TEST(FileWriting, SaysThatTheFolderIsMissing) {
  const TemporaryFolder folder;
  EXPECT_EQ(replaceFile(folder.at("none/a"), "bytes"), std::errc::no_such_file_or_directory);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre());
}

TEST(FileWriting, SaysThatAFolderHasTheName) {
  const TemporaryFolder folder;
  fs::create_directory(folder.at("a"));
  EXPECT_EQ(replaceFile(folder.at("a"), "bytes"), std::errc::is_a_directory);
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST(FileWriting, KeepsTheOldFileWhenTheDiskIsFull) {
  const TemporaryFolder folder;
  folder.write("a", "old");
  {
    const FileSizeLimit limit{1000};
    EXPECT_EQ(replaceFile(folder.at("a"), std::string(2000, 'x')), std::errc::file_too_large);
  }
  EXPECT_EQ(contentsOf(folder.at("a")), "old");
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST(FileWriting, LetsSeveralWriteTheSameFile) {
  const TemporaryFolder folder;
  const std::set<std::string> possible{std::string(5000, 'a'), std::string(5000, 'b')};
  std::atomic<int> failures = 0;
  const auto write = [&](const std::string& bytes) {
    for (int i = 0; i < 200; ++i) {
      failures += replaceFile(folder.at("a"), bytes, {.isDurable = false}) ? 1 : 0;
    }
  };
  {
    const std::jthread first{write, *possible.begin()};
    const std::jthread second{write, *possible.rbegin()};
  }
  EXPECT_EQ(failures, 0);
  EXPECT_TRUE(possible.contains(contentsOf(folder.at("a"))));
  EXPECT_THAT(namesIn(folder.path()), ElementsAre("a"));
}

TEST(FileWriting, WritesAllToAPipeWhoseReaderIsSlow) {
  int ends[2];
  ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  const FileDescriptor reading{ends[0]};
  FileDescriptor writing{ends[1]};
  const std::string bytes(300'000, 'x');
  std::string received;
  {
    const std::jthread reader{[&] {
      char part[1000];
      for (ssize_t count = 0; (count = ::read(reading.get(), part, sizeof part)) > 0;) {
        received.append(part, static_cast<std::size_t>(count));
      }
    }};
    EXPECT_FALSE(writeAll(writing.get(), bytes));
    writing.reset();
  }
  EXPECT_EQ(received, bytes);
}

TEST(FileWriting, SaysWhyADescriptorTakesNothing) {
  EXPECT_EQ(writeAll(-1, "x"), std::errc::bad_file_descriptor);
}

}  // namespace
}  // namespace foundation
