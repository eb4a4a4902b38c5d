#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/CardLimit/CardStack.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kPileWidth = 152;
constexpr double kPileMargin = 14;

/// What stands below the amount; the count goes first.
View details(const CardLimitContent& content) {
  const double used = content.totalUsed();
  View count = whereItFits(
      content
          .caption(cardCountText(static_cast<std::int64_t>(content.snapshot.cards.size()),
                                 content.lang()),
                   11.5)
          .foregroundStyle(content.colors.caption()));
  if (content.isHidden()) return count;
  return whereItFits(VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.usedText(used, 11.5)
          .foregroundStyle(content.usageColor(used))
          .privacySensitive(PrivacyTreatment::covered)
          .padding({.top = 7}),
      count,
  });
}

View totals(const CardLimitContent& content) {
  constexpr double kGap = 8;
  // The pile lies beyond the trailing margin, which the proposal leaves out.
  const Length beside =
      kWidth + content.environment.contentMargins().trailing - kPileWidth - kPileMargin - kGap;
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(HeaderSize::compact),
      Amount{.value = content.snapshot.totalRemaining, .snapshot = content.snapshot, .size = 24}
          .padding({.top = 8}),
      details(content),
  }
      .frame(FixedFrame{.width = max(min(beside, 140), 0), .alignment = Alignment::leading});
}

}  // namespace

View cardLimitMedium(const CardLimitContent& content) {
  const FlexibleFrame column{
      .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading};
  const FlexibleFrame pile{
      .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topTrailing};
  return ZStack{
      {},
      totals(content).padding(content.environment.contentMargins()).frame(column),
      CardStack{.cards = content.cards,
                .snapshot = content.snapshot,
                .width = kPileWidth,
                .height = 96,
                .step = 34,
                .pillSize = 10.5,
                .corner = 10,
                .renderingMode = content.environment.widgetRenderingMode}
          .padding({.top = kPileMargin, .bottom = kPileMargin, .trailing = kPileMargin})
          .frame(pile),
  };
}

}  // namespace quorvel
