// How large each family is, in points.
#pragma once

#include "Cli/Options.hpp"

namespace cli {

[[nodiscard]] rendering::Size sizeOf(widgetruntime::WidgetFamily family, Preset preset);

}  // namespace cli
