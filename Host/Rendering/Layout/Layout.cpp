#include "Rendering/Layout/Layout.hpp"

#include "Rendering/Layout/LayoutAlignment.hpp"
#include "Rendering/Layout/LayoutItems.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"
#include "Rendering/Layout/LayoutPlacer.hpp"

namespace rendering {

using viewkit::View;

LayoutTree layOut(const View& view, const LayoutOptions& options, TextMeasurer& measurer) {
  const Size size{cleanLength(cleanNumber(options.size.width)),
                  cleanLength(cleanNumber(options.size.height))};
  LayoutTree tree{view, size, {}};
  LayoutItems items(tree.view, options, measurer);
  const MeasuredSize answer = items.measure(items.root(), proposalOf(size));
  const Point origin = alignedOrigin({}, size, answer);
  LayoutPlacer(items).place(
      items.root(), {origin.x, origin.y, answer.width, answer.height}, proposalOf(size), tree.root);
  return tree;
}

}  // namespace rendering
