// Days and midnights in zones that change their clocks at, before and across midnight. Expected
// instants are written with the offsets that were in force there.
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>

#include "Calendars.hpp"
#include "Foundation/Calendar.hpp"
#include "Foundation/DayString.hpp"

namespace foundation {
namespace {

TEST(CalendarComponents, FollowTheZone) {
  const Instant instant = at("2025-03-14T23:30:45Z");
  EXPECT_EQ(local(calendarIn("UTC"), instant), "2025-03-14 23:30:45/6");
  EXPECT_EQ(local(calendarIn("Asia/Jakarta"), instant), "2025-03-15 06:30:45/7");
  EXPECT_EQ(local(calendarIn("America/St_Johns"), instant), "2025-03-14 21:00:45/6");
  EXPECT_EQ(local(calendarIn("Asia/Kathmandu"), instant), "2025-03-15 05:15:45/7");
}

TEST(CalendarComponents, BeforeTheEpoch) {
  EXPECT_EQ(local(calendarIn("UTC"), {-1, 999'999'999}), "1969-12-31 23:59:59/4");
}

TEST(CalendarComponents, JulianBeforeTheReform) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(local(utc, at("1582-10-15T00:00:00Z")), "1582-10-15 00:00:00/6");
  EXPECT_EQ(local(utc, at("1582-10-14T12:00:00Z")), "1582-10-04 12:00:00/5");
  // 29 February 1500 existed only in the Julian calendar; it is 10 March in the Gregorian one.
  EXPECT_EQ(local(utc, at("1500-03-10T00:00:00Z")), "1500-02-29 00:00:00/7");
}

TEST(CalendarComponents, ZonesBeyondTheTableFollowTheirYearlyRule) {
  const Calendar newYork = calendarIn("America/New_York");
  EXPECT_EQ(local(newYork, at("2075-01-15T12:00:00Z")), "2075-01-15 07:00:00/3");
  EXPECT_EQ(local(newYork, at("2075-07-15T12:00:00Z")), "2075-07-15 08:00:00/2");
  // The southern summer spans the new year.
  const Calendar sydney = calendarIn("Australia/Sydney");
  EXPECT_EQ(local(sydney, at("2075-01-15T12:00:00Z")), "2075-01-15 23:00:00/3");
  EXPECT_EQ(local(sydney, at("2075-07-15T12:00:00Z")), "2075-07-15 22:00:00/2");
}

TEST(CalendarComponents, UnknownZoneIsUtc) {
  EXPECT_EQ(local(calendarIn("Nowhere/Town"), at("2025-03-14T09:30:00Z")), "2025-03-14 09:30:00/6");
}

struct DateRow {
  const char* name;
  const char* zone;
  std::int64_t year, month, day;
  const char* expected;
};
void PrintTo(const DateRow& row, std::ostream* out) {
  *out << row.name;
}

class CalendarDate : public testing::TestWithParam<DateRow> {};

TEST_P(CalendarDate, IsMidnightOf) {
  const DateRow& row = GetParam();
  EXPECT_EQ(calendarIn(row.zone).date(row.year, row.month, row.day), at(row.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Rows,
    CalendarDate,
    testing::Values(
        DateRow{"Plain", "UTC", 2025, 3, 20, "2025-03-20T00:00:00Z"},
        DateRow{"LeapDay", "UTC", 2024, 2, 29, "2024-02-29T00:00:00Z"},
        DateRow{"LeapDayOfACommonYear", "UTC", 2025, 2, 29, "2025-03-01T00:00:00Z"},
        DateRow{"LeapDayOf1900", "UTC", 1900, 2, 29, "1900-03-01T00:00:00Z"},
        DateRow{"LeapDayOf2000", "UTC", 2000, 2, 29, "2000-02-29T00:00:00Z"},
        DateRow{"YearEnd", "UTC", 2025, 12, 32, "2026-01-01T00:00:00Z"},
        DateRow{"Month13", "UTC", 2025, 13, 1, "2026-01-01T00:00:00Z"},
        DateRow{"Month0", "UTC", 2025, 0, 10, "2024-12-10T00:00:00Z"},
        DateRow{"MonthMinus1", "UTC", 2025, -1, 10, "2024-11-10T00:00:00Z"},
        DateRow{"Month25", "UTC", 2025, 25, 1, "2027-01-01T00:00:00Z"},
        DateRow{"Day0", "UTC", 2025, 3, 0, "2025-02-28T00:00:00Z"},
        DateRow{"DayMinus1", "UTC", 2025, 3, -1, "2025-02-27T00:00:00Z"},
        DateRow{"Day45", "UTC", 2025, 1, 45, "2025-02-14T00:00:00Z"},
        DateRow{"Day400", "UTC", 2025, 1, 400, "2026-02-04T00:00:00Z"},
        DateRow{"LastJulianDay", "UTC", 1582, 10, 4, "1582-10-14T00:00:00Z"},
        DateRow{"FirstGregorianDay", "UTC", 1582, 10, 15, "1582-10-15T00:00:00Z"},
        DateRow{"MissingDaysAreJulian", "UTC", 1582, 10, 10, "1582-10-20T00:00:00Z"},
        DateRow{"LastMissingDay", "UTC", 1582, 10, 14, "1582-10-24T00:00:00Z"},
        DateRow{"SaoPauloSkippedMidnight",
                "America/Sao_Paulo",
                2018,
                11,
                4,
                "2018-11-04T01:00:00-02:00"},
        DateRow{"BeirutSkippedMidnight", "Asia/Beirut", 2024, 3, 31, "2024-03-31T01:00:00+03:00"},
        DateRow{"CairoSkippedMidnight", "Africa/Cairo", 2024, 4, 26, "2024-04-26T01:00:00+03:00"},
        DateRow{
            "HavanaRepeatedMidnight", "America/Havana", 2024, 11, 3, "2024-11-03T00:00:00-04:00"},
        DateRow{
            "AzoresRepeatedMidnight", "Atlantic/Azores", 2024, 10, 27, "2024-10-27T00:00:00+00:00"},
        DateRow{"ApiaSkippedDay", "Pacific/Apia", 2011, 12, 30, "2011-12-31T00:00:00+14:00"},
        DateRow{"ApiaDayBefore", "Pacific/Apia", 2011, 12, 29, "2011-12-29T00:00:00-10:00"},
        DateRow{"StJohnsMidnightBeforeItsRepeat",
                "America/St_Johns",
                2010,
                11,
                7,
                "2010-11-07T00:00:00-02:30"},
        DateRow{"BeyondTheTable", "America/New_York", 2075, 7, 15, "2075-07-15T00:00:00-04:00"}),
    rowName);

TEST(CalendarDateRange, EndsWithTheCalendar) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_TRUE(utc.date(506'714, 1, 1));
  EXPECT_FALSE(utc.date(506'715, 1, 1));
  EXPECT_TRUE(utc.date(-4714, 1, 1));
  EXPECT_FALSE(utc.date(-4715, 1, 1));
  EXPECT_TRUE(utc.date(2025, 506'714 * 12LL, 1));
  EXPECT_FALSE(utc.date(2025, 506'714 * 12LL + 1, 1));
  EXPECT_TRUE(utc.date(2025, 1, 506'714 * 372LL));
  EXPECT_FALSE(utc.date(2025, 1, 506'714 * 372LL + 1));
  EXPECT_FALSE(utc.date(INT64_MAX, INT64_MIN, INT64_MAX));
}

TEST(CalendarDateRange, YearZeroIsOneBeforeChrist) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(utc.components(*utc.date(0, 3, 1)).year, 0);
  // Julian 1 January of year 1 is two days before the Gregorian one.
  EXPECT_EQ(utc.date(1, 1, 1)->seconds, at("0001-01-01T00:00:00Z").seconds - 2 * 86400);
}

TEST(CalendarDateRange, EveryDayOf2000YearsComesBackFromItsComponents) {
  const Calendar utc = calendarIn("UTC");
  for (std::int64_t day = -500'000; day < 250'000; ++day) {
    const Instant midnight{day * 86400};
    const DateComponents c = utc.components(midnight);
    ASSERT_EQ(utc.date(c.year, c.month, c.day), midnight) << day;
  }
}

struct StartRow {
  const char* name;
  const char* zone;
  const char* instant;
  const char* expected;
};
void PrintTo(const StartRow& row, std::ostream* out) {
  *out << row.name;
}

class CalendarStartOfDay : public testing::TestWithParam<StartRow> {};

TEST_P(CalendarStartOfDay, IsTheFirstInstantOfTheDay) {
  const StartRow& row = GetParam();
  const Calendar calendar = calendarIn(row.zone);
  const Instant start = calendar.startOfDay(at(row.instant));
  EXPECT_EQ(start, at(row.expected));
  EXPECT_NE(calendar.components({start.seconds - 1}).day, calendar.components(start).day);
}

INSTANTIATE_TEST_SUITE_P(Rows,
                         CalendarStartOfDay,
                         testing::Values(StartRow{"Plain",
                                                  "Asia/Jakarta",
                                                  "2025-03-14T12:00:00+07:00",
                                                  "2025-03-14T00:00:00+07:00"},
                                         StartRow{"MidnightItself",
                                                  "Asia/Jakarta",
                                                  "2025-03-14T00:00:00+07:00",
                                                  "2025-03-14T00:00:00+07:00"},
                                         StartRow{"NewYorkAfterTheJump",
                                                  "America/New_York",
                                                  "2025-03-09T12:00:00-04:00",
                                                  "2025-03-09T00:00:00-05:00"},
                                         StartRow{"NewYorkAfterTheReturn",
                                                  "America/New_York",
                                                  "2025-11-02T12:00:00-05:00",
                                                  "2025-11-02T00:00:00-04:00"},
                                         StartRow{"SaoPaulo20181104",
                                                  "America/Sao_Paulo",
                                                  "2018-11-04T12:00:00-02:00",
                                                  "2018-11-04T01:00:00-02:00"},
                                         StartRow{"Beirut20240331",
                                                  "Asia/Beirut",
                                                  "2024-03-31T12:00:00+03:00",
                                                  "2024-03-31T01:00:00+03:00"},
                                         StartRow{"Cairo20240426",
                                                  "Africa/Cairo",
                                                  "2024-04-26T12:00:00+03:00",
                                                  "2024-04-26T01:00:00+03:00"},
                                         StartRow{"Havana20241103",
                                                  "America/Havana",
                                                  "2024-11-03T12:00:00-05:00",
                                                  "2024-11-03T00:00:00-04:00"},
                                         StartRow{"Havana20241103SecondPass",
                                                  "America/Havana",
                                                  "2024-11-03T00:30:00-05:00",
                                                  "2024-11-03T00:00:00-04:00"},
                                         StartRow{"StJohns20101107",
                                                  "America/St_Johns",
                                                  "2010-11-07T12:00:00-03:30",
                                                  "2010-11-07T00:00:00-02:30"},
                                         StartRow{"StJohns20101106Repeated",
                                                  "America/St_Johns",
                                                  "2010-11-06T23:30:00-03:30",
                                                  "2010-11-06T00:00:00-02:30"},
                                         StartRow{"Apia20111231",
                                                  "Pacific/Apia",
                                                  "2011-12-31T12:00:00+14:00",
                                                  "2011-12-31T00:00:00+14:00"}),
                         rowName);

TEST(CalendarStartOfDayFraction, IsFloored) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(utc.startOfDay({86400, 999'999'999}), (Instant{86400, 0}));
  EXPECT_EQ(utc.startOfDay({-1, 500'000'000}), (Instant{-86400, 0}));
}

}  // namespace
}  // namespace foundation
