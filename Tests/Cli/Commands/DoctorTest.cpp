// What `doctor` finds.
#include <algorithm>

#include "Commands/CommandsFixture.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_P(Commands, DoctorFindsTheContainerAndTheDocument) {
  const TemporaryFolder folder;
  folder.write("widget-snapshot.json", contentsOf(kHousehold));
  const Outcome outcome = run({"doctor", "--container", folder.path()});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +container +" + folder.path().string()));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +document +" + folder.path().string()));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +symbols +built in: [1-9][0-9]* names"));
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("found +font +/.*/Inter-Regular.otf"));
  const Outcome missing = run({"doctor", "--container", (folder.path() / "none").string()});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.out, ::testing::ContainsRegex("MISSING +container"));
}

TEST(Doctor, ShowsTheTimeZoneAndWhereItComesFrom) {
  EXPECT_THAT(runHost({"doctor"}, {{"TZ", "Asia/Jakarta"}}).out,
              ::testing::ContainsRegex("found +time zone +Asia/Jakarta .TZ."));
  EXPECT_THAT(runHost({"doctor"}, {{"TZ", "<+0330>-3:30"}}).out,
              ::testing::ContainsRegex("found +time zone +<.0330>-3:30 .TZ."));
}

TEST(Doctor, NamesAVariableThatIsNoTimeZone) {
  const Outcome outcome = runHost({"doctor"}, {{"TZ", "Nowhere/Town"}});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("absent +time zone"));
  EXPECT_THAT(outcome.out, HasSubstr("TZ is \"Nowhere/Town\", which names no zone"));
}

TEST_P(Commands, ANamedPropertyListMustBeThereAndReadable) {
  const TemporaryFolder folder;
  const std::string garbage = folder.write("garbage.plist", "no plist");
  for (const std::string& file :
       {std::string("/nonexistent"), folder.path().string(), garbage, std::string("/dev/zero")}) {
    const Outcome outcome = run({"list", "--info-plist", file});
    EXPECT_EQ(outcome.status, 1) << file;
    EXPECT_THAT(outcome.out, IsEmpty()) << file;
    EXPECT_THAT(outcome.errors, HasSubstr("cannot read " + file)) << file;
    EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
  }
  EXPECT_THAT(run({"list", "--info-plist", "/nonexistent"}).errors, HasSubstr("no such file"));
  EXPECT_THAT(run({"list", "--info-plist", garbage}).errors, HasSubstr("no property list"));
}

TEST_P(Commands, DoctorSaysThatAPropertyListIsNone) {
  const TemporaryFolder folder;
  const std::string garbage = folder.write("garbage.plist", "no plist");
  const Outcome outcome = run({"doctor", "--info-plist", garbage});
  EXPECT_THAT(outcome.out, ::testing::ContainsRegex("absent +Info.plist +" + garbage));
  EXPECT_THAT(outcome.out, HasSubstr("no property list"));
}

}  // namespace
}  // namespace cli
