// Where commands write, and the sample that they write there.

#include "Commands/CommandsFixture.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST(Sample, IsACompleteDocumentInTheLanguage) {
  const TemporaryFolder folder;
  const std::string file = (folder.path() / "sample.json").string();
  ASSERT_EQ(runHost({"sample",
                     "--lang",
                     "de",
                     "--now",
                     "2025-03-14T09:30:00Z",
                     "--time-zone",
                     "UTC",
                     "-o",
                     file})
                .status,
            0);
  const json document = json::parse(contentsOf(file), nullptr, false);
  EXPECT_EQ(document["lang"], "de");
  EXPECT_EQ(document["generatedAt"], "2025-03-14T09:30:00Z");
  EXPECT_EQ(document["dues"][0]["dueDate"], "2025-03-17");
  EXPECT_EQ(document["totalRemaining"], 25730);
  EXPECT_EQ(runHost({"validate", file}).status, 0);
}

TEST(Sample, RefusesALanguageThatThereIsNot) {
  const Outcome outcome = runHost({"sample", "--lang", "klingon"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.errors, HasSubstr("--lang: there is no \"klingon\" (there are: en, id,"));
}

TEST(OutputFile, TakesThePlaceOfAnOlderOneOnlyWhenItIsWhole) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const std::string file = folder.write("sample.json", "old");
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  const std::string other = folder.at("other.json");
  fs::create_hard_link(file, other);
  ASSERT_EQ(runHost({"sample", "-o", file}).status, 0);
  EXPECT_THAT(contentsOf(file), StartsWith("{"));
  // The old file was not written into, and the new one is as private as it was.
  EXPECT_EQ(contentsOf(other), "old");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST(OutputFile, StaysWhenTheNewOneCannotBeMade) {
  const TemporaryFolder folder;
  const std::string file = folder.write("due.png", "old");
  EXPECT_NE(runHost({"render", "NoSuchWidget", "--snapshot", kHousehold, "-o", file}).status, 0);
  EXPECT_EQ(contentsOf(file), "old");
  EXPECT_THAT(runHost({"sample", "-o", folder.at("none/x.json")}).errors,
              HasSubstr("cannot write " + folder.at("none/x.json") + ": No such file"));
}

TEST(OutputFile, FollowsALinkAndWritesToADevice) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const std::string target = folder.write("target.json", "old");
  fs::create_symlink("target.json", folder.at("link.json"));
  ASSERT_EQ(runHost({"sample", "-o", folder.at("link.json")}).status, 0);
  EXPECT_TRUE(fs::is_symlink(folder.at("link.json")));
  EXPECT_THAT(contentsOf(target), StartsWith("{"));
  EXPECT_EQ(runHost({"sample", "-o", "/dev/null"}).status, 0);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace cli
