#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

constexpr double kLineWidth = 10;

Shape upperHalf() {
  const auto arc = spentGaugeArc<Length>(kWidth, kHeight);
  return Arc({{arc.centerX, arc.centerY}, arc.radius, 180, 360});
}

}  // namespace

View SpentGauge::body() const {
  const double progress = std::min(spentFraction, 1.0);
  return ZStack{
      {},
      upperHalf().stroke(track, kLineWidth, LineCap::round),
      when(progress > 0,
           [&] {
             return upperHalf()
                 .stroke(color, kLineWidth, LineCap::round)
                 .trim(0, progress)
                 .accentable();
           }),
  }
      .accessibilityHidden()
      .privacySensitive(PrivacyTreatment::masked);
}

}  // namespace quorvel
