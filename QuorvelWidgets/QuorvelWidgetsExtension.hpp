// The extension as its process, or a host in its own process, runs it.
#pragma once

#include "WidgetRuntime/Dispatcher.hpp"

namespace quorvel {

[[nodiscard]] widgetruntime::ExtensionDefinition quorvelWidgetsExtension();

}  // namespace quorvel
