#include "QuorvelWidgets/CardLimit/CardLimitContent.hpp"
#include "QuorvelWidgets/CardLimit/CardStack.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

View totals(const CardLimitContent& content) {
  const double used = content.totalUsed();
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(true),
      Amount{.value = content.snapshot.totalRemaining, .snapshot = content.snapshot, .size = 24}
          .padding({.top = 8}),
      when(!content.snapshot.isHidden,
           [&] {
             return content.usedText(used, 11.5)
                 .foregroundStyle(content.usageColor(used))
                 .privacySensitive(PrivacyTreatment::covered)
                 .padding({.top = 7});
           }),
      content
          .caption(
              cardCountText(static_cast<std::int64_t>(content.cardCount), content.snapshot.lang),
              11.5)
          .foregroundStyle(palette::textSecondary),
  }
      .frame(FixedFrame{.width = 140, .alignment = Alignment::leading});
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
                .width = 152,
                .height = 96,
                .step = 34,
                .pillSize = 10.5,
                .corner = 10,
                .renderingMode = content.environment.widgetRenderingMode}
          .padding({.top = 14, .bottom = 14, .trailing = 14})
          .frame(pile),
  };
}

}  // namespace quorvel
