#include "Surfaces/WidgetSize.hpp"

#include <array>

namespace surfaces {
namespace {

using Row = std::array<rendering::Size, widgetruntime::kAllFamilies.size()>;

// In the order of the families: small, medium, large, circular, rectangular, inline.
constexpr Row kStandard{{{170, 170}, {364, 170}, {364, 382}, {76, 76}, {172, 76}, {257, 26}}};
constexpr Row kCompact{{{158, 158}, {338, 158}, {338, 354}, {72, 72}, {160, 72}, {234, 26}}};
constexpr Row kStress{{{141, 141}, {292, 141}, {292, 311}, {68, 68}, {153, 68}, {225, 26}}};

const Row& rowOf(Preset preset) {
  switch (preset) {
    case Preset::compact:
      return kCompact;
    case Preset::stress:
      return kStress;
    case Preset::standard:
      break;
  }
  return kStandard;
}

}  // namespace

rendering::Size presetSize(widgetruntime::WidgetFamily family, Preset preset) {
  return rowOf(preset)[static_cast<std::size_t>(family)];
}

rendering::Size standardSize(widgetruntime::WidgetFamily family) {
  return presetSize(family, Preset::standard);
}

}  // namespace surfaces
