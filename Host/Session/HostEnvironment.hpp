// What a host tells an extension about the place of a widget, from what it knows of the device.
#pragma once

#include <vector>

#include "Foundation/Device.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace session {

/// Of the first preferred language.
[[nodiscard]] viewkit::LayoutDirection layoutDirection(const foundation::Device& device);

/// A host draws no container behind accessories, nor behind tinted widgets.
[[nodiscard]] bool showsContainerBackground(widgetruntime::WidgetFamily family,
                                            viewkit::RenderingMode mode);

[[nodiscard]] widgetruntime::Environment hostEnvironment(widgetruntime::WidgetFamily family,
                                                         viewkit::RenderingMode mode,
                                                         viewkit::RedactionReasons redaction,
                                                         const foundation::Device& device);

/// What a widget is drawn as when nobody chooses: small where it is declared, else the first that
/// is.
[[nodiscard]] widgetruntime::WidgetFamily defaultFamily(
    const std::vector<widgetruntime::WidgetFamily>& declared);

}  // namespace session
