#include "Session/HostEnvironment.hpp"

#include <algorithm>

#include "Foundation/Locale.hpp"

namespace session {

viewkit::LayoutDirection layoutDirection(const foundation::Device& device) {
  const bool isRightToLeft = !device.preferredLanguages.empty() &&
                             foundation::isRightToLeft(device.preferredLanguages.front());
  return isRightToLeft ? viewkit::LayoutDirection::rightToLeft
                       : viewkit::LayoutDirection::leftToRight;
}

bool showsContainerBackground(widgetruntime::WidgetFamily family, viewkit::RenderingMode mode) {
  return mode == viewkit::RenderingMode::fullColor && !widgetruntime::isAccessory(family);
}

widgetruntime::Environment hostEnvironment(widgetruntime::WidgetFamily family,
                                           viewkit::RenderingMode mode,
                                           viewkit::RedactionReasons redaction,
                                           const foundation::Device& device) {
  return {.widgetFamily = family,
          .widgetRenderingMode = mode,
          .redactionReasons = redaction,
          .showsWidgetContainerBackground = showsContainerBackground(family, mode),
          .systemMargins = viewkit::Insets::all(widgetruntime::isAccessory(family) ? 0 : 16),
          .layoutDirection = layoutDirection(device)};
}

widgetruntime::WidgetFamily defaultFamily(
    const std::vector<widgetruntime::WidgetFamily>& declared) {
  using widgetruntime::WidgetFamily;
  if (declared.empty() || std::ranges::find(declared, WidgetFamily::systemSmall) != declared.end())
    return WidgetFamily::systemSmall;
  return declared.front();
}

}  // namespace session
