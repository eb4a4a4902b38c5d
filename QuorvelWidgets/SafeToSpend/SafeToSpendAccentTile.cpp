#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"

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
    return WidgetPrivacyNote{.lang = content.lang(), .color = ink.withOpacity(kSecondaryOpacity)}
        .padding({.top = 2});
  }
  std::optional<std::string> unit;
  if (!content.isLastDay()) unit = perDayLabel(content);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 4},
      amountWithUnit(content, unit, {.size = 24, .unitSize = 12}).padding({.top = 2}),
      dayLine(content, ink),
  };
}

/// The meter over what it measures.
View foot(const SafeToSpendContent& content, Color ink, const View& footer) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      WidgetMeter{.fraction = content.visibleFraction(),
                  .color = ink,
                  .track = ink.withOpacity(kTrackOpacity),
                  .height = 5}
          .padding({.top = 1}),
      footer.padding({.top = 6}),
  };
}

/// A footer of one height keeps the meter in its place in every state.
View low(const View& footer) {
  return footer.frame(FixedFrame{.height = 14.5, .alignment = Alignment::leading});
}

View foot(const SafeToSpendContent& content, Color ink) {
  if (content.isHidden()) return foot(content, ink, low(dayLine(content, ink)));
  const bool exceeded = isExceeded(content.budget);
  if (content.isLastDay() && !exceeded) {
    // The amount and the last day say it.
    return foot(content,
                ink,
                low(content.caption(content.text("leftForToday"), 12, 0.85).accessibilityHidden()));
  }
  const View line = remainder(content, RemainderWords::beside);
  const View bare = remainder(content, RemainderWords::leftOut);
  if (!exceeded) return foot(content, ink, low(fittingWidth(line, bare)));
  // An amount without its words would not say what is wrong: they take a second line first.
  return foot(
             content, ink, Fitting{low(line), remainder(content, RemainderWords::below), low(bare)})
      .layoutPriority(1);
}

}  // namespace

View safeToSpendAccentTile(const SafeToSpendContent& content) {
  const Color ink = content.showsBackground ? content.accent.glyph : content.colors.text();
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      safeToSpendHeader(content, ink, ink),
      headline(content, ink),
      Spacer{0},
      foot(content, ink),
  }
      .frame(filling(Alignment::topLeading))
      .foregroundStyle(ink);
}

}  // namespace quorvel
