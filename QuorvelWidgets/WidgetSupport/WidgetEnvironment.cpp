#include "QuorvelWidgets/WidgetSupport/WidgetEnvironment.hpp"

#include "QuorvelWidgets/WidgetSupport/Palette.hpp"

namespace quorvel {

WidgetSnapshot withEffectivePrivacy(WidgetSnapshot snapshot,
                                    const widgetruntime::Environment& environment) {
  snapshot.isHidden = snapshot.isHidden || environment.redactionReasons.privacy;
  return snapshot;
}

viewkit::Color secondaryTextColor(const widgetruntime::Environment& environment) {
  const bool tinted = environment.widgetRenderingMode != widgetruntime::RenderingMode::fullColor;
  return tinted && isAccessory(environment.familyInForce())
             ? viewkit::Color::primary().withOpacity(0.6)
             : palette::textSecondary;
}

}  // namespace quorvel
