// How large a widget of a family is on a desktop, a page or in a folder, in points.
#pragma once

#include "Foundation/Names.hpp"
#include "Rendering/Graphics/Geometry.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace surfaces {

/// Screens with known widget sizes: the widest, the usual and the narrowest.
enum class Preset { standard, compact, stress };
constexpr auto namesOf(Preset) {
  return foundation::names("standard", "compact", "stress");
}

[[nodiscard]] rendering::Size presetSize(widgetruntime::WidgetFamily family, Preset preset);
[[nodiscard]] rendering::Size standardSize(widgetruntime::WidgetFamily family);

}  // namespace surfaces
