// The places of an item's children: what the placer follows, and what is asked beforehand about
// texts that would be cut.
#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

#include "Rendering/Layout/LayoutAlignment.hpp"
#include "Rendering/Layout/LayoutItems.hpp"
#include "Rendering/Layout/LayoutLeaves.hpp"
#include "Rendering/Layout/LayoutModifiers.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

/// The size at which an answer is placed.
[[nodiscard]] inline Size placedSize(const MeasuredSize& answer) {
  return {std::min(cleanLength(answer.width), kFarthest),
          std::min(cleanLength(answer.height), kFarthest)};
}

/// How many children are placed: a Fitting takes one of its own.
[[nodiscard]] std::size_t placeCount(const LayoutItem& item);

/// The child in a part of its parent's box of size `own`.
[[nodiscard]] ChildPlace placeIn(
    LayoutItems& items, ItemId child, Size box, Size own, viewkit::Alignment alignment);

[[nodiscard]] viewkit::Alignment contentAlignment(const viewkit::Modifier& modifier);

/// The children's indices, those with lower z first; empty where they are drawn as they come.
[[nodiscard]] std::vector<std::uint32_t> drawingOrder(const LayoutItems& items,
                                                      const LayoutItem& item);

/// What relative lengths of a canvas's child resolve against.
void setCanvas(LayoutItems& items, ItemId child, Size canvas);

/// The parts of `forEachPlace`.
template <class Use>
void forEachPlaceInModifier(
    LayoutItems& items, ItemId id, Size own, const Proposal& proposal, const Use& use) {
  const LayoutItem& item = items[id];
  const std::span<const ItemId> children = items.children(item);
  if (item.sharesScale) {
    const ScaleLimit limit(items, items.fitting().groupScale(id, proposal));
    use(0, children[0], arrangeTransparent(proposal, SubviewProxy{items, children[0]}).target);
    return;
  }
  use(0, children[0], items.arrangeTarget(id, proposal).target);
  if (children.size() < 2) return;
  const auto& modifier = *std::get<const viewkit::Modifier*>(item.what);
  use(1, children[1], placeIn(items, children[1], own, own, contentAlignment(modifier)));
}

template <class Use>
void forEachPlaceInStack(LayoutItems& items,
                         const LayoutItem& item,
                         const viewkit::StackElement& stack,
                         const Proposal& proposal,
                         const Use& use) {
  StackRecord record(items, item);
  const std::span<StackChild> children = record.children();
  static_cast<void>(arrangeStack(stack, cleanProposal(proposal), items, children));
  const std::vector<std::uint32_t> order = drawingOrder(items, item);
  for (std::size_t i = 0; i < children.size(); ++i) {
    const StackChild& child = children[order.empty() ? i : order[i]];
    use(i, child.item, child.place);
  }
}

template <class Use>
void forEachPlaceOnCanvas(LayoutItems& items, const LayoutItem& item, Size canvas, const Use& use) {
  const std::span<const ItemId> children = items.children(item);
  const std::vector<std::uint32_t> order = drawingOrder(items, item);
  for (std::size_t i = 0; i < children.size(); ++i) {
    const ItemId child = children[order.empty() ? i : order[i]];
    setCanvas(items, child, canvas);
    use(i, child, placeIn(items, child, canvas, canvas, viewkit::Alignment::topLeading));
  }
}

/// Calls `use(index, child, place)` for each child of an item of size `own` that was made the
/// proposal, in drawing order; a modifier's target comes first.
template <class Use>
void forEachPlace(
    LayoutItems& items, ItemId id, Size own, const Proposal& proposal, const Use& use) {
  const LayoutItem& item = items[id];
  const auto* modifier = std::get_if<const viewkit::Modifier*>(&item.what);
  if (modifier) return forEachPlaceInModifier(items, id, own, proposal, use);
  if (item.childCount == 0) return;
  const viewkit::Element& element = *std::get<const viewkit::Element*>(item.what);
  if (const auto* stack = std::get_if<viewkit::StackElement>(&element)) {
    return forEachPlaceInStack(items, item, *stack, proposal, use);
  }
  if (std::holds_alternative<viewkit::CanvasElement>(element)) {
    return forEachPlaceOnCanvas(items, item, own, use);
  }
  if (std::holds_alternative<viewkit::FittingElement>(element)) {
    const ItemId child = items.fitting().chosen(id, proposal);
    return use(0, child, arrangeTransparent(proposal, SubviewProxy{items, child}).target);
  }
  const auto* gauge = std::get_if<viewkit::GaugeElement>(&element);
  const Size box = gauge ? gaugeLabelBox(*gauge, own) : own;
  const std::span<const ItemId> children = items.children(item);
  for (std::size_t i = 0; i < children.size(); ++i) {
    use(i, children[i], placeIn(items, children[i], box, own, {}));
  }
}

}  // namespace rendering
