#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"

#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"

namespace quorvel {

using namespace viewkit;

View Amount::body() const {
  return Text{amountText(value, snapshot, compact)}
      .font(size, weight)
      .tracking(size * -0.02)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .language(snapshot.lang)
      .direction(LayoutDirection::leftToRight)
      .numericTransition()
      .privacySensitive(PrivacyTreatment::masked)
      .accessibilityLabel(amountAccessibilityLabel(value, snapshot));
}

}  // namespace quorvel
