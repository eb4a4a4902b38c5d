#include "QuorvelWidgets/CardLimit/CardFace.hpp"
#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kNumberOpacity = 0.8;
constexpr double kFace = 52;
/// On narrow screens the face gives way, down to what its two texts take.
constexpr double kLeastFace = 40;

// Art that carries its own printing gets no text over it.
std::string shownNumber(const WidgetSnapshot::Card& card) {
  return card.hasImage ? std::string{} : card.last4.value_or(std::string{});
}

View face(const CardLimitContent& content, const WidgetSnapshot::Card& card) {
  const auto mode = content.environment.widgetRenderingMode;
  const std::string number = shownNumber(card);
  std::optional<double> weakestText;
  if (!card.hasImage) weakestText = number.empty() ? 1 : kNumberOpacity;
  constexpr double kCorner = 9;
  const double textFoot = number.empty() ? 0.45 : 1;
  View tile = cardFace(card, kCorner, Alignment::center, weakestText, textFoot, mode)
                  .overlay(paleEdge(card, kCorner, weakestText, mode))
                  .frame(FlexibleFrame{.minHeight = kLeastFace, .maxHeight = kFace});
  if (!card.hasImage) {
    const View title = cardTitleText(card, 10.5, content.lang(), mode);
    tile = tile.overlay(onFace(title, card, *weakestText, {2, 6, 1.5, 6}, mode)
                            .padding({.top = 8, .leading = 10, .trailing = 10}),
                        Alignment::topLeading);
  }
  if (weakestText && !number.empty()) {
    const View digits = Text{"•• " + number}
                            .font(9.5, FontWeight::semibold)
                            .tracking(1)
                            .lineLimit(1)
                            .direction(LayoutDirection::leftToRight)
                            .accessibilityLabel(spokenEndingIn(number, content.lang()))
                            .foregroundStyle(faceTextColor(mode).withOpacity(kNumberOpacity));
    tile = tile.overlay(onFace(digits, card, *weakestText, {1, 6, 1.5, 6}, mode)
                            .padding({.leading = 10, .bottom = 7}),
                        Alignment::bottomLeading);
  }
  // What the art shows is said all the same.
  if (card.hasImage) return tile.accessibilityLabel(cardTitle(card));
  return tile.accessibility({.children = Accessibility::Children::combine});
}

View usageRow(const CardLimitContent& content, double fraction) {
  return HStack{
      {.spacing = 7},
      WidgetMeter{.fraction = fraction,
                  .color = content.usageColor(fraction),
                  .track = content.colors.track(),
                  .height = 5}
          .accessibilityHidden(),
      content.usedText(fraction, 11)
          .foregroundStyle(content.colors.caption())
          .privacySensitive(PrivacyTreatment::covered)
          .layoutPriority(1),
  };
}

}  // namespace

View cardLimitSmall(const CardLimitContent& content) {
  const WidgetSnapshot::Card& card = *content.cards.front();
  const double fraction = usedFraction(card.limit, card.remaining);
  // The amount above it says that it is hidden.
  const View footer =
      content.isHidden() ? content.silentPrivacyNote() : usageRow(content, fraction);
  const View remaining =
      VStack{
          {.alignment = HorizontalAlignment::leading, .spacing = 0},
          content.caption(content.text("remaining"), 11.5)
              .foregroundStyle(content.colors.caption()),
          Amount{.value = card.remaining, .snapshot = content.snapshot, .size = 21}.padding(
              {.top = 1}),
      }
          .accessibility({.children = Accessibility::Children::combine});
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      face(content, card),
      remaining.padding({.top = 9}),
      Spacer{4},
      footer,
  };
}

}  // namespace quorvel
