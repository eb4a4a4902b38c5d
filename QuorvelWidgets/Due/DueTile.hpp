// The small tile that stands for one payment: its brand, its symbol or its first letter.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// `size` x `size` points; decorative, since the name stands beside it.
struct DueTile : viewkit::Modifiers<DueTile> {
  static constexpr std::string_view kName = "DueTile";

  const WidgetSnapshot::Due& due;
  double size = 30;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;
  bool onFace = false;  ///< what lies behind the tile is the payment's face already

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
