// Calendars and instants as tests write them.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>

#include "Foundation/Calendar.hpp"

namespace foundation {

inline void PrintTo(const Instant& instant, std::ostream* out) {
  *out << formatInternetDateTime(instant) << " +" << instant.nanoseconds << "ns";
}

inline Calendar calendarIn(std::string zone) {
  return Calendar{TimeZone{std::move(zone)}};
}

inline Instant at(std::string_view text) {
  const auto instant = parseInternetDateTime(text);
  EXPECT_TRUE(instant) << text;
  return instant.value_or(Instant{});
}

inline std::string local(const Calendar& calendar, Instant instant) {
  const DateComponents c = calendar.components(instant);
  char text[64];
  std::snprintf(text,
                sizeof text,
                "%04d-%02d-%02d %02d:%02d:%02d/%d",
                c.year,
                c.month,
                c.day,
                c.hour,
                c.minute,
                c.second,
                c.weekday);
  return text;
}

inline constexpr auto rowName = [](const auto& row) { return row.param.name; };

}  // namespace foundation
