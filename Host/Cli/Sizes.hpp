// How large each family is, in points.
#pragma once

#include <vector>

#include "Cli/Options.hpp"

namespace cli {

[[nodiscard]] rendering::Size sizeOf(widgetruntime::WidgetFamily family, Preset preset);

/// What a widget is drawn as when nobody chooses: small where it is declared, else the first that
/// is.
[[nodiscard]] widgetruntime::WidgetFamily defaultFamily(
    const std::vector<widgetruntime::WidgetFamily>& declared);

}  // namespace cli
