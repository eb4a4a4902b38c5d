#include "QuorvelWidgets/WidgetSupport/WidgetChange.hpp"

#include "QuorvelWidgets/WidgetSupport/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMoneyStyle.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetChange::body() const {
  const auto change = describeChange(value, precision, favorableWhenPositive);
  if (!change) return {};
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 5},
      Symbol{change->symbol}.font(size, FontWeight::semibold),
      Text{change->text}
          .font(size, FontWeight::semibold)
          .lineLimit(1)
          .direction(LayoutDirection::leftToRight)
          .accessibilityLabel(spokenChange(*change, lang)),
  }
      .foregroundStyle(change->color)
      .privacySensitive(PrivacyTreatment::covered);
}

}  // namespace quorvel
