#include "QuorvelWidgets/SafeToSpend/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

/// Taller, the arc's top would touch the header.
constexpr double kGaugeHeight = 63;

View gauge(const SafeToSpendContent& content) {
  View arc = SpentGauge{.spentFraction = content.visibleFraction(),
                        .color = content.paceColor(),
                        .track = content.colors.track()}
                 .frame(FlexibleFrame{.maxWidth = kInfinity, .maxHeight = kGaugeHeight});
  if (content.isHidden()) {
    return arc.overlay(gaugeLock(content, 18).padding({.bottom = 5}), Alignment::bottom);
  }
  // Between the ends of the arc, however low it is.
  constexpr double kMargin = 16;
  const View percentage =
      content.percentage(20, 0.5)
          .frame(FixedFrame{.width = max((min(kWidth * 0.5, kHeight) - kMargin) * 2, 0)})
          .padding({.bottom = 2})
          .accessibilityLabel(content.spokenPercentage());
  return arc.overlay(percentage, Alignment::bottom);
}

View column(const SafeToSpendContent& content) {
  const std::string unit = content.isLastDay() ? content.text("left") : perDayLabel(content);
  const View pace = content.caption(content.text(content.pace.key), 11.5)
                        .font(11.5, FontWeight::semibold)
                        .foregroundStyle(content.paceColor());
  const View days = dayCaption(content, 11.5).foregroundStyle(content.colors.caption());
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 3},
      amountWithUnit(
          content, unit, {.size = 21, .unitSize = 11.5, .unitColor = content.colors.caption()}),
      fittingWidth(HStack{{.spacing = 0}, days, Spacer{6}, pace},
                   HStack{{.spacing = 0}, Spacer{0}, pace}),
  };
}

}  // namespace

View safeToSpendRing(const SafeToSpendContent& content) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      safeToSpendHeader(content, content.accent.ink, content.colors.text()),
      Spacer{0},
      gauge(content).padding({.top = 7}),
      column(content).padding({.top = 6}),
  }
      .frame(filling(Alignment::topLeading))
      .foregroundStyle(content.colors.text());
}

}  // namespace quorvel
