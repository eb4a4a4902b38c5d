// Bounded reading and the group's container.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Foundation/FileManager.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::TemporaryFolder;

TEST(ReadFile, GivesTheBytesOfARegularFile) {
  const TemporaryFolder folder;
  folder.write("a", std::string_view("x\0y", 3));
  folder.write("empty", "");
  EXPECT_EQ(readFile(folder.at("a")), std::string("x\0y", 3));
  EXPECT_EQ(readFile(folder.at("empty")), "");
  EXPECT_EQ(contentsOfFile(folder.at("a")), std::string("x\0y", 3));
}

TEST(ReadFile, LimitIsInclusive) {
  const TemporaryFolder folder;
  folder.write("a", "12345");
  EXPECT_EQ(readFile(folder.at("a"), 5), "12345");
  EXPECT_EQ(readFile(folder.at("a"), 4), std::unexpected(FileError::tooLarge));
}

TEST(ReadFile, HundredMegabytesAreRefusedBySizeAlone) {
  const TemporaryFolder folder;
  folder.write("large", "");
  std::filesystem::resize_file(folder.at("large"), 100'000'000);
  EXPECT_EQ(readFile(folder.at("large")), std::unexpected(FileError::tooLarge));
  EXPECT_EQ(contentsOfFile(folder.at("large")), std::nullopt);
}

TEST(ReadFile, FilesThatGrowBeyondTheirSizeStillMeetTheLimit) {
  // The kernel gives these no size of their own.
  EXPECT_TRUE(readFile("/proc/self/maps"));
  EXPECT_EQ(readFile("/proc/self/maps", 10), std::unexpected(FileError::tooLarge));
}

TEST(ReadFile, MissingFileAndDanglingLink) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(folder.at("nowhere"), folder.at("link"));
  EXPECT_EQ(readFile(folder.at("nowhere")), std::unexpected(FileError::missing));
  EXPECT_EQ(readFile(folder.at("link")), std::unexpected(FileError::missing));
  EXPECT_EQ(readFile(folder.at("nowhere/below")), std::unexpected(FileError::missing));
  EXPECT_EQ(readFile(""), std::unexpected(FileError::missing));
}

TEST(ReadFile, LinkToAFileIsFollowed) {
  const TemporaryFolder folder;
  folder.write("a", "x");
  std::filesystem::create_symlink(folder.at("a"), folder.at("link"));
  EXPECT_EQ(readFile(folder.at("link")), "x");
}

TEST(ReadFile, LinkToItselfIsNoRegularFile) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(folder.at("loop"), folder.at("loop"));
  EXPECT_EQ(readFile(folder.at("loop")), std::unexpected(FileError::notRegular));
}

TEST(ReadFile, DirectoryIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(readFile(folder.path().string()), std::unexpected(FileError::notRegular));
}

TEST(ReadFile, PipeWithoutAWriterDoesNotBlock) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo(folder.at("pipe").c_str(), 0600), 0);
  EXPECT_EQ(readFile(folder.at("pipe")), std::unexpected(FileError::notRegular));
}

TEST(ReadFile, DevicesAreNoFiles) {
  EXPECT_EQ(readFile("/dev/zero"), std::unexpected(FileError::notRegular));
  EXPECT_EQ(readFile("/dev/null"), std::unexpected(FileError::notRegular));
}

TEST(ReadFile, FileWithoutPermission) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may read everything";
  const TemporaryFolder folder;
  folder.write("secret", "x");
  ASSERT_EQ(::chmod(folder.at("secret").c_str(), 0), 0);
  EXPECT_EQ(readFile(folder.at("secret")), std::unexpected(FileError::notPermitted));
}

TEST(ReadFile, PathWithANulNamesNothing) {
  EXPECT_EQ(readFile(std::string("/dev/null\0x", 11)), std::unexpected(FileError::missing));
}

TEST(ReadFile, EveryReasonHasWords) {
  EXPECT_EQ(describe(FileError::missing), "no such file");
  EXPECT_EQ(describe(FileError::notPermitted), "no permission");
  EXPECT_EQ(describe(FileError::notRegular), "not a regular file");
  EXPECT_EQ(describe(FileError::tooLarge), "larger than the limit");
  EXPECT_EQ(describe(FileError::unreadable), "cannot be read");
}

TEST(PathComponents, AreJoinedByExactlyOneSlash) {
  EXPECT_EQ(appendingPathComponent("/a", "b"), "/a/b");
  EXPECT_EQ(appendingPathComponent("/a/", "b"), "/a/b");
  EXPECT_EQ(appendingPathComponent("/a//", "/b"), "/a/b");
  EXPECT_EQ(appendingPathComponent("/", "b"), "/b");
  EXPECT_EQ(appendingPathComponent("", "b"), "b");
  EXPECT_EQ(appendingPathComponent("/a", ""), "/a");
  EXPECT_EQ(appendingPathComponent("/a", "b c%20é.jpg"), "/a/b c%20é.jpg");
}

TEST(Container, IsTheGroupsFolderBelowTheRoot) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.at("group.app.x"));
  const FileManager files(folder.path().string());
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier("group.app.x"),
            folder.at("group.app.x"));
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier("group.app.y"), std::nullopt);
}

TEST(Container, MustBeADirectory) {
  const TemporaryFolder folder;
  folder.write("file", "x");
  EXPECT_EQ(
      FileManager(folder.path().string()).containerURLForSecurityApplicationGroupIdentifier("file"),
      std::nullopt);
}

TEST(Container, IdentifierIsOnePlainFolderName) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.at("a/b"));
  const FileManager files(folder.at("a"));
  for (const char* identifier : {"", ".", "..", "b/", "/b", "../a", "b/../b"}) {
    EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier(identifier), std::nullopt)
        << identifier;
  }
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier(std::string_view("b\0c", 3)),
            std::nullopt);
}

TEST(Container, MayBeGivenItself) {
  const TemporaryFolder folder;
  const FileManager files = FileManager::withContainer(folder.at("own"));
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier("group.any"), std::nullopt);
  std::filesystem::create_directory(folder.at("own"));
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier("group.any"), folder.at("own"));
  EXPECT_EQ(files.containerURLForSecurityApplicationGroupIdentifier(".."), std::nullopt);
}

TEST(Container, WithoutARootThereIsNone) {
  EXPECT_EQ(FileManager("").containerURLForSecurityApplicationGroupIdentifier("tmp"), std::nullopt);
}

}  // namespace
}  // namespace foundation
