#include "QuorvelWidgets/NetWorth/ChartGeometry.hpp"

namespace quorvel {

std::vector<double> depthsBelowTop(std::span<const double> values) {
  if (values.empty()) return {};
  const auto [least, most] = std::minmax_element(values.begin(), values.end());
  const double low = *least / 2;
  const double range = *most / 2 - low;
  std::vector<double> depths;
  depths.reserve(values.size());
  for (const double value : values) {
    depths.push_back(range > 0 ? 1 - (value / 2 - low) / range : 0.5);
  }
  return depths;
}

std::vector<std::size_t> labelledPoints(std::size_t count) {
  if (count == 0) return {};
  constexpr std::size_t kSteps = 6;
  const std::size_t step = std::max<std::size_t>((count - 1 + kSteps - 1) / kSteps, 1);
  std::vector<std::size_t> points;
  for (std::size_t i = (count - 1) % step; i < count; i += step) points.push_back(i);
  return points;
}

}  // namespace quorvel
