#include "QuorvelWidgets/Spending/DailyBars.hpp"

#include <span>

#include "QuorvelWidgets/Spending/SpendingFigures.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kCorner = 1.5;
constexpr int kLabelEvery = 7;
/// Two digits; as a placeholder a label is no wider.
constexpr double kLabelWidth = 14;

}  // namespace

View DailyBars::body() const {
  const std::span<const double> amounts{daily.data(), drawnDays(daily.size())};
  const double top = topAmount(amounts);
  const auto geometry = barGeometry<Length>(amounts.size(), kWidth);
  std::vector<View> bars;
  bars.reserve(amounts.size());
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    const int day = static_cast<int>(i) + 1;
    const double ratio = dayRatio(amounts[i], top);
    const Length height = barHeight<Length>(ratio, day > today, kHeight);
    bars.push_back(RoundedRectangle(kCorner)
                       .fill(barColor(ratio, day, today, heat, renderingMode))
                       .frame(FixedFrame{.width = geometry.width, .height = height})
                       .offset(geometry.pitch * static_cast<double>(i), kHeight - height));
  }
  return Canvas{std::move(bars)}.accentable().accessibilityHidden().privacySensitive(
      PrivacyTreatment::covered);
}

View DailyBarLabels::body() const {
  const std::size_t days = drawnDays(count);
  const auto geometry = barGeometry<Length>(days, kWidth);
  std::vector<View> labels;
  for (int day = 1; day <= static_cast<int>(days); day += kLabelEvery) {
    labels.push_back(Text{std::to_string(day)}
                         .font(9.5)
                         .lineLimit(1)
                         .direction(LayoutDirection::leftToRight)
                         .foregroundStyle(colors.caption())
                         .frame(FixedFrame{.width = kLabelWidth})
                         .position(geometry.pitch * (day - 1) + geometry.width / 2, kHeight / 2));
  }
  return Canvas{std::move(labels)}.frame(FixedFrame{.height = kRowHeight}).accessibilityHidden();
}

}  // namespace quorvel
