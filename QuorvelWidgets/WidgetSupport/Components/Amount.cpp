#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"

namespace quorvel {

using namespace viewkit;

Text amountFigure(std::string text, double size, FontWeight weight, double leastScale) {
  constexpr double kTracking = -0.02;  // of the font size
  return Text{std::move(text)}
      .font(size, weight)
      .tracking(size * kTracking)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .direction(LayoutDirection::leftToRight)
      .numericTransition();
}

View Amount::body() const {
  const AmountForm form = compact ? AmountForm::compact : AmountForm::fitting;
  return amountFigure(amountText(value, snapshot, form), size, weight, leastScale)
      .language(snapshot.lang)
      .privacySensitive(PrivacyTreatment::masked)
      .accessibilityLabel(amountAccessibilityLabel(value, snapshot));
}

}  // namespace quorvel
