#include "QuorvelWidgets/WidgetSupport/WidgetEnvironment.hpp"

#include "QuorvelWidgets/WidgetSupport/Palette.hpp"

namespace quorvel {

WidgetSnapshot withEffectivePrivacy(const WidgetSnapshot& snapshot,
                                    const widgetruntime::Environment& environment) {
  WidgetSnapshot copy;
  copy.generatedAt = snapshot.generatedAt;
  copy.isHidden = snapshot.isHidden || environment.redactionReasons.privacy;
  copy.lang = snapshot.lang;
  copy.money = snapshot.money;
  copy.totalLimit = snapshot.totalLimit;
  copy.totalRemaining = snapshot.totalRemaining;
  copy.accent = snapshot.accent;
  return copy;
}

bool isTinted(const widgetruntime::Environment& environment) {
  return environment.widgetRenderingMode != widgetruntime::RenderingMode::fullColor;
}

viewkit::Color secondaryTextColor(const widgetruntime::Environment& environment) {
  return isTinted(environment) && isAccessory(environment.familyInForce())
             ? viewkit::Color::primary().withOpacity(0.6)
             : palette::textSecondary;
}

}  // namespace quorvel
