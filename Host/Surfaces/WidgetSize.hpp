// How large a widget of a family is on a desktop, a page or in a folder, in points.
#pragma once

#include "Rendering/Geometry.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace surfaces {

[[nodiscard]] rendering::Size standardSize(widgetruntime::WidgetFamily family);

}  // namespace surfaces
