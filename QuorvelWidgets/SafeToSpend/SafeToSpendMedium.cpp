#include <utility>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

/// The room that a part of the row takes for itself: all of its height, and of its width up to a
/// bound.
FlexibleFrame part(double maxWidth) {
  return {.maxWidth = maxWidth, .maxHeight = kInfinity, .alignment = Alignment::topLeading};
}

View pacePart(const SafeToSpendContent& content) {
  // What the arc leaves open at the height of the words, less a small margin.
  constexpr double kBesideWords = 14;
  const View verdict = content.caption(content.text(content.pace.key), 11.5)
                           .font(11.5, FontWeight::semibold)
                           .foregroundStyle(content.paceColor())
                           .padding(Insets::horizontal(kBesideWords));
  const View middle = VStack{
      {.spacing = 2},
      when(content.isHidden(), [&] { return gaugeLock(content, 13); }),
      verdict,
  };
  const View gauge = SpentGauge{.spentFraction = content.visibleFraction(),
                                .color = content.paceColor(),
                                .track = content.colors.track()}
                         .frame(FixedFrame{.height = 54})
                         .overlay(middle.padding({.bottom = 2}), Alignment::bottom);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      // A long title may reach into the gap to the next part.
      safeToSpendHeader(content, content.accent.ink, content.colors.text(), 2)
          .padding({.trailing = -3}),
      Spacer{0},
      gauge,
  };
}

View spentFigure(const SafeToSpendContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.caption(content.text("spent"), 10, 0.85).foregroundStyle(content.colors.caption()),
      HStack{
          {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3},
          content.percentage(19),
          content.caption(content.text("used"), 11.5, 0.85)
              .foregroundStyle(content.colors.caption()),
      },
  }
      .accessibility(
          {.label = content.spokenPercentage(), .children = Accessibility::Children::ignore});
}

View remainderFigure(const SafeToSpendContent& content) {
  const View figure =
      VStack{
          {.alignment = HorizontalAlignment::leading, .spacing = 3},
          content.caption(content.text("leftToSpend"), 12, 0.85)
              .foregroundStyle(content.colors.caption()),
          Amount{.value = content.metrics.remaining,
                 .snapshot = content.snapshot,
                 .size = 22,
                 .weight = kFigureWeight},
      }
          .accessibility({.children = Accessibility::Children::combine});
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 3},
      figure,
      when(isExceeded(content.budget),
           [&] {
             return fittingWidth(remainder(content, RemainderWords::beside),
                                 remainder(content, RemainderWords::below))
                 .foregroundStyle(content.colors.mark(palette::statusCritical));
           }),
  };
}

/// What stands below the remainder; the day phrase goes first.
View details(const SafeToSpendContent& content, View phrase) {
  View days =
      whereItFits(std::move(phrase).foregroundStyle(content.colors.caption()).padding({.top = 3}));
  if (content.isHidden()) return days;
  return whereItFits(VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      spentFigure(content),
      days,
  });
}

View tileGround(const SafeToSpendContent& content) {
  if (!content.showsBackground) return AccessoryBackdrop{.showsBackground = false};
  return RoundedRectangle(14).fill(content.colors.ground(palette::surface));
}

/// Silent while amounts are hidden: the remainder has said so.
Accessibility spokenTileAmount(const SafeToSpendContent& content) {
  if (content.isHidden()) return {.hidden = true};
  const std::string today =
      spokenList({content.text("leftForToday"),
                  amountAccessibilityLabel(content.mainAmount(), content.snapshot)},
                 content.lang());
  return {.label = content.isLastDay() ? today : content.spokenMainAmount(),
          .children = Accessibility::Children::ignore};
}

View tileLabel(const SafeToSpendContent& content, TextKey key) {
  return content.caption(content.text(key), 11)
      .foregroundStyle(content.colors.text().withOpacity(0.9));
}

/// What the amount is; the last day's words take a second line where they would shrink too much.
View perDayWords(const SafeToSpendContent& content) {
  if (!content.isLastDay()) return tileLabel(content, "perDay");
  const View twoLines = content.caption(content.text("leftForToday"), 11)
                            .lineLimit(2)
                            .foregroundStyle(content.colors.text().withOpacity(0.9));
  return fittingWidth(tileLabel(content, "leftForToday"), twoLines);
}

View perDayFigure(const SafeToSpendContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      Amount{.value = content.mainAmount(),
             .snapshot = content.snapshot,
             .size = 17,
             .weight = kFigureWeight},
      perDayWords(content).padding({.top = 3}),
  }
      .accessibility(spokenTileAmount(content));
}

/// The number of days and what it is; spoken as one.
struct DaysLeft {
  View number;
  View words;
  Accessibility spoken;
};

DaysLeft daysLeft(const SafeToSpendContent& content) {
  return {Text{std::to_string(content.metrics.daysLeft)}
              .font(17, kFigureWeight)
              .lineLimit(1)
              .minimumScaleFactor(0.8)
              .direction(LayoutDirection::leftToRight),
          tileLabel(content, "daysLeft"),
          {.label = spokenDayPhrase(content), .children = Accessibility::Children::ignore}};
}

View numberBelow(const DaysLeft& days) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      days.words,
      days.number.padding({.top = 3}),
  }
      .accessibility(days.spoken);
}

/// Beside the amount per day the number stands on that amount's line.
View numberAbove(const DaysLeft& days) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      days.number,
      days.words.padding({.top = 3}),
  }
      .accessibility(days.spoken);
}

View tile(const SafeToSpendContent& content, const View& perDay, const View& days) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      perDay,
      Spacer{0},
      days,
  }
      .frame(part(kInfinity))
      .padding(12)
      .frame(FixedFrame{.width = 92})
      .background(tileGround(content));
}

/// The column between the gauge and the tile, or beside the gauge alone.
View column(const View& remainder, const View& foot) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      remainder.layoutPriority(1),
      Spacer{4},
      foot,
  }
      .frame(part(kInfinity));
}

}  // namespace

// Three parts side by side; where a figure or its label has no room, amounts and days share a
// column without the tile's ground, and the days go last. They are drawn twice and spoken once: by
// the pair in the tile, by the phrase on a last day that leaves the tile no room for a pair.
View safeToSpendMedium(const SafeToSpendContent& content) {
  const View pace = pacePart(content).frame(part(104));
  const View remainder = remainderFigure(content);
  const View perDay = perDayFigure(content);
  const DaysLeft days = daysLeft(content);
  const auto threeParts = [&](View phrase, const View& pair) {
    return HStack{
        {.spacing = 12},
        pace,
        column(remainder, details(content, std::move(phrase))),
        tile(content, perDay, pair),
    };
  };
  const Text silentPhrase =
      content.caption(dayPhrase(content.metrics.daysLeft, content.lang()), 11.5);
  const View withDays = HStack{
      {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 16},
      perDay,
      numberAbove(days),
  };
  return Fitting{
      threeParts(silentPhrase.accessibilityHidden(), numberBelow(days).padding({.top = 6})),
      when(content.isLastDay(), [&] { return threeParts(dayCaption(content, 11.5), View{}); }),
      HStack{{.spacing = 12}, pace, column(remainder, Fitting{withDays, perDay})},
  }
      .frame(filling())
      .foregroundStyle(content.colors.text());
}

}  // namespace quorvel
