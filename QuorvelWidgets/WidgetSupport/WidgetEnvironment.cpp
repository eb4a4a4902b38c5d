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

viewkit::Color secondaryTextColor(const widgetruntime::Environment& environment) {
  const bool tinted = environment.widgetRenderingMode != widgetruntime::RenderingMode::fullColor;
  return tinted && isAccessory(environment.familyInForce())
             ? viewkit::Color::primary().withOpacity(0.6)
             : palette::textSecondary;
}

}  // namespace quorvel
