#include "Foundation/Locale.hpp"
#include "QuorvelWidgets/Spending/MonthHeatmap.hpp"
#include "QuorvelWidgets/Spending/SpendingContent.hpp"
#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr auto kCombined = Accessibility::Children::combine;

View hero(const SpendingContent& content) {
  const View amount =
      Amount{.value = content.spending.spent, .snapshot = content.snapshot, .size = 32};
  if (content.isHidden()) {
    return HStack{
        {.spacing = 8},
        amount,
        content.silentPrivacyNote(),
    };
  }
  const auto percent = changeAgainstLastMonth(content.spending);
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 8},
      amount,
      when(percent.has_value(),
           [&] {
             return WidgetChange{.value = *percent,
                                 .precision = 1,
                                 .favorableWhenPositive = false,
                                 .size = 12,
                                 .lang = content.lang(),
                                 .colors = content.colors}
                 .layoutPriority(1);
           }),
  };
}

View statistic(const SpendingContent& content, TextKey key, double amount, double leastScale) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 2},
      content.caption(content.text(key), 11).foregroundStyle(content.colors.caption()),
      Amount{.value = amount,
             .snapshot = content.snapshot,
             .size = 13.5,
             .weight = FontWeight::semibold,
             .leastScale = leastScale},
  }
      .padding(10)
      .frame(FlexibleFrame{.maxWidth = kInfinity, .alignment = Alignment::leading})
      .background(RoundedRectangle(12, CornerStyle::continuous)
                      .fill(content.colors.ground(palette::surface)))
      .accessibility({.children = kCombined});
}

View statistics(const SpendingContent& content) {
  const SpendingStatistics figures = spendingStatistics(content.spending, content.today.day);
  const auto row = [&](bool hasAverage, double leastScale) {
    return HStack{
        {.spacing = 8},
        statistic(content, "today", figures.today, leastScale),
        when(hasAverage,
             [&] { return statistic(content, "average", figures.average, leastScale); }),
        statistic(content, "lastMonth", figures.lastMonth, leastScale),
    }
        .sharedScale();
  };
  // All tiles take the smallest scale: the average leaves before that is too small to read.
  constexpr bool kHasAverage = true;
  constexpr double kReadable = 0.75;
  constexpr double kLeast = 0.55;
  return fittingWidth(row(kHasAverage, kReadable), row(!kHasAverage, kLeast));
}

View categoryBlock(const SpendingContent& content) {
  const Color color = content.categoryColor();
  const auto amount = [&](double size) {
    return Amount{.value = content.spending.topCategoryAmount,
                  .snapshot = content.snapshot,
                  .size = size,
                  .weight = FontWeight::semibold};
  };
  const Text name = content.categoryName(13);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      WidgetIconTile{.symbol = content.spending.topCategoryIcon.value_or("tag.fill"),
                     .color = color,
                     .background = content.colors.ground(color.withOpacity(0.16)),
                     .size = 28,
                     .fallback = "tag.fill"},
      Spacer{0},
      content.caption(content.text("topCategory"), 11)
          .lineLimit(2)
          .foregroundStyle(content.colors.caption()),
      Fitting{amount(28), amount(20)},
      Fitting{name, name.lineLimit(2), name},
  }
      .padding(10)
      .frame(filling(Alignment::leading))
      .background(RoundedRectangle(14, CornerStyle::continuous)
                      .fill(content.colors.ground(palette::surface)))
      .accessibility(content.spokenCategory());
}

View monthRow(const SpendingContent& content) {
  const MonthHeatmap map{.daily = content.spending.daily,
                         .today = content.today.day,
                         .daysInMonth = content.daysInMonth,
                         .weekdayOfFirst = content.weekdayOfFirst,
                         .firstWeekday = foundation::firstWeekday(content.environment.locale),
                         .weekdayNames = foundation::narrowWeekdayNames(localeFor(content.lang())),
                         .lang = content.lang(),
                         .heat = content.accent.heat,
                         .renderingMode = content.environment.widgetRenderingMode};
  const bool hasCategory = content.spending.topCategory.has_value();
  return HStack{
      {.spacing = 12},
      map,
      when(hasCategory, [&] { return categoryBlock(content); }),
  }
      .frame(FlexibleFrame{.maxWidth = kInfinity, .maxHeight = map.height()})
      .layoutPriority(1);
}

}  // namespace

View spendingLarge(const SpendingContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.header(HeaderSize::regular),
      Spacer{0},
      hero(content).padding({.top = 10}),
      Spacer{0},
      statistics(content).padding({.top = 14}),
      Spacer{0},
      monthRow(content).padding({.top = 18}),
  };
}

}  // namespace quorvel
