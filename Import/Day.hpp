// Calendar days and months of a ledger: no time, no zone.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace importer {

/// A day as a count of days since 1970-01-01.
struct Day {
  std::int32_t number = 0;

  friend auto operator<=>(Day, Day) = default;
  friend Day operator+(Day day, int days) { return {day.number + days}; }
  friend Day operator-(Day day, int days) { return {day.number - days}; }
};

/// A month as a count of months since year 0.
struct Month {
  std::int32_t number = 0;

  friend auto operator<=>(Month, Month) = default;
  friend Month operator+(Month month, int months) { return {month.number + months}; }
  friend Month operator-(Month month, int months) { return {month.number - months}; }
};

/// The month must have the day.
[[nodiscard]] std::optional<Day> dayOf(int year, int month, int day);
[[nodiscard]] Month monthOf(Day day);
[[nodiscard]] int dayOfMonth(Day day);
[[nodiscard]] int daysIn(Month month);
/// The day of that number in the month, or its last day where it has fewer.
[[nodiscard]] Day dayIn(Month month, int day);
[[nodiscard]] inline Day firstDay(Month month) {
  return dayIn(month, 1);
}
[[nodiscard]] inline Day lastDay(Month month) {
  return dayIn(month, 31);
}

/// "2026-03-14"
[[nodiscard]] std::string text(Day day);
/// "2026-03"
[[nodiscard]] std::string text(Month month);
/// Exactly "YYYY-MM-DD"; nothing for any other form or a day that the month does not have.
[[nodiscard]] std::optional<Day> parseDay(std::string_view text);
/// The leading "YYYY-MM" of "2026-03" or "2026-03-31".
[[nodiscard]] std::optional<Month> parseMonth(std::string_view text);

}  // namespace importer
