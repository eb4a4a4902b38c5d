#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"

#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetPrivacyNote::body() const {
  const std::string words = WidgetStrings::text("hidden", lang);
  const View lock = Symbol{"lock.fill"}.font(10.5).accessibilityHidden();
  const View row = HStack{
      {.spacing = 4},
      lock,
      Text{words}.font(11.5).lineLimit(1).minimumScaleFactor(0.85).language(lang.value_or("en")),
  };
  return fittingWidth(row, lock)
      .accessibility({.label = words, .children = Accessibility::Children::ignore})
      .foregroundStyle(color)
      .privacySensitive(PrivacyTreatment::masked);
}

}  // namespace quorvel
