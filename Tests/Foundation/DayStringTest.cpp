// Days and months as documents write them.
#include <gtest/gtest.h>

#include "Calendars.hpp"
#include "Foundation/Calendar.hpp"
#include "Foundation/DayString.hpp"

namespace foundation {
namespace {

TEST(DayStrings, WholeNumbersBetweenHyphens) {
  EXPECT_EQ(parseDayString("2025-03-20"), (DayString{2025, 3, 20}));
  EXPECT_EQ(parseDayString("2025-3-4"), (DayString{2025, 3, 4}));
  EXPECT_EQ(parseDayString("2025-+3-04"), (DayString{2025, 3, 4}));
  EXPECT_EQ(parseDayString("007-13-45"), (DayString{7, 13, 45}));
  EXPECT_EQ(parseDayString("9223372036854775807-0-0"), (DayString{INT64_MAX, 0, 0}));
}

TEST(DayStrings, AnythingElseIsMalformed) {
  for (const char* text : {"",
                           "-",
                           "--",
                           "2025",
                           "2025-03",
                           "2025-03-",
                           "2025--03-14",
                           "-2025-03-14",
                           "2025-03-14-",
                           "2025-03-14-1",
                           "2025-03--14",
                           "2025-03-+",
                           "2025-03-++1",
                           "2025-03-+-1",
                           " 2025-03-14",
                           "2025-03-14 ",
                           "2025-03-1 4",
                           "2025/03/14",
                           "2025-03-14T00:00:00",
                           "2025-03-1.0",
                           "2025-03-1_0",
                           "2025-03-0x1",
                           "2025-03-１４",
                           "9223372036854775808-1-1",
                           "a-b-c"}) {
    EXPECT_EQ(parseDayString(text), std::nullopt) << text;
  }
}

TEST(DaysBetween, TodayTomorrowYesterday) {
  const Calendar jakarta = calendarIn("Asia/Jakarta");
  const Instant evening = at("2025-03-14T23:59:59+07:00");
  EXPECT_EQ(daysBetween("2025-03-14", evening, jakarta), 0);
  EXPECT_EQ(daysBetween("2025-03-15", evening, jakarta), 1);
  EXPECT_EQ(daysBetween("2025-03-13", evening, jakarta), -1);
  EXPECT_EQ(daysBetween("2026-03-14", evening, jakarta), 365);
}

TEST(DaysBetween, MalformedOrOutsideTheCalendarIsNothing) {
  const Calendar utc = calendarIn("UTC");
  EXPECT_EQ(daysBetween("tomorrow", {}, utc), std::nullopt);
  EXPECT_EQ(daysBetween("600000-01-01", {}, utc), std::nullopt);
}

TEST(DaysBetween, OddDaysCarryOver) {
  const Calendar utc = calendarIn("UTC");
  const Instant reference = at("2025-01-31T12:00:00Z");
  EXPECT_EQ(daysBetween("2025-02-29", reference, utc), 29);   // 1 March
  EXPECT_EQ(daysBetween("2025-13-01", reference, utc), 335);  // 1 January 2026
  EXPECT_EQ(daysBetween("2025-00-31", reference, utc), -31);  // 31 December 2024
}

TEST(DaysBetween, AcrossChangesOfTheClock) {
  const Calendar newYork = calendarIn("America/New_York");
  EXPECT_EQ(daysBetween("2025-03-10", at("2025-03-09T23:00:00-04:00"), newYork), 1);
  EXPECT_EQ(daysBetween("2025-11-03", at("2025-11-02T23:00:00-05:00"), newYork), 1);
  EXPECT_EQ(daysBetween("2025-11-03", at("2025-03-01T00:00:00-05:00"), newYork), 247);
}

TEST(DaysBetween, OnADayWithoutMidnightLaterDaysCountOneLess) {
  const Calendar saoPaulo = calendarIn("America/Sao_Paulo");
  const Instant noon = at("2018-11-04T12:00:00-02:00");
  EXPECT_EQ(daysBetween("2018-11-04", noon, saoPaulo), 0);
  EXPECT_EQ(daysBetween("2018-11-05", noon, saoPaulo), 0);
  EXPECT_EQ(daysBetween("2018-11-06", noon, saoPaulo), 1);
  EXPECT_EQ(daysBetween("2018-11-03", noon, saoPaulo), -1);
}

TEST(DaysBetween, ADayWithoutMidnightIsYesterdayOnTheDayAfter) {
  const Calendar saoPaulo = calendarIn("America/Sao_Paulo");
  EXPECT_EQ(daysBetween("2018-11-04", at("2018-11-05T12:00:00-02:00"), saoPaulo), -1);
  EXPECT_EQ(daysBetween("2018-11-04", at("2018-11-06T12:00:00-02:00"), saoPaulo), -2);
  EXPECT_EQ(daysBetween("2018-11-04", at("2019-01-31T12:00:00-02:00"), saoPaulo), -88);
}

TEST(DaysBetween, OverADayThatWasSkipped) {
  const Calendar apia = calendarIn("Pacific/Apia");
  const Instant reference = at("2011-12-29T12:00:00-10:00");
  EXPECT_EQ(daysBetween("2011-12-30", reference, apia), 1);
  EXPECT_EQ(daysBetween("2011-12-31", reference, apia), 1);
  EXPECT_EQ(daysBetween("2012-01-01", reference, apia), 2);
}

TEST(MonthString, IsTheLocalMonth) {
  const Instant instant = at("2025-01-31T20:00:00Z");
  EXPECT_EQ(monthString(instant, calendarIn("UTC")), "2025-01");
  EXPECT_EQ(monthString(instant, calendarIn("Asia/Jakarta")), "2025-02");
}

}  // namespace
}  // namespace foundation
