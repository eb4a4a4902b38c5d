// A card's face: its gradient and, where there is one, its picture.
#pragma once

#include <string_view>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// The colours of a card's face, or the default ones when it lists none.
[[nodiscard]] std::vector<viewkit::Color> faceColors(const std::vector<std::string>& gradient);

/// Takes the whole proposal. Accented hosts get a plain ground in its place.
struct CardArtTile : viewkit::Modifiers<CardArtTile> {
  static constexpr std::string_view kName = "CardArtTile";

  WidgetSnapshot::Card card;
  double cornerRadius = 9;
  viewkit::Alignment alignment;
  widgetruntime::RenderingMode renderingMode = widgetruntime::RenderingMode::fullColor;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
