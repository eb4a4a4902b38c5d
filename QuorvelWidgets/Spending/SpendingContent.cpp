#include "QuorvelWidgets/Spending/SpendingContent.hpp"

#include <utility>

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetHeader.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMoneyStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetPrivacyNote.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

std::string SpendingContent::text(std::string_view key) const {
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
                      .lang = snapshot.lang};
}

DailyBars SpendingContent::bars() const {
  return {.daily = spending.daily,
          .today = today.day,
          .heat = accent.heat,
          .renderingMode = environment.widgetRenderingMode};
}

Color SpendingContent::categoryColor() const {
  return spending.topCategoryColor ? shadeColor(*spending.topCategoryColor)
                                   : palette::textSecondary;
}

View SpendingContent::comparisonLine() const {
  if (snapshot.isHidden) {
    return WidgetPrivacyNote{.lang = snapshot.lang, .color = palette::textSecondary}
        .accessibilityHidden();  // the amount above says it
  }
  const auto change = shownChange(spending);
  if (!change) return {};
  constexpr double kSize = 11.5;
  const View figure = HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 5},
      Symbol{change->symbol}.font(kSize - 2, FontWeight::bold),
      Text{change->text}
          .font(kSize, FontWeight::semibold)
          .lineLimit(1)
          .minimumScaleFactor(0.8)
          .direction(LayoutDirection::leftToRight)
          .privacySensitive(PrivacyTreatment::covered),
  };
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
      figure.layoutPriority(1),
      caption(text("vsLastMonth"), kSize, 0.8),
  }
      .foregroundStyle(palette::textSecondary)
      .accessibility({.label = spokenChangeFromLastMonth(*change, snapshot.lang),
                      .children = Accessibility::Children::ignore});
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
