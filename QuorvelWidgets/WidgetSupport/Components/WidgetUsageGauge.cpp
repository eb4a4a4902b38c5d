#include "QuorvelWidgets/WidgetSupport/Components/WidgetUsageGauge.hpp"

#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetUsageGauge::body() const {
  const bool hidden = snapshot.isHidden;
  const double share = hidden ? 0 : clampedFraction(fraction);
  const View middle = VStack{
      {.spacing = 1},
      Symbol{symbol}.font(11, FontWeight::semibold),
      when(!hidden,
           [&] {
             return Text{percentText(share)}
                 .font(14, FontWeight::bold)
                 .lineLimit(1)
                 .minimumScaleFactor(0.7)
                 .direction(LayoutDirection::leftToRight);
           }),
  };
  const std::string label = hidden ? WidgetStrings::text("hidden", snapshot.lang)
                                   : spokenUsed(percentText(share), snapshot.lang);
  return Gauge{{.fraction = share}, middle}
      .privacySensitive(PrivacyTreatment::masked)
      .accessibility({.label = label, .children = Accessibility::Children::ignore});
}

}  // namespace quorvel
