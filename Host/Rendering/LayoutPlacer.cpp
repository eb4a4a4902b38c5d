#include "Rendering/LayoutPlacer.hpp"

#include <algorithm>
#include <numeric>

#include "Rendering/LayoutAlignment.hpp"
#include "Rendering/LayoutLeaves.hpp"
#include "Rendering/LayoutNumbers.hpp"

namespace rendering {

using namespace viewkit;

namespace {

double alignedStart(TextAlignment alignment, bool mirrored, double space) {
  if (alignment == TextAlignment::center) return space / 2;
  const bool atLeft = (alignment == TextAlignment::leading) != mirrored;
  return atLeft ? 0 : space;
}

/// What relative lengths of the node resolve against: a definite length, the node's own where none
/// was proposed.
Size definite(const Proposal& reference, const Rect& frame) {
  const auto length = [](std::optional<double> proposed, double own) {
    return proposed && std::isfinite(*proposed) ? *proposed : own;
  };
  return {length(reference.width, frame.width), length(reference.height, frame.height)};
}

const Alignment& alignmentOf(const Modifier& modifier) {
  const auto* background = std::get_if<Background>(&modifier);
  return background ? background->alignment : std::get<Overlay>(modifier).alignment;
}

}  // namespace

void LayoutPlacer::place(ItemId id, const Rect& frame, const Proposal& proposal, PlacedNode& out) {
  const LayoutItem& item = items_[id];
  out.what = item.what;
  out.source = item.source;
  out.direction = item.direction;
  out.frame = {cleanNumber(frame.x),
               cleanNumber(frame.y),
               std::min(cleanLength(frame.width), kFarthest),
               std::min(cleanLength(frame.height), kFarthest)};
  out.proposal = definite(cleanProposal(item.reference(proposal)), out.frame);
  if (out.modifier()) {
    placeModifier(id, proposal, out);
  } else {
    placeElement(id, proposal, out);
  }
}

void LayoutPlacer::placeChild(ItemId child,
                              const ChildPlace& place,
                              const PlacedNode& parent,
                              PlacedNode& out) {
  const Rect& box = parent.frame;
  const bool mirrored = parent.direction == LayoutDirection::rightToLeft;
  const double x =
      mirrored ? box.right() - place.origin.x - place.answer.width : box.x + place.origin.x;
  this->place(child,
              {x, box.y + place.origin.y, place.answer.width, place.answer.height},
              place.offer,
              out);
}

ChildPlace LayoutPlacer::alignedIn(ItemId child, Size box, Size own, Alignment alignment) {
  const Answer answer = items_.measure(child, proposalOf(box));
  return {proposalOf(box), answer, alignedOrigin(alignment, own, answer)};
}

void LayoutPlacer::placeModifier(ItemId id, const Proposal& proposal, PlacedNode& out) {
  const std::span<const ItemId> children = items_.children(items_[id]);
  out.children.resize(children.size());
  placeChild(children[0], items_.arrangeTarget(id, proposal).target, out, out.children[0]);
  if (children.size() < 2) return;
  const Size own{out.frame.width, out.frame.height};
  const ChildPlace side = alignedIn(children[1], own, own, alignmentOf(*out.modifier()));
  placeChild(children[1], side, out, out.children[1]);
}

void LayoutPlacer::placeElement(ItemId id, const Proposal& proposal, PlacedNode& out) {
  const LayoutItem& item = items_[id];
  const Element& element = *out.element();
  const Size own{out.frame.width, out.frame.height};
  if (const auto* stack = std::get_if<StackElement>(&element)) {
    placeStack(item, *stack, proposal, out);
  } else if (std::holds_alternative<TextElement>(element)) {
    placeText(item, proposal, out);
  } else if (std::holds_alternative<CanvasElement>(element)) {
    placeCanvas(item, out);
  } else if (const auto* gauge = std::get_if<GaugeElement>(&element)) {
    placeInBox(item, gaugeLabelBox(*gauge, own), out);
  } else if (std::holds_alternative<ImageElement>(element)) {
    placeInBox(item, own, out);
  } else {
    out.proposal = own;  // a shape is as large as its proposal, and 10 where there is none
  }
}

std::vector<std::uint32_t> LayoutPlacer::drawingOrder(const LayoutItem& item) {
  const std::span<const ItemId> children = items_.children(item);
  std::vector<std::uint32_t> order(children.size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    return items_[children[a]].zIndex < items_[children[b]].zIndex;
  });
  return order;
}

void LayoutPlacer::placeStack(const LayoutItem& item,
                              const StackElement& stack,
                              const Proposal& proposal,
                              PlacedNode& out) {
  StackRecord record(items_, item);
  const std::span<StackChild> children = record.children();
  static_cast<void>(arrangeStack(stack, cleanProposal(proposal), items_, children));
  out.children.resize(children.size());
  const std::vector<std::uint32_t> order = drawingOrder(item);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const StackChild& child = children[order[i]];
    placeChild(child.item, child.place, out, out.children[i]);
  }
}

void LayoutPlacer::placeCanvas(const LayoutItem& item, PlacedNode& out) {
  const Size canvas{out.frame.width, out.frame.height};
  const std::span<const ItemId> children = items_.children(item);
  out.children.resize(children.size());
  const std::vector<std::uint32_t> order = drawingOrder(item);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const ItemId child = children[order[i]];
    // Nothing asks a canvas's children before the canvas has its size.
    for (ItemId at = child; items_[at].onCanvas; at = items_.children(items_[at])[0]) {
      items_[at].canvas = canvas;
    }
    placeChild(
        child, alignedIn(child, canvas, canvas, Alignment::topLeading), out, out.children[i]);
  }
}

void LayoutPlacer::placeInBox(const LayoutItem& item, Size box, PlacedNode& out) {
  const Size own{out.frame.width, out.frame.height};
  const std::span<const ItemId> children = items_.children(item);
  out.children.resize(children.size());
  for (std::size_t i = 0; i < children.size(); ++i) {
    placeChild(children[i], alignedIn(children[i], box, own, {}), out, out.children[i]);
  }
}

void LayoutPlacer::placeText(const LayoutItem& item, const Proposal& proposal, PlacedNode& out) {
  TextLayout& layout = items_.text(item);
  const TextLayout::Fit& fit = layout.fit(cleanProposal(proposal));
  const auto& element = std::get<TextElement>(*out.element());
  auto text = std::make_unique<PlacedText>();
  text->paragraph = layout.paragraph();
  text->scale = fit.scale;
  text->size = layout.size() * fit.scale;
  text->tracking = layout.tracking() * fit.scale;
  const bool mirrored = item.direction == LayoutDirection::rightToLeft;
  const double lineHeight = fit.answer.height / static_cast<double>(fit.lines.size());
  double baseline = out.frame.y + fit.answer.baseline.value_or(0);
  text->lines.reserve(fit.lines.size());
  for (const TextLayout::Line& line : fit.lines) {
    const double width = line.width * fit.scale;
    const double start = alignedStart(element.alignment, mirrored, out.frame.width - width);
    text->lines.push_back(
        {line.first, line.last, line.ellipsis, out.frame.x + start, baseline, width});
    baseline += lineHeight;
  }
  out.text = std::move(text);
}

}  // namespace rendering
