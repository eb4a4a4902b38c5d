#include "QuorvelWidgets/CardLimit/CardStack.hpp"

#include <algorithm>

#include "QuorvelWidgets/CardLimit/CardFace.hpp"
#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/FaceStyle.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

namespace {

/// What a face's title leaves to the pill: a long amount shrinks before it reaches the title.
constexpr double kPillRoom = 80;

View pill(const CardStack& stack, const WidgetSnapshot::Card& card) {
  const Color ground = stack.renderingMode == RenderingMode::accented
                           ? Color::primary().withOpacity(0.14)
                           : Color::black().withOpacity(0.55);
  return Amount{.value = card.remaining,
                .snapshot = stack.snapshot,
                .size = stack.pillSize,
                .weight = FontWeight::semibold}
      .foregroundStyle(faceTextColor(stack.renderingMode))
      .padding(Insets::horizontal(stack.pillSize * 0.7))
      .frame(FixedFrame{.height = stack.pillSize + 8.5})
      .background(RoundedRectangle(kHeight * 0.5, CornerStyle::continuous).fill(ground))
      .padding({.top = 6, .trailing = 7})
      .frame(FlexibleFrame{.maxWidth = kPillRoom - 2, .alignment = Alignment::topTrailing});
}

View face(const CardStack& stack, std::size_t index) {
  const WidgetSnapshot::Card& card = *stack.cards[index];
  View tile = cardFace(card,
                       stack.corner,
                       Alignment::top,
                       card.hasImage ? std::nullopt : std::optional{1.0},
                       stack.renderingMode);
  if (index > 0 && stack.renderingMode == RenderingMode::fullColor) {
    tile = tile.shadow({.color = Color::black().withOpacity(0.28), .radius = 4, .x = 0, .y = -1});
  }
  if (stack.renderingMode == RenderingMode::accented) {
    tile = tile.background(accentedCutout(stack.corner));
  }
  if (card.hasImage) {
    tile = tile.accessibilityLabel(cardTitle(card));
  } else {
    tile =
        tile.overlay(cardTitleText(card, stack.pillSize, stack.snapshot.lang, stack.renderingMode)
                         .padding({.top = 9, .leading = 10, .trailing = kPillRoom}),
                     Alignment::topLeading);
  }
  const FixedFrame frame{.width = stack.width ? std::optional<Length>{*stack.width} : std::nullopt,
                         .height = stack.height};
  return tile.frame(frame)
      .overlay(pill(stack, card), Alignment::topTrailing)
      .accessibility({.children = Accessibility::Children::combine})
      .offset(0, stack.step * static_cast<double>(index))
      .zIndex(static_cast<double>(index));
}

}  // namespace

double CardStack::pileHeight() const {
  return cards.empty() ? height : step * static_cast<double>(cards.size() - 1) + height;
}

View CardStack::body() const {
  ViewList faces;
  for (std::size_t i = 0; i < cards.size(); ++i) faces.views.push_back(face(*this, i));
  const FixedFrame box{.width = width ? std::optional<Length>{*width} : std::nullopt,
                       .height = min(kHeight, pileHeight()),
                       .alignment = Alignment::top};
  return ZStack{{.alignment = Alignment::top}, std::move(faces)}.frame(box).clip(
      RoundedRectangleShape{corner, CornerStyle::continuous});
}

}  // namespace quorvel
