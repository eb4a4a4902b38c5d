#include "QuorvelWidgets/WidgetSupport/WidgetPrivacyNote.hpp"

#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetPrivacyNote::body() const {
  return HStack{
      {.spacing = 4},
      Symbol{"lock.fill"}.font(10.5).accessibilityHidden(),
      Text{WidgetStrings::text("hidden", lang)}
          .font(11.5)
          .lineLimit(1)
          .minimumScaleFactor(0.85)
          .language(lang.value_or("en")),
  }
      .foregroundStyle(color)
      .privacySensitive(PrivacyTreatment::masked);
}

}  // namespace quorvel
