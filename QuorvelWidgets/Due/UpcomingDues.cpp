#include "QuorvelWidgets/Due/UpcomingDues.hpp"

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {
namespace {

/// Surely past, without asking the calendar: a long document may be full of these. Days that
/// a month may not have are left to the calendar, which carries them over.
bool isOfEarlierMonth(std::string_view dueDate, const foundation::DateComponents& today) {
  constexpr std::int64_t kEveryMonthHas = 28;
  const auto day = foundation::parseDayString(dueDate);
  if (!day || day->month < 1 || day->month > 12 || day->day > kEveryMonthHas) return false;
  return day->year < today.year || (day->year == today.year && day->month < today.month);
}

}  // namespace

std::vector<UpcomingDue> upcomingDues(const std::vector<WidgetSnapshot::Due>& dues,
                                      foundation::Instant now,
                                      const foundation::Calendar& calendar,
                                      std::size_t most) {
  std::vector<UpcomingDue> upcoming;
  const auto today = calendar.components(now);
  for (const WidgetSnapshot::Due& due : dues) {
    if (upcoming.size() == most) break;
    if (isOfEarlierMonth(due.dueDate, today)) continue;
    const auto days = foundation::daysBetween(due.dueDate, now, calendar);
    if (days && *days >= 0) upcoming.push_back({&due, *days});
  }
  return upcoming;
}

std::string relativeLabel(std::int64_t days, std::string_view lang) {
  if (days <= 0) return WidgetStrings::text("today", lang);
  if (days == 1) return WidgetStrings::text("tomorrow", lang);
  return WidgetStrings::text("inDays", lang, days);
}

std::string spokenRelativeLabel(std::int64_t days, std::string_view lang) {
  return days <= 1 ? relativeLabel(days, lang) : spokenInDays(days, lang);
}

std::string shortRelativeLabel(std::int64_t days, std::string_view lang) {
  if (days <= 1) return relativeLabel(days, lang);
  return WidgetStrings::text("shortDays", lang, days) + " " + WidgetStrings::text("left", lang);
}

}  // namespace quorvel
