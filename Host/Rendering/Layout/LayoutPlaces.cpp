#include "Rendering/Layout/LayoutPlaces.hpp"

namespace rendering {

std::size_t placeCount(const LayoutItem& item) {
  const auto* element = std::get_if<const viewkit::Element*>(&item.what);
  const bool takesOne = element && std::holds_alternative<viewkit::FittingElement>(**element);
  return takesOne ? std::min(item.childCount, 1U) : item.childCount;
}

ChildPlace placeIn(
    LayoutItems& items, ItemId child, Size box, Size own, viewkit::Alignment alignment) {
  const MeasuredSize answer = items.measure(child, proposalOf(box));
  return {proposalOf(box), answer, alignedOrigin(alignment, own, answer)};
}

viewkit::Alignment contentAlignment(const viewkit::Modifier& modifier) {
  const auto* background = std::get_if<viewkit::Background>(&modifier);
  return background ? background->alignment : std::get<viewkit::Overlay>(modifier).alignment;
}

std::vector<std::uint32_t> drawingOrder(const LayoutItems& items, const LayoutItem& item) {
  const std::span<const ItemId> children = items.children(item);
  const auto zIndex = [&](ItemId child) { return items[child].zIndex; };
  if (std::ranges::is_sorted(children, {}, zIndex)) return {};
  std::vector<std::uint32_t> order(children.size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    return zIndex(children[a]) < zIndex(children[b]);
  });
  return order;
}

void setCanvas(LayoutItems& items, ItemId child, Size canvas) {
  for (ItemId at = child; items[at].onCanvas; at = items.children(items[at])[0]) {
    LayoutItem& item = items[at];
    // Answers to a canvas of another size say nothing about this one.
    if (!(item.canvas == canvas)) item.firstMemo = item.firstFinding = kNone;
    item.canvas = canvas;
  }
}

}  // namespace rendering
