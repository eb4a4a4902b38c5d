#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/Due/DueTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

namespace {

constexpr double kCardHeight = 66;
constexpr double kCardStep = 46;
constexpr double kCorner = 14;

bool isFullColor(const DueContent& content) {
  return content.environment.widgetRenderingMode == RenderingMode::fullColor;
}

// Without the host's background each card is its payment's face.
bool showsFaces(const DueContent& content) {
  return isFullColor(content) && !content.environment.showsWidgetContainerBackground;
}

View cardGround(const DueContent& content, const WidgetSnapshot::Due& due) {
  const RoundedRectangleShape shape{kCorner, CornerStyle::continuous};
  const Color faint = Color::primary().withOpacity(0.14);
  if (showsFaces(content)) {
    // Under the veil that it needs a pale face is grey, and fades into a light wallpaper below it.
    const auto colors = readableFace(due.face.value_or(std::vector<std::string>{}));
    const double weakestText = due.subtitle ? kSubtitleOpacity : 1;
    return faceGround(colors, weakestText, kCardStep / kCardHeight).clip(shape);
  }
  // A card hides what lies behind it: with the canvas' colour, or by cutting it out where there are
  // no colours.
  if (!isFullColor(content)) return Shape{shape}.fill(faint).background(faceCutout(kCorner));
  return Shape{shape}.fill(palette::canvas).overlay(Shape{shape}.fill(faint));
}

View cardRow(const DueContent& content, const UpcomingDue& upcoming) {
  const WidgetSnapshot::Due& due = *upcoming.due;
  const View names = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      mayBeCut(content.name(due, 13)),
      mayBeCut(content.subtitle(due)),
  };
  // Digits have no descenders: framed to its font size the amount leaves the pill clear of the next
  // card.
  const View figures = VStack{
      {.alignment = HorizontalAlignment::trailing, .spacing = 3},
      content.amount(due, 13.5).frame(FixedFrame{.height = 13.5, .alignment = Alignment::top}),
      content.relativePill(upcoming, 10),
  };
  return HStack{
      {.alignment = VerticalAlignment::top, .spacing = 10},
      DueTile{.due = due,
              .size = 28,
              .renderingMode = content.environment.widgetRenderingMode,
              .onFace = showsFaces(content)},
      names.frame(FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::leading}),
      figures.layoutPriority(1),
  }
      .padding({.top = 9, .leading = 12, .trailing = 12})
      .foregroundStyle(showsFaces(content) ? Color::white() : content.colors.text());
}

View card(const DueContent& content, std::size_t index, bool isInFront) {
  const UpcomingDue& upcoming = content.upcoming[index];
  View ground = cardGround(content, *upcoming.due);
  if (index > 0 && isFullColor(content)) {
    ground = ground.shadow({.color = Color::black().withOpacity(0.3), .radius = 5, .x = 0, .y = -2})
                 .overlay(faceEdge(kCorner), Alignment::top);
  }
  // The card in front shows all of its face, the others what the next one leaves.
  const FixedFrame visible{.height = isInFront ? kCardHeight : kCardStep,
                           .alignment = Alignment::top};
  View row = cardRow(content, upcoming)
                 .frame(FlexibleFrame{.maxWidth = kInfinity})
                 .frame(visible)
                 .accessibility({.children = Accessibility::Children::combine});
  if (upcoming.due->cardId) {
    row = row.link(cardLink(content.urlScheme, *upcoming.due->cardId));
  }
  return row.frame(FixedFrame{.height = kCardHeight, .alignment = Alignment::top})
      .background(ground)
      .offset(0, kCardStep * static_cast<double>(index))
      .zIndex(static_cast<double>(index));
}

/// The first cards as a pile that needs as much height as is visible of each.
View pile(const DueContent& content, std::size_t count) {
  std::vector<View> cards;
  cards.reserve(count);
  for (std::size_t i = 0; i < count; ++i) cards.push_back(card(content, i, i + 1 == count));
  const double height = kCardStep * static_cast<double>(count - 1) + kCardHeight;
  return ZStack{{.alignment = Alignment::top}, ViewList{std::move(cards)}}
      .frame(FixedFrame{.height = min(kHeight, height), .alignment = Alignment::top})
      .clip(RoundedRectangleShape{kCorner, CornerStyle::continuous})
      .frame(FlexibleFrame{.minHeight = kCardStep * static_cast<double>(count)});
}

}  // namespace

View dueMedium(const DueContent& content) {
  const std::size_t count = content.upcoming.size();
  // Where the last card's figures have no room, one card less is shown.
  const View cards = count < 2 ? pile(content, count)
                               : Fitting{pile(content, count), pile(content, count - 1)}.view();
  return cards.frame(filling()).padding(10);
}

}  // namespace quorvel
