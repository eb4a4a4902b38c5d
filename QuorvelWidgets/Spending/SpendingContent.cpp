#include "QuorvelWidgets/Spending/SpendingContent.hpp"

#include <utility>

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kComparisonSize = 11.5;

}  // namespace

DailyBars SpendingContent::bars() const {
  return {.daily = spending.daily,
          .today = today.day,
          .heat = accent.heat,
          .renderingMode = environment.widgetRenderingMode};
}

Color SpendingContent::categoryColor() const {
  return colors.mark(spending.topCategoryColor ? shadeColor(*spending.topCategoryColor)
                                               : palette::textSecondary);
}

View SpendingContent::comparison(View words) const {
  if (isHidden()) return silentPrivacyNote();
  const auto change = shownChange(spending);
  if (!change) return {};
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
      changeFigure(*change, kComparisonSize)
          .privacySensitive(PrivacyTreatment::covered)
          .layoutPriority(1),
      std::move(words),
  }
      .foregroundStyle(colors.caption())
      .accessibility({.label = spokenChangeFromLastMonth(*change, snapshot.lang),
                      .children = Accessibility::Children::ignore});
}

View SpendingContent::comparisonLine() const {
  return comparison(caption(text("vsLastMonth"), kComparisonSize));
}

View SpendingContent::comparisonFigure() const {
  return comparison(View{});
}

Accessibility SpendingContent::spokenCategory() const {
  return {.label = spokenList({text("topCategory"),
                               spending.topCategory.value_or(""),
                               amountAccessibilityLabel(spending.topCategoryAmount, snapshot)},
                              snapshot.lang),
          .children = Accessibility::Children::ignore};
}

Text SpendingContent::categoryName(double size) const {
  return caption(spending.topCategory.value_or(""), size).font(size, FontWeight::medium);
}

}  // namespace quorvel
