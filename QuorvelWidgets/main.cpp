// The extension's program; the runtime's loop answers a host until it is done.
#include "Foundation/ProcessPrivacy.hpp"
#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "WidgetRuntime/ExtensionMain.hpp"

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  return widgetruntime::NSExtensionMain(argc, argv, quorvel::quorvelWidgetsExtension());
}
