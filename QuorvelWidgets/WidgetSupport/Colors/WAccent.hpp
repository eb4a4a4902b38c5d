// The colours derived from the application's accent.
#pragma once

#include <optional>
#include <vector>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/Color.hpp"

namespace quorvel {

struct WAccent {
  viewkit::Color fill;               ///< large areas
  viewkit::Color ink;                ///< texts, symbols, lines
  viewkit::Color soft;               ///< ground of icon tiles and of the action pill
  viewkit::Color glyph;              ///< texts and symbols on `fill`
  std::vector<viewkit::Color> heat;  ///< lowest level first; four from a document or the default

  /// The accent of a snapshot, or the built-in one.
  explicit WAccent(const std::optional<WidgetSnapshot::Accent>& accent = std::nullopt);

  friend bool operator==(const WAccent&, const WAccent&) = default;
};

}  // namespace quorvel
