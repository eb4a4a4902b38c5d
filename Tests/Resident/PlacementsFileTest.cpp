#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Resident/PlacementsFile.hpp"
#include "Tests/Support/FileSizeLimit.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace resident {
namespace {

using ::testing::HasSubstr;
using ::testing::Optional;
using testsupport::contentsOf;
using testsupport::TemporaryFolder;

Placements one() {
  Placements placements;
  placements.add("A", widgetruntime::WidgetFamily::systemSmall, {});
  return placements;
}

TEST(PlacementsFile, IsAbsentBeforeTheFirstStart) {
  const TemporaryFolder folder;
  const auto loaded = PlacementsFile{folder.at("config/placements.json")}.load();
  ASSERT_TRUE(loaded);
  EXPECT_FALSE(loaded->placements);
  EXPECT_EQ(loaded->warning, "");
}

TEST(PlacementsFile, KeepsWhatWasSavedForItsOwnerAlone) {
  const TemporaryFolder folder;
  const PlacementsFile file{folder.at("config/placements.json")};
  ASSERT_EQ(file.save(one()), std::nullopt);
  EXPECT_EQ(file.load()->placements, one());
  struct stat status {};
  ASSERT_EQ(::stat(folder.at("config/placements.json").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST(PlacementsFile, PutsABrokenFileAsideAndSaysSo) {
  const TemporaryFolder folder;
  const std::string path = folder.write("placements.json", "{");
  const auto loaded = PlacementsFile{path}.load();
  ASSERT_TRUE(loaded);
  EXPECT_FALSE(loaded->placements);
  EXPECT_THAT(loaded->warning, HasSubstr("placements.json.broken-1"));
  EXPECT_EQ(contentsOf(path + ".broken-1"), "{");
}

TEST(PlacementsFile, KeepsEveryBrokenFile) {
  const TemporaryFolder folder;
  for (const char* text : {"first", "second"}) {
    ASSERT_TRUE(PlacementsFile{folder.write("placements.json", text)}.load());
  }
  EXPECT_EQ(contentsOf(folder.at("placements.json.broken-1")), "first");
  EXPECT_EQ(contentsOf(folder.at("placements.json.broken-2")), "second");
}

TEST(PlacementsFile, PutsALaterVersionAsideUnderItsOwnName) {
  const TemporaryFolder folder;
  const auto loaded = PlacementsFile{folder.write("p.json", R"({"version":7})")}.load();
  ASSERT_TRUE(loaded);
  EXPECT_THAT(loaded->warning, HasSubstr("p.json.later-1"));
}

TEST(PlacementsFile, PutsAFolderOfThatNameAside) {
  const TemporaryFolder folder;
  folder.write("p.json/inside", "x");
  const auto loaded = PlacementsFile{folder.at("p.json")}.load();
  ASSERT_TRUE(loaded) << loaded.error();
  EXPECT_EQ(contentsOf(folder.at("p.json.broken-1/inside")), "x");
}

TEST(PlacementsFile, LeavesTheOldFileWhenTheNewOneCannotBeWritten) {
  const TemporaryFolder folder;
  const PlacementsFile file{folder.at("p.json")};
  ASSERT_EQ(file.save(one()), std::nullopt);
  {
    const testsupport::FileSizeLimit full{10};
    EXPECT_THAT(file.save({}), Optional(HasSubstr("cannot write " + folder.at("p.json"))));
  }
  EXPECT_EQ(file.load()->placements, one());
}

}  // namespace
}  // namespace resident
