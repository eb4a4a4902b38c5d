#include "QuorvelWidgets/WidgetSupport/Texts/ChangeText.hpp"

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {
namespace {

std::string_view arrowText(Trend trend, std::string_view lang) {
  const bool isMirrored = layoutDirection(lang) == viewkit::LayoutDirection::rightToLeft;
  switch (trend) {
    case Trend::rise:
      return isMirrored ? "↖" : "↗";
    case Trend::fall:
      return isMirrored ? "↙" : "↘";
    case Trend::none:
      break;
  }
  return isMirrored ? "←" : "→";
}

}  // namespace

std::string amountWithChange(std::string_view amount,
                             const std::optional<ChangeDescription>& change,
                             std::string_view lang) {
  std::string text = isolatedAmount(amount);
  if (!change) return text;
  text += ' ';
  text += arrowText(change->trend, lang);
  return text + ' ' + isolatedAmount(change->text);
}

}  // namespace quorvel
