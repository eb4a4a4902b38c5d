#include "QuorvelWidgets/SafeToSpend/SafeToSpendContent.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr auto kIgnored = Accessibility::Children::ignore;

}  // namespace

View SafeToSpendContent::percentage(double size, double leastScale) const {
  return Text{std::to_string(wholePercent(metrics.spentFraction)) + "%"}
      .font(size, kFigureWeight)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .direction(LayoutDirection::leftToRight)
      .numericTransition()
      .privacySensitive(PrivacyTreatment::covered);
}

std::string SafeToSpendContent::spokenPercentage() const {
  return spokenUsed(std::to_string(wholePercent(metrics.spentFraction)) + "%", snapshot.lang);
}

std::string SafeToSpendContent::spokenMainAmount() const {
  std::string amount = amountAccessibilityLabel(mainAmount(), snapshot);
  if (isHidden()) return amount;
  return isLastDay() ? spokenLeft(amount, snapshot.lang) : spokenPerDay(amount, snapshot.lang);
}

std::string summaryText(const SafeToSpendContent& content) {
  const auto written = [&](double amount) {
    return isolatedAmount(amountText(amount, content.snapshot));
  };
  if (isExceeded(content.budget)) {
    return written(content.budget.spent - content.budget.total) + " " + content.text("overBudget");
  }
  if (content.isLastDay()) return written(content.mainAmount()) + " " + content.text("left");
  const std::string unit = perDayUnit(content.lang());
  const bool isAttached = unit.starts_with("/") && !unit.starts_with("/ ");
  return written(content.mainAmount()) + (isAttached ? "" : " ") + unit;
}

View gaugeLock(const SafeToSpendContent& content, double size) {
  return Symbol{"lock.fill"}
      .font(size)
      .foregroundStyle(content.colors.caption())
      .accessibilityHidden();
}

std::string dayPhrase(std::int64_t daysLeft, std::string_view lang) {
  if (daysLeft == 0) return WidgetStrings::text("lastDay", lang);
  const std::string days = daysLeft < 1 ? WidgetStrings::text("today", lang)
                                        : WidgetStrings::text("shortDays", lang, daysLeft);
  return days + " " + WidgetStrings::text("left", lang);
}

std::string spokenDayPhrase(const SafeToSpendContent& content) {
  const std::int64_t days = content.metrics.daysLeft;
  const std::string& lang = content.lang();
  return days < 1 ? dayPhrase(days, lang) : spokenDaysLeft(days, lang);
}

View dayCaption(const SafeToSpendContent& content, double size) {
  return content.caption(dayPhrase(content.metrics.daysLeft, content.lang()), size)
      .accessibilityLabel(spokenDayPhrase(content));
}

View safeToSpendHeader(const SafeToSpendContent& content, Color symbol, Color title, int lines) {
  constexpr double kHeight = 14.5;
  const View row = HStack{
      {.alignment = lines > 1 ? VerticalAlignment::firstTextBaseline : VerticalAlignment::center,
       .spacing = 4},
      Symbol{std::string{content.title.symbol}}
          .font(12, FontWeight::medium)
          .foregroundStyle(symbol)
          .accessibilityHidden(),
      content.caption(content.text("safeToSpend"), 11.5, 0.85)
          .font(11.5, FontWeight::medium)
          .lineLimit(lines)
          .foregroundStyle(title),
  };
  return (lines > 1 ? row.frame(FlexibleFrame{.minHeight = kHeight})
                    : row.frame(FixedFrame{.height = kHeight}))
      .opacity(0.92);
}

View amountWithUnit(const SafeToSpendContent& content,
                    const std::optional<std::string>& unit,
                    const AmountStyle& style) {
  const Amount amount{.value = content.mainAmount(),
                      .snapshot = content.snapshot,
                      .size = style.size,
                      .weight = style.weight};
  const Accessibility spoken{.label = content.spokenMainAmount(), .children = kIgnored};
  if (!unit) return amount.accessibility(spoken);
  const Text words = content.caption(*unit, style.unitSize, 0.85);
  const View row =
      HStack{
          {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
          amount,
          style.unitColor ? words.foregroundStyle(*style.unitColor) : words.view(),
      }
          .sharedScale();
  return fittingWidth(row, amount).accessibility(spoken);
}

std::string perDayLabel(const SafeToSpendContent& content) {
  std::string unit = perDayUnit(content.lang());
  unit.erase(0, unit.find_first_not_of(' '));
  return unit;
}

namespace {

std::string spokenRemainder(const SafeToSpendContent& content, double amount, bool exceeded) {
  std::string words = amountAccessibilityLabel(amount, content.snapshot);
  if (content.isHidden()) return words;
  return exceeded ? spokenOverBudget(words, content.lang()) : spokenLeft(words, content.lang());
}

}  // namespace

namespace {

/// Round mark and amount; the mark is centred on the line, on its baseline it would hang below.
View markedAmount(const SafeToSpendContent& content, View amount) {
  if (!isExceeded(content.budget)) return amount;
  return HStack{
      {.alignment = VerticalAlignment::top, .spacing = 4},
      Symbol{"exclamationmark.circle.fill"}
          .font(11)
          .frame(FixedFrame{.height = 14.5})
          .accessibilityHidden(),
      std::move(amount),
  };
}

}  // namespace

View remainder(const SafeToSpendContent& content, RemainderWords place) {
  constexpr double kSize = 12;
  constexpr double kLeastScale = 0.85;
  constexpr double kLeastAlone = 0.55;
  const bool exceeded = isExceeded(content.budget);
  const Amount amount{
      .value = exceeded ? content.budget.spent - content.budget.total : content.metrics.remaining,
      .snapshot = content.snapshot,
      .size = kSize,
      .weight = FontWeight::regular,
      .leastScale = place == RemainderWords::beside ? kLeastScale : kLeastAlone};
  const Text words = content.caption(
      content.text(exceeded ? TextKey{"overBudget"} : TextKey{"left"}), kSize, kLeastScale);
  const auto form = [&]() -> View {
    switch (place) {
      case RemainderWords::beside:
        return markedAmount(
            content,
            HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3}, amount, words}
                .sharedScale());
      case RemainderWords::below:
        return VStack{{.alignment = HorizontalAlignment::leading, .spacing = 1},
                      markedAmount(content, amount),
                      words};
      case RemainderWords::leftOut:
        break;
    }
    return markedAmount(content, amount);
  };
  return form().accessibility({.label = spokenRemainder(content, amount.value, exceeded),
                               .children = Accessibility::Children::ignore});
}

}  // namespace quorvel
