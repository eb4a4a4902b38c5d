// The extension's process: requests on standard input, answers on what was standard output.
#pragma once

#include "WidgetRuntime/Dispatcher.hpp"

namespace widgetruntime {

/// Serves until input ends or the host says exit. Exit status: 0 then, 1 after a broken frame or an
/// exit without a shutdown, 2 when it was started wrongly (a terminal as input, arguments).
[[nodiscard]] int NSExtensionMain(int argc, char** argv, ExtensionDefinition definition);

}  // namespace widgetruntime
