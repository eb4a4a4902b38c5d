#include "Import/PostingDate.hpp"

#include <array>
#include <charconv>

namespace importer {
namespace {

constexpr std::string_view kTag = "date:";
constexpr std::string_view kSpaces = " \t\n";

/// "2026-11-06", "11/6": two or three numbers between one kind of separator, alone or before what
/// cannot go on a date.
std::optional<Day> dateAt(std::string_view text, Day transaction) {
  std::array<int, 3> parts{};
  std::size_t count = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  char separator = 0;
  while (count < parts.size()) {
    const auto [next, error] = std::from_chars(at, end, parts[count]);
    if (error != std::errc{} || parts[count] < 0) return std::nullopt;
    ++count;
    at = next;
    if (at == end || (*at != '-' && *at != '/' && *at != '.')) break;
    if (separator != 0 && *at != separator) return std::nullopt;
    separator = *at++;
  }
  if (count == 3) return dayOf(parts[0], parts[1], parts[2]);
  if (count == 2) return dayOf(monthOf(transaction).number / 12, parts[0], parts[1]);
  return std::nullopt;
}

std::string_view withoutSpaces(std::string_view text) {
  const auto first = text.find_first_not_of(kSpaces);
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

/// A tag's name begins a word.
std::optional<Day> taggedDate(std::string_view comment, Day transaction) {
  for (std::size_t at = comment.find(kTag); at != std::string_view::npos;
       at = comment.find(kTag, at + 1)) {
    if (at > 0 && comment[at - 1] != ',' && !kSpaces.contains(comment[at - 1])) continue;
    const std::string_view value = comment.substr(at + kTag.size());
    if (const auto day = dateAt(withoutSpaces(value.substr(0, value.find('\n'))), transaction))
      return day;
  }
  return std::nullopt;
}

std::optional<Day> bracketedDate(std::string_view comment, Day transaction) {
  for (std::size_t at = comment.find('['); at != std::string_view::npos;
       at = comment.find('[', at + 1)) {
    const std::string_view inside = comment.substr(at + 1);
    const std::size_t end = inside.find_first_not_of("0123456789-/.");
    if (end == std::string_view::npos || (inside[end] != ']' && inside[end] != '=')) continue;
    if (const auto day = dateAt(inside.substr(0, end), transaction)) return day;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Day> postingDate(std::string_view comment, Day transaction) {
  if (comment.empty()) return std::nullopt;
  if (const auto day = taggedDate(comment, transaction)) return day;
  return bracketedDate(comment, transaction);
}

}  // namespace importer
