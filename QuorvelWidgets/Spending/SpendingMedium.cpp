#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetScaffold.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kTileWidth = 124;
constexpr double kTileGap = 8;

View categoryTile(const SpendingContent& content) {
  const Color color = content.categoryColor();
  const View title = HStack{
      {.spacing = 6},
      WidgetIconTile{
          .symbol = "tag.fill", .color = color, .background = color.withOpacity(0.16), .size = 18},
      content.caption(content.text("topCategory"), 11, 0.8).foregroundStyle(palette::textSecondary),
  };
  const View figures = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 2},
      content.categoryName(13),
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
                      .fill(groundColor(palette::surface, content.environment)))
      .accessibility(content.spokenCategory());
}

// The tile is laid over the figures' row because it is as high as they are, not the other way
// round.
View figuresRow(const SpendingContent& content) {
  const bool hasCategory = content.spending.topCategory.has_value();
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 5},
      content.header(false),
      Amount{.value = content.spending.spent,
             .snapshot = content.snapshot,
             .size = 24,
             .weight = FontWeight::semibold},
      content.comparisonLine(),
  }
      .frame(FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::leading})
      .padding({.trailing = hasCategory ? kTileWidth + kTileGap : 0})
      .overlay(hasCategory ? categoryTile(content) : View{}, Alignment::topTrailing);
}

}  // namespace

View spendingMedium(const SpendingContent& content) {
  const DailyBars bars = content.bars();
  const View chart = VStack{
      {.spacing = 0},
      bars,
      DailyBarLabels{.count = bars.daily.size()},
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 8},
      figuresRow(content),
      chart.padding({.top = 6}),
  };
}

}  // namespace quorvel
