#include "QuorvelWidgets/WidgetSupport/Snapshot/EffectiveSnapshot.hpp"

namespace quorvel {

EffectiveSnapshot::EffectiveSnapshot(const std::optional<WidgetSnapshot>& document,
                                     const widgetruntime::Environment& environment)
    : document_(document ? &*document : nullptr) {
  if (!document || document->isHidden || !environment.redactionReasons.privacy) return;
  hidden_ = *document;
  hidden_->isHidden = true;
}

}  // namespace quorvel
