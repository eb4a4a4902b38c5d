#include "QuorvelWidgets/WidgetSupport/Components/WidgetChrome.hpp"

#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetChrome::body() const {
  View root = content;
  if (padded) root = root.padding(preview ? Insets::all(16) : environment.contentMargins());
  root = root.frame(filling());
  if (!background.isEmpty()) {
    root = preview ? root.background(background) : root.containerBackground(background);
  }
  return root.layoutDirection(direction).widgetURL(link);
}

}  // namespace quorvel
