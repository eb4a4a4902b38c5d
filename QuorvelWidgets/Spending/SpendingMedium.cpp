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
      WidgetIconTile{.symbol = "tag.fill",
                     .color = color,
                     .background = content.colors.ground(color.withOpacity(0.16)),
                     .size = 18},
      content.caption(content.text("topCategory"), 11, 0.8)
          .foregroundStyle(content.colors.caption()),
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
                      .fill(content.colors.ground(palette::surface)))
      .accessibility(content.spokenCategory());
}

/// What the row of figures shows, from the fullest to the barest.
enum class Figures { all, withoutCategory, amountAlone };

// The tile is laid over the figures' row because it is as high as they are, not the other way
// round; a row without a comparison is as high as the tile needs.
View figuresRow(const SpendingContent& content, Figures figures) {
  constexpr double kRowHeight = 75;
  const bool hasCategory = figures == Figures::all && content.spending.topCategory.has_value();
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 5},
      content.header(false),
      Amount{.value = content.spending.spent,
             .snapshot = content.snapshot,
             .size = 24,
             .weight = FontWeight::semibold},
      when(figures != Figures::amountAlone, [&] { return content.comparisonLine(); }),
  }
      .frame(FlexibleFrame{.maxWidth = kInfinity,
                           .minHeight = hasCategory ? std::optional{kRowHeight} : std::nullopt,
                           .alignment = Alignment::topLeading})
      .padding({.trailing = hasCategory ? kTileWidth + kTileGap : 0})
      .overlay(hasCategory ? categoryTile(content) : View{}, Alignment::topTrailing);
}

}  // namespace

View spendingMedium(const SpendingContent& content) {
  constexpr double kLeastBars = 16;
  const View bars = content.bars().frame(FlexibleFrame{.minHeight = kLeastBars});
  const View labelled = VStack{
      {.spacing = 0},
      bars,
      DailyBarLabels{.count = content.spending.daily.size(), .colors = content.colors},
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 8},
      Fitting{figuresRow(content, Figures::all),
              figuresRow(content, Figures::withoutCategory),
              figuresRow(content, Figures::amountAlone)}
          .layoutPriority(1),
      Fitting{labelled, bars}.padding({.top = 6}),
  };
}

}  // namespace quorvel
