#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"

#include <utility>

#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

double CardLimitContent::totalUsed() const {
  return usedFraction(snapshot.totalLimit, snapshot.totalRemaining);
}

Color CardLimitContent::usageColor(double fraction) const {
  switch (usageOf(fraction)) {
    case Usage::heavy:
      return colors.mark(palette::statusCritical);
    case Usage::considerable:
      return accent.ink;
    case Usage::healthy:
      break;
  }
  return colors.mark(palette::statusGood);
}

View CardLimitContent::usedText(double fraction, double size) const {
  const std::string percentage = percentText(fraction);
  return caption(isolatedAmount(percentage) + " " + text("used"), size)
      .accessibilityLabel(spokenUsed(percentage, snapshot.lang));
}

}  // namespace quorvel
