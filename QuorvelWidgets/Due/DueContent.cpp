#include "QuorvelWidgets/Due/DueContent.hpp"

#include <utility>

#include "Foundation/DayString.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

Text DueContent::name(const WidgetSnapshot::Due& due, double size) const {
  return Text{due.name}.font(size, FontWeight::semibold).lineLimit(1).language(snapshot.lang);
}

View DueContent::subtitle(const WidgetSnapshot::Due& due) const {
  if (!due.subtitle) return {};
  return Text{isolatedName(*due.subtitle)}
      .font(11)
      .lineLimit(1)
      .language(snapshot.lang)
      .accessibilityLabel(spokenSubtitle(*due.subtitle, snapshot.lang))
      .opacity(kSubtitleOpacity);
}

std::string DueContent::amountText(const WidgetSnapshot::Due& due) const {
  return quorvel::amountText(due.amount, snapshot, AmountForm::full);
}

View DueContent::amount(const WidgetSnapshot::Due& due, double size) const {
  return amountFigure(amountText(due), size, FontWeight::bold)
      .privacySensitive(PrivacyTreatment::masked)
      .accessibilityLabel(amountAccessibilityLabel(due.amount, snapshot));
}

View DueContent::relativePill(const UpcomingDue& next, double size) const {
  const Color ground = environment.widgetRenderingMode == RenderingMode::fullColor
                           ? Color::black().withOpacity(0.28)
                           : Color::primary().withOpacity(0.14);
  // What is near stands out among what is not.
  constexpr double kLaterOpacity = 0.8;
  return caption(shortRelativeLabel(next.days, snapshot.lang), size)
      .font(size, FontWeight::semibold)
      .accessibilityLabel(spokenRelativeLabel(next.days, snapshot.lang))
      .opacity(next.days <= 1 ? 1 : kLaterOpacity)
      .padding(Insets::horizontal(size * 0.65))
      .frame(FixedFrame{.height = size + 7})
      .background(RoundedRectangle(kHeight * 0.5, CornerStyle::continuous).fill(ground));
}

View DueContent::dueDate(const WidgetSnapshot::Due& due, double size) const {
  const auto day = foundation::parseDayString(due.dueDate);
  const auto instant = day ? calendar.date(day->year, day->month, day->day) : std::nullopt;
  if (!instant) return {};
  const std::string words = text("due") + " ";
  return caption(words + dueDateText(*instant, snapshot.lang, environment.timeZone), size)
      .accessibilityLabel(words + spokenDueDateText(*instant, snapshot.lang, environment.timeZone));
}

std::string inlineText(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  return relativeLabel(next.days, content.lang()) + " · " + isolatedName(next.due->name) + " · " +
         isolatedAmount(content.amountText(*next.due));
}

std::string bareInlineText(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  return relativeLabel(next.days, content.lang()) + " · " +
         isolatedAmount(content.amountText(*next.due));
}

}  // namespace quorvel
