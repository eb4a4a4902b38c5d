#include <utility>

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

/// What stands on the tile's ground, without how it gets its height.
struct Category {
  View title;
  Text name;
  View amount;
  Accessibility spoken;
};

Category category(const SpendingContent& content) {
  const Color color = content.categoryColor();
  return {HStack{
              {.spacing = 6},
              WidgetIconTile{.symbol = "tag.fill",
                             .color = color,
                             .background = content.colors.ground(color.withOpacity(0.16)),
                             .size = 18},
              content.caption(content.text("topCategory"), 11)
                  .foregroundStyle(content.colors.caption()),
          },
          content.categoryName(13),
          Amount{.value = content.spending.topCategoryAmount,
                 .snapshot = content.snapshot,
                 .size = 13,
                 .weight = FontWeight::semibold}
              .padding({.top = 2}),
          content.spokenCategory()};
}

View column(const Category& category, View name) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      category.title,
      Spacer{3},
      std::move(name),
      category.amount,
  }
      .padding(8)
      .accessibility(category.spoken);
}

/// The category's name is on one line, else on two in a tile that is as much higher as there is
/// room for; what is missing makes the name smaller, and at last cuts it.
View categoryTile(const SpendingContent& content) {
  constexpr double kHeight = 75;
  constexpr double kHeightOfTwoLines = 84;
  const Category top = category(content);
  return Fitting{
      column(top, top.name)
          .frame(
              FixedFrame{.width = kTileWidth, .height = kHeight, .alignment = Alignment::leading}),
      column(top, mayBeCut(top.name.lineLimit(2)))
          .frame(FlexibleFrame{.minHeight = kHeight, .maxHeight = kHeightOfTwoLines})
          .frame(FixedFrame{.width = kTileWidth, .alignment = Alignment::leading}),
  };
}

constexpr double kGap = 5;

// The tile's ground is laid behind the row because it is as high as the row, which a title of two
// lines makes higher than what stands on the ground.
View withCategory(const SpendingContent& content, const View& figures) {
  const View ground = RoundedRectangle(14, CornerStyle::continuous)
                          .fill(content.colors.ground(palette::surface))
                          .frame(FixedFrame{.width = kTileWidth});
  return HStack{
      {.alignment = VerticalAlignment::top, .spacing = kTileGap},
      figures.frame(FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::topLeading}),
      categoryTile(content).layoutPriority(1),  // of its own width, so it need not be asked twice
  }
      .background(ground, Alignment::trailing);
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
