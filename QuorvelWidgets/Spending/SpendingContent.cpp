#include "QuorvelWidgets/Spending/SpendingContent.hpp"

#include <utility>

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetHeader.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kComparisonSize = 11.5;

}  // namespace

std::string SpendingContent::text(TextKey key) const {
  return WidgetStrings::text(key, snapshot.lang);
}

Text SpendingContent::caption(std::string words, double size, double leastScale) const {
  return Text{std::move(words)}
      .font(size)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .language(snapshot.lang);
}

View SpendingContent::header(bool compact) const {
  return WidgetHeader{.symbol = std::string{kSpendingSymbol},
                      .text = text("spentThisMonth"),
                      .compact = compact,
                      .accent = accent,
                      .lang = snapshot.lang,
                      .colors = colors};
}

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
  if (snapshot.isHidden) {
    return WidgetPrivacyNote{.lang = snapshot.lang, .color = colors.caption()}
        .accessibilityHidden();  // the amount above says it
  }
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
  return comparison(caption(text("vsLastMonth"), kComparisonSize, 0.8));
}

View SpendingContent::comparisonFigure() const {
  return comparison(View{});
}

Accessibility SpendingContent::spokenCategory() const {
  return {.label = text("topCategory") + ", " + spending.topCategory.value_or("") + ", " +
                   amountAccessibilityLabel(spending.topCategoryAmount, snapshot),
          .children = Accessibility::Children::ignore};
}

Text SpendingContent::categoryName(double size) const {
  return caption(spending.topCategory.value_or(""), size, 0.8).font(size, FontWeight::medium);
}

}  // namespace quorvel
