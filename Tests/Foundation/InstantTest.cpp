// The one text form of a point in time.
#include <gtest/gtest.h>

#include "Foundation/Instant.hpp"

namespace foundation {
namespace {

std::optional<std::int64_t> seconds(std::string_view text) {
  const auto instant = parseInternetDateTime(text);
  if (!instant) return std::nullopt;
  EXPECT_EQ(instant->nanoseconds, 0);
  return instant->seconds;
}

TEST(InternetDateTime, ReadsUtcAndOffsets) {
  EXPECT_EQ(seconds("1970-01-01T00:00:00Z"), 0);
  EXPECT_EQ(seconds("2025-03-14T09:30:00Z"), 1741944600);
  EXPECT_EQ(seconds("2025-03-14T16:30:00+07:00"), 1741944600);
  EXPECT_EQ(seconds("2025-03-14T16:30:00+0700"), 1741944600);
  EXPECT_EQ(seconds("2025-03-14T06:00:00-03:30"), 1741944600);
  EXPECT_EQ(seconds("1969-12-31T23:59:59Z"), -1);
  EXPECT_EQ(seconds("2024-02-29T00:00:00Z"), 1709164800);
}

TEST(InternetDateTime, LeapSecondReadsAsTheSecondBefore) {
  EXPECT_EQ(seconds("2016-12-31T23:59:60Z"), seconds("2016-12-31T23:59:59Z"));
  EXPECT_EQ(seconds("2016-12-31T23:59:61Z"), std::nullopt);
}

TEST(InternetDateTime, DatesThatDoNotExistAreRejected) {
  for (const char* date : {"2025-02-29",
                           "2025-02-30",
                           "1900-02-29",
                           "2025-04-31",
                           "2025-00-10",
                           "2025-13-01",
                           "2025-01-00",
                           "2025-01-32",
                           "0000-01-01"}) {
    EXPECT_EQ(seconds(std::string(date) + "T00:00:00Z"), std::nullopt) << date;
  }
}

TEST(InternetDateTime, TimesThatDoNotExistAreRejected) {
  for (const char* time : {"24:00:00", "25:00:00", "00:60:00", "00:00:61"}) {
    EXPECT_EQ(seconds("2025-03-14T" + std::string(time) + "Z"), std::nullopt) << time;
  }
}

TEST(InternetDateTime, OffsetsUpToEighteenHours) {
  EXPECT_EQ(seconds("1970-01-01T18:00:00+18:00"), 0);
  EXPECT_EQ(seconds("1970-01-01T18:01:00+18:01"), std::nullopt);
  EXPECT_EQ(seconds("1970-01-01T00:00:00+00:60"), std::nullopt);
  EXPECT_EQ(seconds("1970-01-01T00:00:00-00:00"), 0);
}

TEST(InternetDateTime, OtherFormsAreRejected) {
  for (const char* text : {"",
                           "2025-03-14",
                           "2025-03-14T09:30Z",
                           "2025-03-14T09:30:00",
                           "2025-03-14t09:30:00Z",
                           "2025-03-14T09:30:00z",
                           "2025-03-14 09:30:00Z",
                           "2025-03-14T09:30:00 Z",
                           " 2025-03-14T09:30:00Z",
                           "2025-03-14T09:30:00Z ",
                           "2025-03-14T09:30:00Zjunk",
                           "2025-03-14T09:30:00.5Z",
                           "20250314T093000Z",
                           "-2025-03-14T09:30:00Z",
                           "+2025-03-14T09:30:00Z",
                           "12025-03-14T09:30:00Z",
                           "2025-3-4T9:5:7Z",
                           "2025-03-14T09:30:00+07",
                           "2025-03-14T09:30:00+7:00",
                           "2025-03-14T09:30:00+07:00:30",
                           "2025-03-14T09:30:00+",
                           "2025-03-14T09:30:00UTC",
                           "2025-03-14T09:30:00EST",
                           "2025-W11-5T09:30:00Z",
                           "2025-03-14T-9:30:00Z",
                           "٢٠٢٥-03-14T09:30:00Z"}) {
    EXPECT_EQ(seconds(text), std::nullopt) << text;
  }
}

TEST(InternetDateTime, IsWrittenWithoutAFraction) {
  EXPECT_EQ(formatInternetDateTime({1741944600, 999'999'999}), "2025-03-14T09:30:00Z");
  EXPECT_EQ(formatInternetDateTime({-1, 0}), "1969-12-31T23:59:59Z");
  EXPECT_EQ(formatInternetDateTime({1709164800, 0}), "2024-02-29T00:00:00Z");
}

}  // namespace
}  // namespace foundation
