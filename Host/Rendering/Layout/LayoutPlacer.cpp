#include "Rendering/Layout/LayoutPlacer.hpp"

#include <algorithm>

#include "Rendering/Layout/LayoutNumbers.hpp"
#include "Rendering/Layout/LayoutPlaces.hpp"

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
  out.children.resize(placeCount(item));
  const Size own{out.frame.width, out.frame.height};
  if (item.text != kNone) {
    placeText(item, proposal, out);
  } else if (out.element() && std::holds_alternative<ShapeElement>(*out.element())) {
    out.proposal = own;  // a shape is as large as its proposal, and 10 where there is none
  }
  forEachPlace(items_, id, own, proposal, [&](std::size_t i, ItemId child, const ChildPlace& at) {
    placeChild(child, at, out, out.children[i]);
  });
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

void LayoutPlacer::placeText(const LayoutItem& item, const Proposal& proposal, PlacedNode& out) {
  TextLayout& layout = items_.text(item);
  const TextLayout::Fit& fit = layout.fit(cleanProposal(proposal), items_.scaleLimit());
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
