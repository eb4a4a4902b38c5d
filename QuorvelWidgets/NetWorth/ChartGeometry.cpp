#include "QuorvelWidgets/NetWorth/ChartGeometry.hpp"

#include <algorithm>
#include <utility>

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

namespace {

/// Of the chart on the narrowest screen, and of a year beside it with its gap.
constexpr double kNarrowestChart = 255;
constexpr double kYearWidth = 27;
constexpr double kYearGap = 7;

/// A label's span on the narrowest chart; one at either end is pushed inside.
std::pair<double, double> yearSpan(std::size_t index, std::size_t count) {
  const double middle =
      kNarrowestChart * static_cast<double>(index) / static_cast<double>(count - 1);
  if (index == 0) return {0, kYearWidth};
  if (index + 1 == count) return {kNarrowestChart - kYearWidth, kNarrowestChart};
  return {middle - kYearWidth / 2, middle + kYearWidth / 2};
}

}  // namespace

std::vector<std::size_t> labelledYears(std::span<const std::string> months) {
  std::vector<std::size_t> januaries;
  for (std::size_t i = 0; i < months.size(); ++i) {
    if (months[i].ends_with("-01")) januaries.push_back(i);
  }
  for (std::size_t step = 1; step <= januaries.size(); ++step) {
    std::vector<std::size_t> chosen;
    for (std::size_t i = (januaries.size() - 1) % step; i < januaries.size(); i += step) {
      chosen.push_back(januaries[i]);
    }
    const auto touching =
        std::ranges::adjacent_find(chosen, [&](std::size_t first, std::size_t second) {
          return yearSpan(first, months.size()).second + kYearGap >
                 yearSpan(second, months.size()).first;
        });
    if (touching == chosen.end()) return chosen;
  }
  return {};
}

}  // namespace quorvel
