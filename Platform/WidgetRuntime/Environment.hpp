// What a widget host tells a view about the place it will be drawn in.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.hpp"
#include "ViewKit/Appearance.hpp"
#include "ViewKit/Geometry.hpp"

namespace widgetruntime {

enum class WidgetFamily : std::uint8_t {
  systemSmall,
  systemMedium,
  systemLarge,
  accessoryCircular,
  accessoryRectangular,
  accessoryInline
};
constexpr auto namesOf(WidgetFamily) {
  return foundation::names("systemSmall",
                           "systemMedium",
                           "systemLarge",
                           "accessoryCircular",
                           "accessoryRectangular",
                           "accessoryInline");
}

using foundation::named;
using foundation::nameOf;
using viewkit::RedactionReasons;
using viewkit::RenderingMode;

/// The host's environment of one drawing. Nothing in it depends on the appearance: one tree serves
/// both.
struct Environment {
  WidgetFamily widgetFamily = WidgetFamily::systemSmall;
  std::optional<WidgetFamily> previewFamily;
  RenderingMode widgetRenderingMode = RenderingMode::fullColor;
  RedactionReasons redactionReasons;
  bool showsWidgetContainerBackground = true;
  viewkit::Insets systemMargins = viewkit::Insets::all(16);
  viewkit::LayoutDirection layoutDirection = viewkit::LayoutDirection::leftToRight;
  foundation::Locale locale;                    ///< the user's, from the request's device
  foundation::TimeZone timeZone;                ///< likewise
  std::vector<std::string> preferredLanguages;  ///< likewise; what speaks without a document

  /// The preview family when one is set, else the host's.
  [[nodiscard]] WidgetFamily familyInForce() const { return previewFamily.value_or(widgetFamily); }
  /// The system margins, or 16 on every edge for a preview in another family.
  [[nodiscard]] viewkit::Insets contentMargins() const {
    return previewFamily && *previewFamily != widgetFamily ? viewkit::Insets::all(16)
                                                           : systemMargins;
  }

  friend bool operator==(const Environment&, const Environment&) = default;
};

[[nodiscard]] constexpr bool isAccessory(WidgetFamily family) {
  return family >= WidgetFamily::accessoryCircular;
}

inline constexpr std::array kAllFamilies{WidgetFamily::systemSmall,
                                         WidgetFamily::systemMedium,
                                         WidgetFamily::systemLarge,
                                         WidgetFamily::accessoryCircular,
                                         WidgetFamily::accessoryRectangular,
                                         WidgetFamily::accessoryInline};

}  // namespace widgetruntime
