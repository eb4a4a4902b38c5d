// Internet date-times in the proleptic Gregorian calendar.
#include "Foundation/Instant.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace foundation {
namespace {

constexpr int kMinutesOfDay = 24 * 60;
constexpr int kLargestOffset = 18 * 60;  // minutes

/// Takes exactly `count` digits off the front.
std::optional<int> takeDigits(std::string_view& text, std::size_t count) {
  if (text.size() < count) return std::nullopt;
  int value = 0;
  for (const char c : text.substr(0, count)) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  text.remove_prefix(count);
  return value;
}

bool take(std::string_view& text, char c) {
  if (!text.starts_with(c)) return false;
  text.remove_prefix(1);
  return true;
}

/// "Z", "+hh:mm" or "+hhmm" up to the end, in minutes east.
std::optional<int> readOffset(std::string_view text) {
  if (text == "Z") return 0;
  const bool west = text.starts_with('-');
  if (!west && !text.starts_with('+')) return std::nullopt;
  text.remove_prefix(1);
  const auto hours = takeDigits(text, 2);
  if (!hours) return std::nullopt;
  take(text, ':');
  const auto minutes = takeDigits(text, 2);
  if (!minutes || !text.empty() || *minutes > 59) return std::nullopt;
  const int total = *hours * 60 + *minutes;
  if (total > kLargestOffset) return std::nullopt;
  return west ? -total : total;
}

}  // namespace

std::optional<Instant> parseInternetDateTime(std::string_view text) {
  const auto year = takeDigits(text, 4);
  if (!year || !take(text, '-')) return std::nullopt;
  const auto month = takeDigits(text, 2);
  if (!month || !take(text, '-')) return std::nullopt;
  const auto day = takeDigits(text, 2);
  if (!day || !take(text, 'T')) return std::nullopt;
  const auto hour = takeDigits(text, 2);
  if (!hour || !take(text, ':')) return std::nullopt;
  const auto minute = takeDigits(text, 2);
  if (!minute || !take(text, ':')) return std::nullopt;
  const auto second = takeDigits(text, 2);
  if (!second) return std::nullopt;
  const auto offset = readOffset(text);
  if (!offset) return std::nullopt;

  const std::chrono::year_month_day date{std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (*year == 0 || !date.ok() || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
  const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  const std::int64_t minutes = days * kMinutesOfDay + *hour * 60 + *minute - *offset;
  return Instant{minutes * 60 + std::min(*second, 59)};
}

std::string formatInternetDateTime(Instant instant) {
  const std::chrono::sys_seconds time{std::chrono::seconds(instant.seconds)};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z",
                     static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()),
                     static_cast<unsigned>(date.day()),
                     clock.hours().count(),
                     clock.minutes().count(),
                     clock.seconds().count());
}

}  // namespace foundation
