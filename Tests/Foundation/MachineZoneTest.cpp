// The machine's time zone in each of its forms, against what `date` answers.
#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "Foundation/Calendar.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/Locale.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::TemporaryFolder;

constexpr const char* kBerlin = "/usr/share/zoneinfo/Europe/Berlin";

/// Winter and summer of three years, and both sides of changes in the Americas and Europe.
const std::vector<std::int64_t> kInstants{1'705'322'096,  // 2024-01-15
                                          1'720'000'001,
                                          1'730'595'599,  // 2024-11-03, New York goes back
                                          1'730'595'600,
                                          1'741'942'200,
                                          1'743'296'399,  // 2025-03-30, Berlin goes forward
                                          1'743'296'400,
                                          1'761'440'400,
                                          1'798'675'200,
                                          2'530'000'000};  // 2050

std::string localTimes(const TimeZone& zone) {
  const Calendar calendar(zone);
  std::string out;
  for (const std::int64_t seconds : kInstants) {
    const DateComponents c = calendar.components({seconds});
    char text[80];
    std::snprintf(text,
                  sizeof text,
                  "%04d-%02d-%02d %02d:%02d:%02d\n",
                  c.year,
                  c.month,
                  c.day,
                  c.hour,
                  c.minute,
                  c.second);
    out += text;
  }
  return out;
}

/// What the machine's own program says under this TZ.
std::string answerOfDate(const std::string& tz) {
  const TemporaryFolder folder;
  std::string lines;
  for (const std::int64_t seconds : kInstants) lines += "@" + std::to_string(seconds) + "\n";
  const std::string command =
      "TZ='" + tz + "' date --file=" + folder.write("instants", lines) + " '+%Y-%m-%d %H:%M:%S'";
  std::FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return "cannot run date";
  std::string out;
  char buffer[256];
  while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) out += buffer;
  return ::pclose(pipe) == 0 ? out : "date failed";
}

TEST(MachineZone, EachFormOfTheVariableIsReadAsDateReadsIt) {
  for (const char* tz : {"Europe/Berlin",
                         ":Europe/Berlin",
                         kBerlin,
                         ":/usr/share/zoneinfo/Europe/Berlin",
                         "posix/America/New_York",
                         "right/Europe/Berlin",
                         ":right/Asia/Tokyo",
                         "right/UTC",
                         "",
                         ":",
                         "UTC",
                         "UTC0",
                         "UTC-3",
                         ":UTC-3",
                         "<+0330>-3:30",
                         "<-02>+2",
                         "ABC+10:20:30",
                         "EST5EDT",
                         "EST5EDT4",
                         "EST5EDT,M3.2.0,M11.1.0",
                         "EST5EDT,M3.2.0/2:00:00,M11.1.0/2",
                         "CET-1CEST,M3.5.0,M10.5.0/3",
                         "AEST-10AEDT,M10.1.0,M4.1.0/3",
                         "<-03>3<-02>,M3.5.0/-2,M10.5.0/-1",
                         "IST-1GMT0,M10.5.0,M3.5.0/1",
                         "XXX3YYY2:30,J60/0,J300/0",
                         "XXX3YYY,59,299/25"}) {
    const TimeZoneSetting setting = timeZoneSetting({{"TZ", tz}});
    EXPECT_EQ(localTimes(setting.zone), answerOfDate(tz)) << tz;
    EXPECT_EQ(setting.source, "TZ") << tz;
    EXPECT_EQ(setting.ignored, "") << tz;
  }
}

TEST(MachineZone, ASummerTimeWithoutDaysHasTheUsualOnes) {
  EXPECT_EQ(localTimes(timeZoneSetting({{"TZ", "AAA3BBB"}}).zone),
            answerOfDate("AAA3BBB,M3.2.0,M11.1.0"));
}

TEST(MachineZone, ALinkIntoTheDatabaseGivesAName) {
  const TemporaryFolder etc;
  std::filesystem::create_symlink(kBerlin, etc.at("localtime"));
  const TimeZoneSetting setting = timeZoneSetting({}, etc.path());
  EXPECT_EQ(setting.zone.identifier, "Europe/Berlin");
  EXPECT_EQ(setting.source, etc.at("localtime"));
}

TEST(MachineZone, ARelativeLinkOrOneToLeapSecondsGivesANameToo) {
  const TemporaryFolder etc;
  std::filesystem::create_symlink("../usr/share/zoneinfo/right/Asia/Tokyo", etc.at("localtime"));
  EXPECT_EQ(timeZoneSetting({}, etc.path()).zone.identifier, "right/Asia/Tokyo");
}

TEST(MachineZone, AFileOfItsOwnIsReadAsItIs) {
  const TemporaryFolder etc;
  for (const char* zone : {"Europe/Berlin", "America/St_Johns", "right/Asia/Tokyo"}) {
    const auto bytes = contentsOfFile(std::string("/usr/share/zoneinfo/") + zone);
    ASSERT_TRUE(bytes) << zone;
    const std::string file = etc.write("localtime", *bytes);
    etc.write("timezone", "Asia/Jakarta\n");
    const TimeZoneSetting setting = timeZoneSetting({}, etc.path());
    EXPECT_EQ(setting.source, file);
    EXPECT_EQ(localTimes(setting.zone), answerOfDate(":" + file)) << zone;
  }
}

TEST(MachineZone, ALinkToAFileElsewhereIsRead) {
  const TemporaryFolder etc;
  const auto bytes = contentsOfFile(kBerlin);
  ASSERT_TRUE(bytes);
  std::filesystem::create_symlink(etc.write("own", *bytes), etc.at("localtime"));
  const TimeZoneSetting setting = timeZoneSetting({}, etc.path());
  EXPECT_EQ(localTimes(setting.zone), answerOfDate(kBerlin));
}

TEST(MachineZone, TheNameFileCountsWhereThereIsNoOther) {
  const TemporaryFolder etc;
  const std::string file = etc.write("timezone", "Asia/Jakarta \nignored\n");
  const TimeZoneSetting setting = timeZoneSetting({}, etc.path());
  EXPECT_EQ(setting.zone.identifier, "Asia/Jakarta");
  EXPECT_EQ(setting.source, file);
  EXPECT_EQ(localTimes(setting.zone), answerOfDate("Asia/Jakarta"));
}

TEST(MachineZone, NothingUsableIsUtcWithoutASource) {
  const TemporaryFolder etc;
  EXPECT_EQ(timeZoneSetting({}, etc.path()).zone, TimeZone{});
  etc.write("localtime", "TZif2 and no more");
  etc.write("timezone", "Nowhere/Town\n");
  const TimeZoneSetting setting = timeZoneSetting({}, etc.path());
  EXPECT_EQ(setting.zone, TimeZone{});
  EXPECT_EQ(setting.source, "");
}

TEST(MachineZone, AVariableThatNamesNoZoneIsNamedAndTheMachinesIsUsed) {
  const TemporaryFolder etc;
  std::filesystem::create_symlink(kBerlin, etc.at("localtime"));
  const TimeZoneSetting setting = timeZoneSetting({{"TZ", "Nowhere/Town"}}, etc.path());
  EXPECT_EQ(setting.zone.identifier, "Europe/Berlin");
  EXPECT_EQ(setting.ignored, "Nowhere/Town");
}

}  // namespace
}  // namespace foundation
