#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetPrivacyNote.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kSecondaryOpacity = 0.88;
constexpr double kTrackOpacity = 0.26;

View dayLine(const SafeToSpendContent& content, Color ink) {
  return dayCaption(content, 11).foregroundStyle(ink.withOpacity(kSecondaryOpacity));
}

View headline(const SafeToSpendContent& content, Color ink) {
  if (content.isHidden()) {
    return WidgetPrivacyNote{.lang = content.snapshot.lang,
                             .color = ink.withOpacity(kSecondaryOpacity)}
        .padding({.top = 2});
  }
  std::optional<std::string> unit;
  if (!content.isLastDay()) unit = perDayLabel(content);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 4},
      amountWithUnit(content, 24, unit, 12).padding({.top = 2}),
      dayLine(content, ink),
  };
}

View footer(const SafeToSpendContent& content, Color ink) {
  if (content.isHidden()) return dayLine(content, ink);
  if (content.isLastDay() && !isExceeded(content.budget)) {
    // The amount and the last day say it.
    return content.caption(content.text("leftForToday"), 12, 0.85).accessibilityHidden();
  }
  return remainderLine(content);
}

}  // namespace

View safeToSpendAccentTile(const SafeToSpendContent& content) {
  const Color ink = content.showsBackground ? content.accent.glyph : palette::textPrimary;
  // A footer of one height keeps the meter in its place in every state.
  const View foot = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      WidgetMeter{.fraction = content.visibleFraction(),
                  .color = ink,
                  .track = ink.withOpacity(kTrackOpacity),
                  .height = 5}
          .padding({.top = 1}),
      footer(content, ink)
          .frame(FixedFrame{.height = 14.5, .alignment = Alignment::leading})
          .padding({.top = 6}),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      safeToSpendHeader(content, ink, ink),
      headline(content, ink),
      Spacer{0},
      foot,
  }
      .frame(FlexibleFrame{
          .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading})
      .foregroundStyle(ink);
}

}  // namespace quorvel
