#include "Import/Day.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "Foundation/CivilDate.hpp"

namespace importer {
namespace {

/// All of the text as a number without a sign.
std::optional<int> number(std::string_view text) {
  int value = 0;
  const auto [at, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || at != text.end() || value < 0) return std::nullopt;
  return value;
}

foundation::CivilDate civil(Day day) {
  return foundation::civilFromDays(day.number);
}

int yearOf(Month month) {
  return month.number / 12;
}

int numberInYear(Month month) {
  return month.number % 12 + 1;
}

Day unchecked(int year, int month, int day) {
  return {static_cast<std::int32_t>(foundation::daysFromCivil(year, month, day))};
}

}  // namespace

std::optional<Day> dayOf(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1) return std::nullopt;
  if (day > daysIn({year * 12 + month - 1})) return std::nullopt;
  return unchecked(year, month, day);
}

Month monthOf(Day day) {
  const auto date = civil(day);
  return {static_cast<std::int32_t>(date.year * 12 + date.month - 1)};
}

int dayOfMonth(Day day) {
  return civil(day).day;
}

int daysIn(Month month) {
  const Month next = month + 1;
  return unchecked(yearOf(next), numberInYear(next), 1).number -
         unchecked(yearOf(month), numberInYear(month), 1).number;
}

Day dayIn(Month month, int day) {
  return unchecked(yearOf(month), numberInYear(month), std::min(day, daysIn(month)));
}

std::string text(Day day) {
  const auto date = civil(day);
  return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
}

std::string text(Month month) {
  return fmt::format("{:04}-{:02}", yearOf(month), numberInYear(month));
}

std::optional<Day> parseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = number(text.substr(0, 4));
  const auto month = number(text.substr(5, 2));
  const auto day = number(text.substr(8));
  if (!year || !month || !day) return std::nullopt;
  return dayOf(*year, *month, *day);
}

std::optional<Month> parseMonth(std::string_view text) {
  if (text.size() < 7 || text[4] != '-' || (text.size() > 7 && text[7] != '-')) return std::nullopt;
  const auto year = number(text.substr(0, 4));
  const auto month = number(text.substr(5, 2));
  if (!year || !month || *month < 1 || *month > 12) return std::nullopt;
  return Month{*year * 12 + *month - 1};
}

}  // namespace importer
