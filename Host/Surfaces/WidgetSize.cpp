#include "Surfaces/WidgetSize.hpp"

#include <array>

namespace surfaces {

rendering::Size standardSize(widgetruntime::WidgetFamily family) {
  // In the order of the families: small, medium, large, circular, rectangular, inline.
  constexpr std::array<rendering::Size, widgetruntime::kAllFamilies.size()> kSizes{
      {{170, 170}, {364, 170}, {364, 382}, {76, 76}, {172, 76}, {257, 26}}};
  return kSizes[static_cast<std::size_t>(family)];
}

}  // namespace surfaces
