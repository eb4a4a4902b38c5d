#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMoneyStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetScaffold.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

/// The room that a part of the row takes for itself: all of its height, and of its width up to a
/// bound.
FlexibleFrame part(double maxWidth) {
  return {.maxWidth = maxWidth, .maxHeight = kInfinity, .alignment = Alignment::topLeading};
}

View pacePart(const SafeToSpendContent& content) {
  const View verdict = content.caption(content.text(content.pace.key), 11.5, 0.7)
                           .font(11.5, FontWeight::semibold)
                           .foregroundStyle(content.pace.color)
                           .padding({.leading = 17, .bottom = 2, .trailing = 17});
  const View gauge = SpentGauge{.spentFraction = content.visibleFraction(),
                                .color = content.pace.color,
                                .track = meterTrackColor(content.environment.widgetRenderingMode)}
                         .frame(FixedFrame{.height = 54})
                         .overlay(verdict, Alignment::bottom);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      // A long title may reach into the gap to the next part.
      safeToSpendHeader(content, content.accent.ink, palette::textPrimary, 2)
          .padding({.trailing = -3}),
      Spacer{0},
      gauge,
  }
      .frame(part(104));
}

View spentFigure(const SafeToSpendContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      content.caption(content.text("spent"), 10, 0.85).foregroundStyle(palette::textSecondary),
      HStack{
          {.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3},
          content.percentage(19),
          content.caption(content.text("used"), 11.5, 0.85).foregroundStyle(palette::textSecondary),
      },
  }
      .accessibility(
          {.label = content.spokenPercentage(), .children = Accessibility::Children::ignore});
}

View remainderPart(const SafeToSpendContent& content) {
  const View figure =
      VStack{
          {.alignment = HorizontalAlignment::leading, .spacing = 3},
          content.caption(content.text("leftToSpend"), 12, 0.85)
              .foregroundStyle(palette::textSecondary),
          Amount{.value = content.metrics.remaining,
                 .snapshot = content.snapshot,
                 .size = 22,
                 .weight = kFigureWeight},
      }
          .accessibility({.children = Accessibility::Children::combine});
  const View remainder = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 3},
      figure,
      when(isExceeded(content.budget),
           [&] { return remainderLine(content, 2).foregroundStyle(palette::statusCritical); }),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      remainder,
      Spacer{0},
      when(!content.isHidden(), [&] { return spentFigure(content); }),
      dayCaption(content, 11.5).foregroundStyle(palette::textSecondary).padding({.top = 3}),
  }
      .frame(part(kInfinity));
}

View tileGround(const SafeToSpendContent& content) {
  if (!content.showsBackground) return AccessoryBackdrop{.showsBackground = false};
  return RoundedRectangle(14).fill(groundColor(palette::surface, content.environment));
}

/// Silent while amounts are hidden: the remainder has said so.
Accessibility spokenTileAmount(const SafeToSpendContent& content) {
  if (content.isHidden()) return {.hidden = true};
  const std::string today = content.text("leftForToday") + ", " +
                            amountAccessibilityLabel(content.mainAmount(), content.snapshot);
  return {.label = content.isLastDay() ? today : content.spokenMainAmount(),
          .children = Accessibility::Children::ignore};
}

View tile(const SafeToSpendContent& content) {
  const Color faint = palette::textPrimary.withOpacity(0.9);
  const auto label = [&](std::string_view key) {
    return content.caption(content.text(key), 11, 0.8).lineLimit(2).foregroundStyle(faint);
  };
  const View perDay = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      Amount{.value = content.mainAmount(), .snapshot = content.snapshot, .size = 17},
      label(content.isLastDay() ? "leftForToday" : "perDay").padding({.top = 3}),
  };
  const View daysLeft = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      label("daysLeft"),
      Text{std::to_string(content.metrics.daysLeft)}
          .font(17, kFigureWeight)
          .lineLimit(1)
          .minimumScaleFactor(0.8)
          .direction(LayoutDirection::leftToRight)
          .padding({.top = 3}),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      perDay.accessibility(spokenTileAmount(content)),
      Spacer{0},
      daysLeft.accessibilityHidden(),  // the day phrase says it
  }
      .frame(part(kInfinity))
      .padding(12)
      .frame(FixedFrame{.width = 92})
      .background(tileGround(content));
}

}  // namespace

View safeToSpendMedium(const SafeToSpendContent& content) {
  return HStack{
      {.spacing = 12},
      pacePart(content),
      remainderPart(content),
      tile(content),
  }
      .frame(FlexibleFrame{.maxWidth = kInfinity, .maxHeight = kInfinity})
      .foregroundStyle(palette::textPrimary);
}

}  // namespace quorvel
