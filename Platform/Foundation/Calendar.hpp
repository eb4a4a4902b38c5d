// The Gregorian calendar in a time zone (Julian before 1582-10-15). Names and the first day of a
// week are the locale's: Locale.hpp, DateFormatter.hpp.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "Foundation/Instant.hpp"
#include "Foundation/Locale.hpp"

namespace foundation {

/// Local date and time of an instant. month 1...12, day 1...31, weekday 1 = Sunday ... 7.
struct DateComponents {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int weekday = 0;

  friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

class Calendar {
 public:
  explicit Calendar(const TimeZone& zone);
  ~Calendar();
  Calendar(Calendar&&) noexcept;
  Calendar& operator=(Calendar&&) noexcept;

  [[nodiscard]] DateComponents components(Instant instant) const;

  /// Midnight of a date; odd months and days carry over. A skipped wall time is read with the
  /// offset before the jump, a repeated one gives its first occurrence. Nothing far outside the
  /// calendar's range.
  [[nodiscard]] std::optional<Instant> date(std::int64_t year,
                                            std::int64_t month,
                                            std::int64_t day) const;

  /// The first instant of the instant's local day.
  [[nodiscard]] Instant startOfDay(Instant instant) const;

  /// The whole days, of equal wall-clock time, that fit between two instants; truncated towards
  /// zero.
  [[nodiscard]] std::int64_t dayDifference(Instant from, Instant to) const;

  /// The first instant strictly after `after` whose local time is hour:minute:second (policies
  /// nextTime, first, forward): where a forward jump swallows it, the instant at which the jump
  /// ends.
  [[nodiscard]] std::optional<Instant> nextDate(Instant after,
                                                int hour,
                                                int minute,
                                                int second) const;

  [[nodiscard]] int daysInMonth(int year, int month) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace foundation
