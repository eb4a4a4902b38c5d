#include "QuorvelWidgets/CardLimit/CardStack.hpp"

#include <algorithm>

#include "Foundation/Characters.hpp"
#include "QuorvelWidgets/CardLimit/CardFace.hpp"
#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

namespace {

/// What a face's title leaves to the pill at least.
constexpr double kPillRoom = 80;
/// The same for long amounts on faces as wide as the widget.
constexpr double kMostPillRoom = 150;

/// What the titles of a pile leave to its pills: beyond it a long amount shrinks. A face as wide as
/// the widget has room for the longest one.
double pillRoom(const CardStack& stack) {
  if (stack.width) return kPillRoom;
  constexpr double kFigureWidth = 0.64;  // of the font size, about
  std::size_t longest = 0;
  for (const WidgetSnapshot::Card* card : stack.cards) {
    const std::string text = amountText(card->remaining, stack.snapshot);
    longest = std::max(longest, foundation::graphemeCount(text));
  }
  const double width = (static_cast<double>(longest) * kFigureWidth + 1.4) * stack.pillSize + 9;
  return std::clamp(width, kPillRoom, kMostPillRoom);
}

View pill(const CardStack& stack, const WidgetSnapshot::Card& card, double room) {
  const Color ground = stack.renderingMode == RenderingMode::accented
                           ? Color::primary().withOpacity(0.14)
                           : Color::black().withOpacity(kPillOpacity);
  return Amount{.value = card.remaining,
                .snapshot = stack.snapshot,
                .size = stack.pillSize,
                .weight = FontWeight::semibold}
      .foregroundStyle(faceTextColor(stack.renderingMode))
      .padding(Insets::horizontal(stack.pillSize * 0.7))
      .frame(FixedFrame{.height = stack.pillSize + 8.5})
      .background(RoundedRectangle(kHeight * 0.5, CornerStyle::continuous).fill(ground))
      .padding({.top = 6, .trailing = 7})
      .frame(FlexibleFrame{.maxWidth = room - 2, .alignment = Alignment::topTrailing});
}

/// None: as wide as proposed.
std::optional<Length> faceWidth(const CardStack& stack) {
  return stack.width ? std::optional<Length>{*stack.width} : std::nullopt;
}

/// From one face's top to the next: less where the pile's box is too low for the last title.
Length stepOf(const CardStack& stack) {
  if (stack.cards.size() < 2) return 0;
  const double captionRoom = stack.pillSize + 16;
  return min((kHeight - captionRoom) / static_cast<double>(stack.cards.size() - 1), stack.step);
}

/// Where a face's title ends, from its top.
double textFoot(const CardStack& stack) {
  return 10 + 1.3 * stack.pillSize;
}

std::optional<double> textOpacity(const WidgetSnapshot::Card& card) {
  return card.hasImage ? std::nullopt : std::optional{1.0};
}

View edge(const CardStack& stack, const WidgetSnapshot::Card& card) {
  return paleEdge(card, stack.corner, textOpacity(card), stack.renderingMode);
}

/// Around as much of the face in front as the pile's box shows.
View frontEdge(const CardStack& stack) {
  if (stack.cards.empty()) return {};
  const Length top = stepOf(stack) * static_cast<double>(stack.cards.size() - 1);
  const FixedFrame visible{.width = faceWidth(stack), .height = min(kHeight - top, stack.height)};
  return edge(stack, *stack.cards.back())
      .frame(visible)
      .offset(0, top)
      .zIndex(static_cast<double>(stack.cards.size()));
}

View face(const CardStack& stack, std::size_t index, double room) {
  const WidgetSnapshot::Card& card = *stack.cards[index];
  View tile = cardFace(card,
                       stack.corner,
                       Alignment::top,
                       textOpacity(card),
                       textFoot(stack) / stack.height,
                       stack.renderingMode);
  if (index + 1 < stack.cards.size()) tile = tile.overlay(edge(stack, card));
  if (stack.renderingMode == RenderingMode::accented) {
    tile = tile.background(faceCutout(stack.corner));
  } else if (index > 0) {
    // In vibrant mode faces are opaque greys: an edge parts them, a gap would glare.
    if (stack.renderingMode == RenderingMode::fullColor) {
      tile = tile.shadow({.color = Color::black().withOpacity(0.28), .radius = 4, .x = 0, .y = -1});
    }
    tile = tile.overlay(faceEdge(stack.corner), Alignment::top);
  }
  if (card.hasImage) {
    tile = tile.accessibilityLabel(cardTitle(card));
  } else {
    const View title =
        cardTitleText(card, stack.pillSize, stack.snapshot.lang, stack.renderingMode);
    tile = tile.overlay(onFace(title, card, 1, {3, 6, 3, 6}, stack.renderingMode)
                            .padding({.top = 9, .leading = 10, .trailing = room}),
                        Alignment::topLeading);
  }
  return tile.frame(FixedFrame{.width = faceWidth(stack), .height = stack.height})
      .overlay(pill(stack, card, room), Alignment::topTrailing)
      .accessibility({.children = Accessibility::Children::combine})
      .offset(0, stepOf(stack) * static_cast<double>(index))
      .zIndex(static_cast<double>(index));
}

}  // namespace

double CardStack::pileHeight() const {
  return cards.empty() ? height : step * static_cast<double>(cards.size() - 1) + height;
}

View CardStack::body() const {
  const double room = pillRoom(*this);
  ViewList faces;
  for (std::size_t i = 0; i < cards.size(); ++i) faces.views.push_back(face(*this, i, room));
  faces.views.push_back(frontEdge(*this));
  const FixedFrame box{
      .width = faceWidth(*this), .height = min(kHeight, pileHeight()), .alignment = Alignment::top};
  return ZStack{{.alignment = Alignment::top}, std::move(faces)}.sharedScale().frame(box).clip(
      RoundedRectangleShape{corner, CornerStyle::continuous});
}

}  // namespace quorvel
