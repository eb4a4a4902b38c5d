// The day and month strings of documents: "2025-03-20", "2025-03".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.hpp"

namespace foundation {

/// As written: month 13 or day 0 are not put right here.
struct DayString {
  std::int64_t year = 0;
  std::int64_t month = 0;
  std::int64_t day = 0;

  friend bool operator==(const DayString&, const DayString&) = default;
};

/// Exactly three whole numbers between hyphens, each with at most one "+" before it; else nothing.
[[nodiscard]] std::optional<DayString> parseDayString(std::string_view text);

/// The whole calendar days from the start of the reference's day to the day: today 0, tomorrow 1,
/// yesterday -1. Nothing for a malformed string or a day outside the calendar. Days beyond a
/// month's end carry over.
[[nodiscard]] std::optional<std::int64_t> daysBetween(std::string_view day,
                                                      Instant reference,
                                                      const Calendar& calendar);

/// The instant's local month as "2025-03".
[[nodiscard]] std::string monthString(Instant instant, const Calendar& calendar);

}  // namespace foundation
