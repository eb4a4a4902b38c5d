#include "QuorvelWidgets/SafeToSpend/SafeToSpendContent.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr auto kCombined = Accessibility::Children::combine;

}  // namespace

std::string SafeToSpendContent::text(std::string_view key) const {
  return WidgetStrings::text(key, snapshot.lang);
}

Text SafeToSpendContent::caption(std::string text, double size, double leastScale) const {
  return Text{std::move(text)}
      .font(size)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .language(snapshot.lang);
}

Text SafeToSpendContent::percentage(double size) const {
  return Text{std::to_string(wholePercent(metrics.spentFraction)) + "%"}
      .font(size, FontWeight::bold)
      .lineLimit(1)
      .minimumScaleFactor(0.8)
      .direction(LayoutDirection::leftToRight)
      .numericTransition();
}

std::string SafeToSpendContent::spokenPercentage() const {
  return std::to_string(wholePercent(metrics.spentFraction)) + "% " + text("used");
}

std::string dayPhrase(std::int64_t daysLeft, std::string_view lang) {
  if (daysLeft == 0) return WidgetStrings::text("lastDay", lang);
  const std::string days = daysLeft < 1 ? WidgetStrings::text("today", lang)
                                        : WidgetStrings::text("shortDays", lang, daysLeft);
  return days + " " + WidgetStrings::text("left", lang);
}

namespace {

/// "11 days left" for "11d left"; a single day has no word of its own in the plural's text.
std::string spokenDayPhrase(std::int64_t daysLeft, std::string_view lang) {
  if (daysLeft < 2) return dayPhrase(daysLeft, lang);
  return std::to_string(daysLeft) + " " + WidgetStrings::text("daysLeftMonth", lang);
}

}  // namespace

View dayCaption(const SafeToSpendContent& content, double size) {
  const std::int64_t days = content.metrics.daysLeft;
  return content.caption(dayPhrase(days, content.snapshot.lang), size, 0.8)
      .accessibilityLabel(spokenDayPhrase(days, content.snapshot.lang));
}

View safeToSpendHeader(const SafeToSpendContent& content, Color symbol, Color title) {
  return HStack{
      {.spacing = 4},
      Symbol{std::string{kSafeToSpendSymbol}}
          .font(12, FontWeight::medium)
          .foregroundStyle(symbol)
          .accessibilityHidden(),
      content.caption(content.text("safeToSpend"), 11.5, 0.85)
          .font(11.5, FontWeight::medium)
          .foregroundStyle(title),
  }
      .frame(FixedFrame{.height = 14.5})
      .opacity(0.92);
}

View amountWithUnit(const SafeToSpendContent& content,
                    double size,
                    const std::optional<std::string>& unit,
                    double unitSize,
                    std::optional<Color> unitColor) {
  View amount = Amount{.value = content.mainAmount(), .snapshot = content.snapshot, .size = size};
  if (!unit) return amount;
  const Text caption = content.caption(*unit, unitSize, 0.85);
  const bool isPerDay = *unit == perDayLabel(content);
  return HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
      amount,
      (unitColor ? caption.foregroundStyle(*unitColor) : caption.view())
          .accessibilityLabel(isPerDay ? content.text("perDay") : *unit),
  }
      .accessibility({.children = kCombined});
}

std::string perDayLabel(const SafeToSpendContent& content) {
  std::string unit = perDayUnit(content.snapshot.lang);
  unit.erase(0, unit.find_first_not_of(' '));
  return unit;
}

View remainderLine(const SafeToSpendContent& content, int lines) {
  const bool exceeded = isExceeded(content.budget);
  const double amount =
      exceeded ? content.budget.spent - content.budget.total : content.metrics.remaining;
  View words =
      HStack{
          {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3},
          Amount{.value = amount,
                 .snapshot = content.snapshot,
                 .size = 12,
                 .weight = FontWeight::regular},
          content.caption(content.text(exceeded ? "overBudget" : "left"), 12, 0.85)
              .lineLimit(lines),
      }
          .accessibility({.children = kCombined});
  if (!exceeded) return words;
  // Centred on the first line: on its baseline the round mark would hang below the words.
  return HStack{
      {.alignment = VerticalAlignment::top, .spacing = 4},
      Symbol{"exclamationmark.circle.fill"}
          .font(11)
          .frame(FixedFrame{.height = 14.5})
          .accessibilityHidden(),
      words,
  };
}

}  // namespace quorvel
