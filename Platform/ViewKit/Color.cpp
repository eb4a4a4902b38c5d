#include "ViewKit/Color.hpp"

namespace viewkit {

Gradient Gradient::even(const std::vector<Color>& colors, UnitPoint start, UnitPoint end) {
  Gradient gradient{{}, start, end};
  const double last = colors.size() > 1 ? static_cast<double>(colors.size() - 1) : 1;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    gradient.stops.push_back({colors[i], static_cast<double>(i) / last});
  }
  return gradient;
}

}  // namespace viewkit
