// How many days lie between two instants, when a time of day comes next, and how long months are,
// in zones that change their clocks. Expected instants are written with the offsets that were in
// force.
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "Calendars.hpp"
#include "Foundation/Calendar.hpp"
#include "Foundation/DayString.hpp"

namespace foundation {
namespace {

struct DifferenceRow {
  const char* name;
  const char* zone;
  const char* from;
  const char* to;
  std::int64_t expected;
};
void PrintTo(const DifferenceRow& row, std::ostream* out) {
  *out << row.name;
}

class CalendarDayDifference : public testing::TestWithParam<DifferenceRow> {};

TEST_P(CalendarDayDifference, CountsDaysOfEqualWallTime) {
  const DifferenceRow& row = GetParam();
  EXPECT_EQ(calendarIn(row.zone).dayDifference(at(row.from), at(row.to)), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows,
    CalendarDayDifference,
    testing::Values(
        DifferenceRow{"Same", "UTC", "2025-03-14T00:00:00Z", "2025-03-14T00:00:00Z", 0},
        DifferenceRow{"Tomorrow", "UTC", "2025-03-14T00:00:00Z", "2025-03-15T00:00:00Z", 1},
        DifferenceRow{"Yesterday", "UTC", "2025-03-14T00:00:00Z", "2025-03-13T00:00:00Z", -1},
        DifferenceRow{"ASecondLess", "UTC", "2025-03-14T00:00:00Z", "2025-03-14T23:59:59Z", 0},
        DifferenceRow{
            "ASecondLessBackwards", "UTC", "2025-03-14T00:00:00Z", "2025-03-13T00:00:01Z", 0},
        DifferenceRow{"OverALeapDay", "UTC", "2024-02-28T00:00:00Z", "2024-03-01T00:00:00Z", 2},
        DifferenceRow{"OverAYear", "UTC", "2024-12-31T00:00:00Z", "2025-12-31T00:00:00Z", 365},
        DifferenceRow{"NewYork23HourDay",
                      "America/New_York",
                      "2025-03-09T00:00:00-05:00",
                      "2025-03-10T00:00:00-04:00",
                      1},
        DifferenceRow{"NewYork25HourDay",
                      "America/New_York",
                      "2025-11-02T00:00:00-04:00",
                      "2025-11-03T00:00:00-05:00",
                      1},
        DifferenceRow{"NewYork25HourDayBackwards",
                      "America/New_York",
                      "2025-11-03T00:00:00-05:00",
                      "2025-11-02T00:00:00-04:00",
                      -1},
        DifferenceRow{"SaoPauloIntoTheShortDay",
                      "America/Sao_Paulo",
                      "2018-11-03T00:00:00-03:00",
                      "2018-11-04T01:00:00-02:00",
                      1},
        DifferenceRow{"SaoPauloOutOfTheShortDay",
                      "America/Sao_Paulo",
                      "2018-11-04T01:00:00-02:00",
                      "2018-11-05T00:00:00-02:00",
                      0},
        DifferenceRow{"SaoPauloTwoDaysOn",
                      "America/Sao_Paulo",
                      "2018-11-04T01:00:00-02:00",
                      "2018-11-06T00:00:00-02:00",
                      1},
        DifferenceRow{"SaoPauloTheDayBefore",
                      "America/Sao_Paulo",
                      "2018-11-04T01:00:00-02:00",
                      "2018-11-03T00:00:00-03:00",
                      -1},
        DifferenceRow{"Apia29To30",
                      "Pacific/Apia",
                      "2011-12-29T00:00:00-10:00",
                      "2011-12-31T00:00:00+14:00",
                      1},
        DifferenceRow{"Apia29To1",
                      "Pacific/Apia",
                      "2011-12-29T00:00:00-10:00",
                      "2012-01-01T00:00:00+14:00",
                      2},
        DifferenceRow{"HavanaIntoTheRepeatedMidnight",
                      "America/Havana",
                      "2024-11-02T00:00:00-04:00",
                      "2024-11-03T00:00:00-04:00",
                      1},
        DifferenceRow{"HavanaOutOfTheRepeatedMidnight",
                      "America/Havana",
                      "2024-11-03T00:00:00-04:00",
                      "2024-11-04T00:00:00-05:00",
                      1}),
    rowName);

TEST(CalendarDayDifferenceRange, FarInstantsAreHeldWithinTheCalendar) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_GT(utc.dayDifference({INT64_MIN}, {INT64_MAX}), 180'000'000);
  EXPECT_LT(utc.dayDifference({INT64_MAX}, {INT64_MIN}), -180'000'000);
}

TEST(CalendarDayDifferenceRange, FractionsCount) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(utc.dayDifference({0, 1}, {86400, 0}), 0);
  EXPECT_EQ(utc.dayDifference({0, 1}, {86400, 1}), 1);
  EXPECT_EQ(utc.dayDifference({86400, 0}, {0, 1}), 0);
}

struct NextRow {
  const char* name;
  const char* zone;
  const char* now;
  const char* expected;
};
void PrintTo(const NextRow& row, std::ostream* out) {
  *out << row.name;
}

class CalendarNextDate : public testing::TestWithParam<NextRow> {};

TEST_P(CalendarNextDate, AfterMidnight) {
  const NextRow& row = GetParam();
  EXPECT_EQ(calendarIn(row.zone).nextDate(at(row.now), 0, 0, 5), at(row.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rows,
    CalendarNextDate,
    testing::Values(NextRow{"SixSecondsBefore",
                            "Asia/Jakarta",
                            "2025-03-14T23:59:59+07:00",
                            "2025-03-15T00:00:05+07:00"},
                    NextRow{"OneSecondBefore",
                            "Asia/Jakarta",
                            "2025-03-15T00:00:04+07:00",
                            "2025-03-15T00:00:05+07:00"},
                    NextRow{"Exactly",
                            "Asia/Jakarta",
                            "2025-03-15T00:00:05+07:00",
                            "2025-03-16T00:00:05+07:00"},
                    NextRow{"YearEnd", "UTC", "2024-12-31T12:00:00Z", "2025-01-01T00:00:05Z"},
                    NextRow{"LeapDay", "UTC", "2024-02-28T12:00:00Z", "2024-02-29T00:00:05Z"},
                    NextRow{"NewYorkLongDay",
                            "America/New_York",
                            "2025-11-02T00:30:00-04:00",
                            "2025-11-03T00:00:05-05:00"},
                    NextRow{"NewYorkShortDay",
                            "America/New_York",
                            "2025-03-09T00:30:00-05:00",
                            "2025-03-10T00:00:05-04:00"},
                    NextRow{"SaoPauloSkipped",
                            "America/Sao_Paulo",
                            "2018-11-03T12:00:00-03:00",
                            "2018-11-04T01:00:00-02:00"},
                    NextRow{"SaoPauloAtTheJump",
                            "America/Sao_Paulo",
                            "2018-11-04T01:00:00-02:00",
                            "2018-11-05T00:00:05-02:00"},
                    NextRow{"SaoPauloAfterTheJump",
                            "America/Sao_Paulo",
                            "2018-11-04T12:00:00-02:00",
                            "2018-11-05T00:00:05-02:00"},
                    NextRow{"BeirutSkipped",
                            "Asia/Beirut",
                            "2024-03-30T12:00:00+02:00",
                            "2024-03-31T01:00:00+03:00"},
                    NextRow{"CairoSkipped",
                            "Africa/Cairo",
                            "2024-04-25T12:00:00+02:00",
                            "2024-04-26T01:00:00+03:00"},
                    NextRow{"AzoresSkipped",
                            "Atlantic/Azores",
                            "2024-03-30T12:00:00-01:00",
                            "2024-03-31T01:00:00+00:00"},
                    NextRow{"AsuncionSkipped",
                            "America/Asuncion",
                            "2023-09-30T12:00:00-04:00",
                            "2023-10-01T01:00:00-03:00"},
                    NextRow{"HavanaSkipped",
                            "America/Havana",
                            "2024-03-09T12:00:00-05:00",
                            "2024-03-10T01:00:00-04:00"},
                    NextRow{"SantiagoSkipped",
                            "America/Santiago",
                            "2024-09-07T12:00:00-04:00",
                            "2024-09-08T01:00:00-03:00"},
                    NextRow{"SantiagoAtTheJump",
                            "America/Santiago",
                            "2024-09-08T01:00:00-03:00",
                            "2024-09-09T00:00:05-03:00"},
                    NextRow{"NuukHourBeforeMidnightSkipped",
                            "America/Nuuk",
                            "2024-03-30T12:00:00-02:00",
                            "2024-03-31T00:00:05-01:00"},
                    NextRow{"HavanaRepeatedFromTheDayBefore",
                            "America/Havana",
                            "2024-11-02T12:00:00-04:00",
                            "2024-11-03T00:00:05-04:00"},
                    NextRow{"HavanaRepeatedFromTheFirstPass",
                            "America/Havana",
                            "2024-11-03T00:00:06-04:00",
                            "2024-11-03T00:00:05-05:00"},
                    NextRow{"HavanaRepeatedFromMidFirstPass",
                            "America/Havana",
                            "2024-11-03T00:30:00-04:00",
                            "2024-11-03T00:00:05-05:00"},
                    NextRow{"HavanaRepeatedExactlyTheFirst",
                            "America/Havana",
                            "2024-11-03T00:00:05-04:00",
                            "2024-11-04T00:00:05-05:00"},
                    NextRow{"HavanaRepeatedExactlyTheSecond",
                            "America/Havana",
                            "2024-11-03T00:00:05-05:00",
                            "2024-11-04T00:00:05-05:00"},
                    NextRow{"AzoresRepeatedFromTheDayBefore",
                            "Atlantic/Azores",
                            "2024-10-26T12:00:00+00:00",
                            "2024-10-27T00:00:05+00:00"},
                    NextRow{"AzoresRepeatedFromTheFirstPass",
                            "Atlantic/Azores",
                            "2024-10-27T00:30:00+00:00",
                            "2024-10-27T00:00:05-01:00"},
                    NextRow{"AzoresRepeatedExactlyTheFirst",
                            "Atlantic/Azores",
                            "2024-10-27T00:00:05+00:00",
                            "2024-10-28T00:00:05-01:00"},
                    NextRow{"BeirutBackAcrossMidnight",
                            "Asia/Beirut",
                            "2024-10-26T12:00:00+03:00",
                            "2024-10-27T00:00:05+02:00"},
                    NextRow{"BeirutFromTheRepeatedHour",
                            "Asia/Beirut",
                            "2024-10-26T23:30:00+02:00",
                            "2024-10-27T00:00:05+02:00"},
                    NextRow{"CairoBackAcrossMidnight",
                            "Africa/Cairo",
                            "2024-10-31T12:00:00+03:00",
                            "2024-11-01T00:00:05+02:00"},
                    NextRow{"AsuncionBackAcrossMidnight",
                            "America/Asuncion",
                            "2024-03-23T12:00:00-03:00",
                            "2024-03-24T00:00:05-04:00"},
                    NextRow{"ApiaSkippedDay",
                            "Pacific/Apia",
                            "2011-12-29T12:00:00-10:00",
                            "2011-12-31T00:00:05+14:00"},
                    NextRow{"StJohnsFromTheDayBefore",
                            "America/St_Johns",
                            "2010-11-06T12:00:00-02:30",
                            "2010-11-07T00:00:05-02:30"},
                    NextRow{"StJohnsFromTheRepeatedHour",
                            "America/St_Johns",
                            "2010-11-06T23:30:00-03:30",
                            "2010-11-07T00:00:05-03:30"}),
    rowName);

TEST(CalendarNextDateFraction, OnlyWholeSecondsStrictlyAfterCount) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(utc.nextDate({4, 750'000'000}, 0, 0, 5), (Instant{5, 0}));
  EXPECT_EQ(utc.nextDate({5, 500'000'000}, 0, 0, 5), (Instant{86405, 0}));
}

TEST(CalendarNextDateFraction, NothingOutsideTheCalendar) {
  EXPECT_EQ(calendarIn("UTC").nextDate({INT64_MAX}, 0, 0, 5), std::nullopt);
  EXPECT_EQ(calendarIn("UTC").nextDate({INT64_MIN}, 0, 0, 5), std::nullopt);
}

TEST(CalendarNextDateFraction, OtherTimesOfDay) {
  EXPECT_EQ(calendarIn("Europe/Berlin").nextDate(at("2025-03-30T00:00:00+01:00"), 2, 30, 0),
            at("2025-03-30T03:00:00+02:00"));
  EXPECT_EQ(calendarIn("Europe/Berlin").nextDate(at("2025-03-31T00:00:00+02:00"), 23, 59, 59),
            at("2025-03-31T23:59:59+02:00"));
}

TEST(CalendarDaysInMonth, FollowLeapYearsAndTheReform) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(utc.daysInMonth(2025, 2), 28);
  EXPECT_EQ(utc.daysInMonth(2024, 2), 29);
  EXPECT_EQ(utc.daysInMonth(1900, 2), 28);
  EXPECT_EQ(utc.daysInMonth(2000, 2), 29);
  EXPECT_EQ(utc.daysInMonth(2025, 4), 30);
  EXPECT_EQ(utc.daysInMonth(2025, 12), 31);
  EXPECT_EQ(utc.daysInMonth(1500, 2), 29);
  EXPECT_EQ(utc.daysInMonth(1582, 10), 21);
}

}  // namespace
}  // namespace foundation
