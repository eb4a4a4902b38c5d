#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMeter.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

/// Taller, the arc's top would touch the header.
constexpr double kGaugeHeight = 63;

View gauge(const SafeToSpendContent& content) {
  View arc = SpentGauge{.spentFraction = content.visibleFraction(),
                        .color = content.pace.color,
                        .track = meterTrackColor(content.environment.widgetRenderingMode)}
                 .frame(FlexibleFrame{.maxWidth = kInfinity, .maxHeight = kGaugeHeight});
  if (content.isHidden()) return arc;
  const View percentage =
      content.percentage(20).padding({.bottom = 2}).accessibilityLabel(content.spokenPercentage());
  return arc.overlay(percentage, Alignment::bottom);
}

View column(const SafeToSpendContent& content) {
  const std::string unit = content.isLastDay() ? content.text("left") : perDayLabel(content);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 3},
      amountWithUnit(content, 21, unit, 11.5, palette::textSecondary),
      HStack{
          {.spacing = 0},
          dayCaption(content, 11.5).foregroundStyle(palette::textSecondary),
          Spacer{6},
          content.caption(content.text(content.pace.key), 11.5, 0.8)
              .font(11.5, FontWeight::semibold)
              .foregroundStyle(content.pace.color),
      },
  };
}

}  // namespace

View safeToSpendRing(const SafeToSpendContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      safeToSpendHeader(content, content.accent.ink, palette::textPrimary),
      Spacer{0},
      gauge(content).padding({.top = 7}),
      column(content).padding({.top = 6}),
  }
      .frame(FlexibleFrame{
          .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading})
      .foregroundStyle(palette::textPrimary);
}

}  // namespace quorvel
