#include <utility>

#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

View calendarSymbol(double size) {
  return Symbol{"calendar"}.font(size, FontWeight::semibold).accessibilityHidden();
}

// What a person would say of the next payment in one breath.
Accessibility spoken(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  const std::string& lang = content.lang();
  return {.label = spokenList({spokenRelativeLabel(next.days, lang),
                               next.due->name,
                               amountAccessibilityLabel(next.due->amount, content.snapshot)},
                              lang),
          .children = Accessibility::Children::ignore};
}

// A long name leaves rather than the amount behind it.
View inlineLine(const DueContent& content) {
  const auto line = [&](std::string words) {
    return HStack{
        {.spacing = 5},
        calendarSymbol(13),
        Text{std::move(words)}
            .font(13, FontWeight::medium)
            .lineLimit(1)
            .minimumScaleFactor(0.8)
            .language(content.lang())
            .privacySensitive(PrivacyTreatment::masked),
    };
  };
  return fittingWidth(line(inlineText(content)), line(bareInlineText(content)))
      .accessibility(spoken(content));
}

View circular(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  return VStack{
      {.spacing = 1},
      calendarSymbol(16),
      content.caption(relativeLabel(next.days, content.lang()), 11).minimumScaleFactor(0.6),
  }
      .padding(Insets::horizontal(6))
      .accessibility(spoken(content));
}

View rectangular(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  const Color secondary = accessoryCaption(content.environment);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 1},
      accessoryLabel(
          "calendar", relativeLabel(next.days, content.lang()), content.lang(), secondary),
      content.amount(*next.due, 21),
      content.name(*next.due, 11).font(11).foregroundStyle(secondary),
  }
      .padding({.top = 6, .leading = 10, .bottom = 6, .trailing = 10})
      .frame(filling(Alignment::leading))
      .accessibility(spoken(content));
}

}  // namespace

View dueAccessory(const DueContent& content) {
  switch (content.environment.familyInForce()) {
    case WidgetFamily::accessoryInline:
      return inlineLine(content);
    case WidgetFamily::accessoryCircular:
      return circular(content);
    default:
      return rectangular(content);
  }
}

}  // namespace quorvel
