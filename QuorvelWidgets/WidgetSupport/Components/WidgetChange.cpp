#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"

#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

/// Of an arrow's font size: with this one its ink is as high as the capitals of the text.
constexpr double kArrowSize = 0.8;
/// Of the arrow's font size: how wide the ink of a bold arrow is.
constexpr double kSlantedInk = 0.909;
constexpr double kLevelInk = 1.053;
/// Half the capitals' height in em. A symbol's middle stands that far above the base line.
constexpr double kMiddle = 0.364;

}  // namespace

View changeFigure(const ChangeDescription& change, double size) {
  const double arrow = size * kArrowSize;
  const double ink = arrow * (change.trend == Trend::none ? kLevelInk : kSlantedInk);
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 5},
      Symbol{change.symbol}
          .font(arrow, FontWeight::bold)
          .frame(FixedFrame{.width = ink})
          .offset(0, kMiddle * (arrow - size)),
      Text{change.text}
          .font(size, FontWeight::semibold)
          .lineLimit(1)
          .minimumScaleFactor(0.8)
          .direction(LayoutDirection::leftToRight),
  };
}

View WidgetChange::body() const {
  const auto change = describeChange(value, precision, favorableWhenPositive);
  if (!change) return {};
  return changeFigure(*change, size)
      .foregroundStyle(colors.mark(change->color))
      .privacySensitive(PrivacyTreatment::covered)
      .accessibility(
          {.label = spokenChange(*change, lang), .children = Accessibility::Children::ignore});
}

}  // namespace quorvel
