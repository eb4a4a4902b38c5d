#include "QuorvelWidgets/Due/UpcomingDues.hpp"

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

std::vector<UpcomingDue> upcomingDues(const std::vector<WidgetSnapshot::Due>& dues,
                                      foundation::Instant now,
                                      const foundation::Calendar& calendar,
                                      std::size_t most) {
  std::vector<UpcomingDue> upcoming;
  for (const WidgetSnapshot::Due& due : dues) {
    if (upcoming.size() == most) break;
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
