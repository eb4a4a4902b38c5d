// A fanned pile of card faces.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Each face stands `step` below the one behind it. As high as its faces need, but clipped to what
/// it is offered.
struct CardStack : viewkit::Modifiers<CardStack> {
  static constexpr std::string_view kName = "CardStack";

  std::vector<const WidgetSnapshot::Card*> cards;  ///< the first one at the back
  const WidgetSnapshot& snapshot;
  std::optional<double> width;  ///< of a face; absent: as wide as offered
  double height = 96;           ///< of a face
  double step = 34;
  double pillSize = 10.5;  ///< font size of title and pill
  double corner = 10;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  /// Without what may be clipped.
  [[nodiscard]] double pileHeight() const;
  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
