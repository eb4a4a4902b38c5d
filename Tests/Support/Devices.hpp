// How large widgets are on screens that exist, and on one that is smaller than any.
#pragma once

#include <array>
#include <string_view>

#include "Rendering/Graphics/RenderOptions.hpp"
#include "Tests/Support/WidgetLayouts.hpp"

namespace testsupport {

struct Device {
  std::string_view name;
  std::array<rendering::Size, 6> sizes;  ///< in the order of the families

  [[nodiscard]] const rendering::Size& sizeOf(widgetruntime::WidgetFamily family) const {
    return sizes[static_cast<std::size_t>(family)];
  }
};

inline constexpr Device kStandardDevice{
    "standard", {{{170, 170}, {364, 170}, {364, 382}, {76, 76}, {172, 76}, {257, 26}}}};
inline constexpr Device kCompactDevice{
    "compact", {{{158, 158}, {338, 158}, {338, 354}, {72, 72}, {160, 72}, {234, 26}}}};
inline constexpr Device kStressDevice{
    "stress", {{{141, 141}, {292, 141}, {292, 311}, {68, 68}, {153, 68}, {225, 26}}}};
inline constexpr std::array kDevices{kStandardDevice, kCompactDevice, kStressDevice};
inline constexpr std::array kRealDevices{kStandardDevice, kCompactDevice};

/// A point per pixel, corners and all.
inline rendering::RenderOptions optionsFor(const WidgetLayout& layout,
                                           const WidgetState& state,
                                           const Device& device) {
  rendering::RenderOptions options;
  options.size = device.sizeOf(layout.family);
  options.scale = 1;
  options.cornerRadius = 0;
  options.mode = state.environment.widgetRenderingMode;
  options.showsBackground = state.environment.showsWidgetContainerBackground;
  options.redaction = state.environment.redactionReasons;
  return options;
}

}  // namespace testsupport
