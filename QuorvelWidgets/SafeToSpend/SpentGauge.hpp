// The half circle that shows how much of the budget is spent.
#pragma once

#include <algorithm>
#include <string_view>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

template <class Number>
struct SpentGaugeArc {
  Number centerX;
  Number centerY;
  Number radius;
};

/// The arc's circle in a box of width x height points: the upper half rests on the bottom edge, and
/// a line of 10 fits but for half a point.
template <class Number>
[[nodiscard]] SpentGaugeArc<Number> spentGaugeArc(const Number& width, const Number& height) {
  using std::min;
  const Number half = width / 2.0;
  return {half, height - 4.5, min(height, half) - 4.5};
}

/// Takes the whole proposal. The progress covers min(spentFraction, 1) of the arc; at 0 only the
/// track is there.
struct SpentGauge : viewkit::Modifiers<SpentGauge> {
  static constexpr std::string_view kName = "SpentGauge";

  double spentFraction = 0;
  viewkit::Color color;
  viewkit::Color track;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
