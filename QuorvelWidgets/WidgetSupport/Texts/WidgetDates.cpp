#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <unordered_map>

#include "Foundation/Ascii.hpp"
#include "Foundation/DateFormatter.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace quorvel {
namespace {

using foundation::DateFormatter;

constexpr std::array<std::string_view, kLanguageCount> kDueDatePatterns{"MMM d",
                                                                        "d MMM",
                                                                        "d MMM",
                                                                        "d 'de' MMM",
                                                                        "d MMM",
                                                                        "d. MMM",
                                                                        "d MMM",
                                                                        "M月d日",
                                                                        "MMM d일",
                                                                        "M月d日",
                                                                        "M月d日",
                                                                        "d MMM",
                                                                        "d MMM"};

constexpr std::array<std::string_view, kLanguageCount> kSpokenDueDatePatterns{"MMMM d",
                                                                              "d MMMM",
                                                                              "d 'de' MMMM",
                                                                              "d 'de' MMMM",
                                                                              "d MMMM",
                                                                              "d. MMMM",
                                                                              "d MMMM",
                                                                              "M月d日",
                                                                              "MMMM d일",
                                                                              "M月d日",
                                                                              "M月d日",
                                                                              "d MMMM",
                                                                              "d MMMM"};

/// How a language writes the first of a month, where it says "first" for it.
struct FirstDayPatterns {
  std::string_view shown;
  std::string_view spoken;
};

std::optional<FirstDayPatterns> firstDayPatterns(Language language) {
  switch (language) {
    case Language::fr:
      return FirstDayPatterns{"d'er' MMM", "d'er' MMMM"};
    case Language::ptBR:
      return FirstDayPatterns{"d'º de' MMM", "d'º de' MMMM"};
    default:
      return std::nullopt;
  }
}

/// More than any device asks for; a host that replays many zones starts over.
constexpr std::size_t kKeptFormatters = 64;

/// A formatter serves one thread at a time, so each thread keeps its own.
const DateFormatter& keptFormatter(const foundation::Locale& locale,
                                   const foundation::TimeZone& zone,
                                   std::string_view pattern) {
  thread_local std::unordered_map<std::string, DateFormatter> kept;
  const std::string key = fmt::format("{}\n{}\n{}", locale.identifier, zone.identifier, pattern);
  if (const auto found = kept.find(key); found != kept.end()) return found->second;
  if (kept.size() >= kKeptFormatters) kept.clear();
  return kept.try_emplace(key, locale, zone, pattern).first->second;
}

/// 1...12; nothing for what is not four digits, "-" and a month's two digits.
std::optional<int> monthNumber(std::string_view month) {
  const auto fits = [](char c, char form) {
    return form == 'd' ? foundation::isAsciiDigit(c) : c == form;
  };
  if (!std::ranges::equal(month, std::string_view("dddd-dd"), fits)) return std::nullopt;
  const int number = (month[5] - '0') * 10 + (month[6] - '0');
  return number >= 1 && number <= 12 ? std::optional(number) : std::nullopt;
}

std::optional<std::string> monthName(std::string_view month,
                                     std::optional<std::string_view> lang,
                                     std::string_view pattern) {
  const auto number = monthNumber(month);
  if (!number) return std::nullopt;
  // Names of months are the same in every year.
  const auto date =
      foundation::parseInternetDateTime(fmt::format("2001-{:02}-15T00:00:00Z", *number));
  return dateText(date.value_or(foundation::Instant{}), lang, pattern, foundation::TimeZone{"UTC"});
}

}  // namespace

std::string dateText(foundation::Instant date,
                     std::optional<std::string_view> lang,
                     std::string_view pattern,
                     const foundation::TimeZone& zone) {
  return keptFormatter(localeFor(lang), zone, pattern).string(date);
}

std::string dueDateText(foundation::Instant date,
                        std::optional<std::string_view> lang,
                        const foundation::TimeZone& zone) {
  const Language language = languageForCode(lang);
  const auto first = firstDayPatterns(language);
  const std::string_view usual = kDueDatePatterns[static_cast<std::size_t>(language)];
  const bool isFirst = first && dateText(date, lang, "d", zone) == "1";
  return dateText(date, lang, isFirst ? first->shown : usual, zone);
}

std::string spokenDueDateText(foundation::Instant date,
                              std::optional<std::string_view> lang,
                              const foundation::TimeZone& zone) {
  const Language language = languageForCode(lang);
  const auto first = firstDayPatterns(language);
  const std::string_view usual = kSpokenDueDatePatterns[static_cast<std::size_t>(language)];
  const bool isFirst = first && dateText(date, lang, "d", zone) == "1";
  return dateText(date, lang, isFirst ? first->spoken : usual, zone);
}

std::optional<std::string> abbreviatedMonth(std::string_view month,
                                            std::optional<std::string_view> lang) {
  return monthName(month, lang, "MMM");
}

std::optional<std::string> standaloneMonth(std::string_view month,
                                           std::optional<std::string_view> lang) {
  return monthName(month, lang, "LLL");
}

std::optional<std::string> fullMonth(std::string_view month, std::optional<std::string_view> lang) {
  return monthName(month, lang, "MMMM");
}

}  // namespace quorvel
