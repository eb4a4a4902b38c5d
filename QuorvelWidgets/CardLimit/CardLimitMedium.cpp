#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/CardLimit/CardStack.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kPileWidth = 152;
constexpr double kPileMargin = 14;

/// What stands below the amount, from the fullest column to the barest.
enum class Details { all, percentage, none };

View column(const CardLimitContent& content, Details details) {
  const double used = content.totalUsed();
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(true),
      Amount{.value = content.snapshot.totalRemaining, .snapshot = content.snapshot, .size = 24}
          .padding({.top = 8}),
      when(!content.snapshot.isHidden && details != Details::none,
           [&] {
             return content.usedText(used, 11.5)
                 .foregroundStyle(content.usageColor(used))
                 .privacySensitive(PrivacyTreatment::covered)
                 .padding({.top = 7});
           }),
      when(details == Details::all,
           [&] {
             return content
                 .caption(cardCountText(static_cast<std::int64_t>(content.cardCount),
                                        content.snapshot.lang),
                          11.5)
                 .foregroundStyle(content.colors.caption());
           }),
  };
}

View totals(const CardLimitContent& content) {
  constexpr double kGap = 8;
  // The pile lies beyond the trailing margin, which the proposal leaves out.
  const Length beside =
      kWidth + content.environment.contentMargins().trailing - kPileWidth - kPileMargin - kGap;
  return Fitting{column(content, Details::all),
                 column(content, Details::percentage),
                 column(content, Details::none)}
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
