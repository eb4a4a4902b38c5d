#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetEnvironment.hpp"

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

}  // namespace quorvel
