// Where the points of a history stand in a chart, apart from any view.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace quorvel {

template <class Number>
struct ChartPoint {
  Number x;
  Number y;
  friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

/// The band of the line, as fractions of the height: room above it, a floor of area below it.
inline constexpr double kChartTop = 0.18;
inline constexpr double kChartBottom = 0.8;

/// How far below the highest value each value lies, 0 (highest) ... 1 (lowest); nothing to measure
/// by when all are equal (then every one is a half). Halves keep the range of the largest doubles
/// finite.
[[nodiscard]] std::vector<double> depthsBelowTop(std::span<const double> values);

/// One point per value, oldest first, over `width`. A single value stands at the right end.
template <class Number>
[[nodiscard]] std::vector<ChartPoint<Number>> chartPointsOver(std::span<const double> values,
                                                              const Number& width,
                                                              const Number& height) {
  const std::vector<double> depths = depthsBelowTop(values);
  std::vector<ChartPoint<Number>> points;
  points.reserve(depths.size());
  for (std::size_t i = 0; i < depths.size(); ++i) {
    const double along =
        depths.size() == 1 ? 1 : static_cast<double>(i) / static_cast<double>(depths.size() - 1);
    const double down = kChartTop + (kChartBottom - kChartTop) * depths[i];
    points.push_back({width * along, height * down});
  }
  return points;
}

/// The points that carry a month's name: counted back from the last one in equal steps, at most
/// seven, oldest first.
[[nodiscard]] std::vector<std::size_t> labelledPoints(std::size_t count);

/// A history longer than a year is labelled by years.
inline constexpr std::size_t kMostNamedMonths = 12;

/// The points of a long history that carry their year, oldest first: January of the latest year,
/// and of as many before it in equal steps as do not touch on the narrowest chart. Months are
/// strings such as "2025-01".
[[nodiscard]] std::vector<std::size_t> labelledYears(std::span<const std::string> months);

}  // namespace quorvel
