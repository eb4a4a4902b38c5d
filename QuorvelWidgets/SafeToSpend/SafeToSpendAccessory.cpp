#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

std::string unit(const SafeToSpendContent& content) {
  return content.isLastDay() ? content.text("left") : perDayLabel(content);
}

View circular(const SafeToSpendContent& content) {
  return VStack{
      {.spacing = 0},
      Amount{.value = content.mainAmount(), .snapshot = content.snapshot, .size = 17},
      content
          .caption(content.text(content.isLastDay() ? TextKey{"left"} : TextKey{"perDay"}), 10, 0.7)
          .foregroundStyle(accessoryCaption(content.environment)),
  }
      .accessibility(
          {.label = content.spokenMainAmount(), .children = Accessibility::Children::ignore})
      .padding(Insets::horizontal(10));
}

View rectangular(const SafeToSpendContent& content) {
  const Color secondary = accessoryCaption(content.environment);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 1},
      accessoryLabel(
          content.title.symbol, content.text(content.title.text), content.lang(), secondary),
      amountWithUnit(
          content,
          unit(content),
          {.size = 21, .unitSize = 11, .unitColor = secondary, .weight = FontWeight::bold}),
      dayCaption(content, 11).foregroundStyle(secondary),
  }
      .frame(filling(Alignment::leading))
      .padding({.top = 6, .leading = 10, .bottom = 6, .trailing = 10});
}

View inlineRow(const SafeToSpendContent& content) {
  return HStack{
      {.spacing = 5},
      Symbol{std::string{content.title.symbol}}
          .font(13, FontWeight::semibold)
          .accessibilityHidden(),
      amountWithUnit(
          content, unit(content), {.size = 13, .unitSize = 13, .weight = FontWeight::bold}),
  };
}

View layout(const SafeToSpendContent& content) {
  switch (content.environment.familyInForce()) {
    case WidgetFamily::accessoryCircular:
      return circular(content);
    case WidgetFamily::accessoryInline:
      return inlineRow(content);
    default:
      return rectangular(content);
  }
}

}  // namespace

View safeToSpendAccessory(const SafeToSpendContent& content) {
  return layout(content).foregroundStyle(Color::primary());
}

}  // namespace quorvel
