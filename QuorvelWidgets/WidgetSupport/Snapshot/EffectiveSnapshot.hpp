// The snapshot of an entry as every part of a widget sees it: whole, its `isHidden` the effective
// privacy.
#pragma once

#include <optional>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Amounts are hidden when the application hides them or the host redacts. Only where the host
/// redacts what the application shows is the document copied, once and whole; elsewhere it is the
/// document itself, which must outlive this.
class EffectiveSnapshot {
 public:
  EffectiveSnapshot(const std::optional<WidgetSnapshot>& document,
                    const widgetruntime::Environment& environment);

  /// Whether there is a document.
  explicit operator bool() const { return document_ != nullptr; }
  [[nodiscard]] const WidgetSnapshot& operator*() const { return hidden_ ? *hidden_ : *document_; }
  [[nodiscard]] const WidgetSnapshot* operator->() const { return &**this; }

 private:
  const WidgetSnapshot* document_;
  std::optional<WidgetSnapshot> hidden_;
};

}  // namespace quorvel
