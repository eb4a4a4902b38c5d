#include "Session/HostEnvironment.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace session {

viewkit::LayoutDirection layoutDirection(const foundation::Device& device) {
  constexpr std::array<std::string_view, 4> kRightToLeft{"ar", "he", "fa", "ur"};
  const std::string_view language =
      device.preferredLanguages.empty() ? "" : std::string_view{device.preferredLanguages.front()};
  const std::string_view code = language.substr(0, language.find_first_of("-_"));
  return std::ranges::find(kRightToLeft, code) != kRightToLeft.end()
             ? viewkit::LayoutDirection::rightToLeft
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
