// Turns answers into absolute frames, mirrored where the layout runs right to left.
#pragma once

#include "Rendering/LayoutItems.hpp"

namespace rendering {

class LayoutPlacer {
 public:
  explicit LayoutPlacer(LayoutItems& items) : items_(items) {}

  /// Fills `out` with the item and everything in it. `frame` holds its answer to the proposal.
  void place(ItemId id, const Rect& frame, const Proposal& proposal, PlacedNode& out);

 private:
  void placeElement(ItemId id, const Proposal& proposal, PlacedNode& out);
  void placeModifier(ItemId id, const Proposal& proposal, PlacedNode& out);
  void placeStack(const LayoutItem& item,
                  const viewkit::StackElement& stack,
                  const Proposal& proposal,
                  PlacedNode& out);
  void placeCanvas(const LayoutItem& item, PlacedNode& out);
  /// The child in a part of its parent's box: the box itself, or a smaller one in its middle.
  void placeInBox(const LayoutItem& item, Size box, PlacedNode& out);
  void placeText(const LayoutItem& item, const Proposal& proposal, PlacedNode& out);
  void placeChild(ItemId child, const ChildPlace& place, const PlacedNode& parent, PlacedNode& out);
  [[nodiscard]] ChildPlace alignedIn(ItemId child,
                                     Size box,
                                     Size own,
                                     viewkit::Alignment alignment);
  /// The children's indices, those with lower z first.
  [[nodiscard]] std::vector<std::uint32_t> drawingOrder(const LayoutItem& item);

  LayoutItems& items_;
};

}  // namespace rendering
