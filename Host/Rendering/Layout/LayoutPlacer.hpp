// Turns answers into absolute frames, mirrored where the layout runs right to left.
#pragma once

#include "Rendering/Layout/LayoutItems.hpp"

namespace rendering {

class LayoutPlacer {
 public:
  explicit LayoutPlacer(LayoutItems& items) : items_(items) {}

  /// Fills `out` with the item and everything in it. `frame` holds its answer to the proposal.
  void place(ItemId id, const Rect& frame, const Proposal& proposal, PlacedNode& out);

 private:
  void placeText(const LayoutItem& item, const Proposal& proposal, PlacedNode& out);
  void placeChild(ItemId child, const ChildPlace& place, const PlacedNode& parent, PlacedNode& out);

  LayoutItems& items_;
};

}  // namespace rendering
