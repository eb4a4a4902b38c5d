#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kTileWidth = 124;
constexpr double kTileGap = 8;

View categoryTile(const SpendingContent& content) {
  const Color color = content.categoryColor();
  const View title = HStack{
      {.spacing = 6},
      WidgetIconTile{.symbol = "tag.fill",
                     .color = color,
                     .background = content.colors.ground(color.withOpacity(0.16)),
                     .size = 18},
      content.caption(content.text("topCategory"), 11).foregroundStyle(content.colors.caption()),
  };
  const View figures = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 2},
      mayBeCut(content.categoryName(13)),
      Amount{.value = content.spending.topCategoryAmount,
             .snapshot = content.snapshot,
             .size = 13,
             .weight = FontWeight::semibold},
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      title,
      Spacer{5},
      figures,
  }
      .padding(8)
      .frame(FixedFrame{.width = kTileWidth, .height = kHeight, .alignment = Alignment::leading})
      .background(RoundedRectangle(14, CornerStyle::continuous)
                      .fill(content.colors.ground(palette::surface)))
      .accessibility(content.spokenCategory());
}

constexpr double kGap = 5;

// The tile is laid over the figures' row because it is as high as they are, not the other way
// round; a row without a comparison is as high as the tile needs.
View withCategory(const SpendingContent& content, const View& figures) {
  constexpr double kLeastHeight = 75;
  return figures
      .frame(FlexibleFrame{
          .maxWidth = kInfinity, .minHeight = kLeastHeight, .alignment = Alignment::topLeading})
      .padding({.trailing = kTileWidth + kTileGap})
      .overlay(categoryTile(content), Alignment::topTrailing);
}

/// Where there is too little room, the category goes first, then the comparison.
View figures(const SpendingContent& content) {
  const View header = content.header(HeaderSize::regular);
  const View amount = Amount{.value = content.spending.spent,
                             .snapshot = content.snapshot,
                             .size = 24,
                             .weight = FontWeight::semibold}
                          .padding({.top = kGap});
  const View comparison = content.comparisonLine().padding({.top = kGap});
  const VStack::Options leading{.alignment = HorizontalAlignment::leading, .spacing = 0};
  View alone = VStack{leading, header, amount, whereItFits(comparison)}.frame(
      FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::topLeading});
  if (!content.spending.topCategory) return alone;
  return Fitting{withCategory(content, VStack{leading, header, amount, comparison}), alone};
}

/// The labels stay as long as the bars are no lower than they are.
View chart(const SpendingContent& content) {
  return VStack{
      {.spacing = 0},
      content.bars().frame(FlexibleFrame{.minHeight = DailyBarLabels::kRowHeight}),
      whereItFits(DailyBarLabels{.count = content.spending.daily.size(), .colors = content.colors}),
  };
}

}  // namespace

View spendingMedium(const SpendingContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 8},
      figures(content).layoutPriority(1),
      chart(content).padding({.top = 6}),
  };
}

}  // namespace quorvel
