#include "QuorvelWidgets/ChartGeometry.hpp"

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

}  // namespace quorvel
