// Day strings are read as the platform reads whole numbers: strictly, and in 64 bits.
#include "Foundation/DayString.hpp"

#include <fmt/format.h>

#include <array>
#include <charconv>

namespace foundation {
namespace {

std::optional<std::int64_t> parseInteger(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('-')) return std::nullopt;  // a hyphen separates, so this is "+-"
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::optional<DayString> parseDayString(std::string_view text) {
  std::array<std::int64_t, 3> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool isLast = i + 1 == parts.size();
    const std::size_t hyphen = text.find('-');
    if ((hyphen == std::string_view::npos) != isLast) return std::nullopt;
    const auto part = parseInteger(text.substr(0, hyphen));
    if (!part) return std::nullopt;
    parts[i] = *part;
    if (!isLast) text.remove_prefix(hyphen + 1);
  }
  return DayString{parts[0], parts[1], parts[2]};
}

std::optional<std::int64_t> daysBetween(std::string_view day,
                                        Instant reference,
                                        const Calendar& calendar) {
  const auto parsed = parseDayString(day);
  if (!parsed) return std::nullopt;
  const auto date = calendar.date(parsed->year, parsed->month, parsed->day);
  if (!date) return std::nullopt;
  return calendar.dayDifference(calendar.startOfDay(reference), *date);
}

std::string monthString(Instant instant, const Calendar& calendar) {
  const DateComponents local = calendar.components(instant);
  return fmt::format("{:04}-{:02}", local.year, local.month);
}

}  // namespace foundation
