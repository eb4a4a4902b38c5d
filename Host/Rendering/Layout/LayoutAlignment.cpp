#include "Rendering/Layout/LayoutAlignment.hpp"

#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

using viewkit::HorizontalAlignment;
using viewkit::VerticalAlignment;

double horizontalGuide(HorizontalAlignment alignment, const MeasuredSize& view) {
  switch (alignment) {
    case HorizontalAlignment::leading:
      return 0;
    case HorizontalAlignment::center:
      return view.width / 2;
    case HorizontalAlignment::trailing:
      return view.width;
  }
  return 0;
}

double verticalGuide(VerticalAlignment alignment, const MeasuredSize& view) {
  switch (alignment) {
    case VerticalAlignment::top:
      return 0;
    case VerticalAlignment::center:
      return view.height / 2;
    case VerticalAlignment::bottom:
      return view.height;
    case VerticalAlignment::firstTextBaseline:
      return view.baseline.value_or(view.height);
  }
  return 0;
}

Point alignedOrigin(viewkit::Alignment alignment, Size box, const MeasuredSize& child) {
  const MeasuredSize own{box.width, box.height, {}};
  return {cleanNumber(horizontalGuide(alignment.horizontal, own) -
                      horizontalGuide(alignment.horizontal, child)),
          cleanNumber(verticalGuide(alignment.vertical, own) -
                      verticalGuide(alignment.vertical, child))};
}

std::optional<double> carriedBaseline(const MeasuredSize& child, Point origin) {
  if (!child.baseline) return std::nullopt;
  return cleanNumber(origin.y + *child.baseline);
}

}  // namespace rendering
