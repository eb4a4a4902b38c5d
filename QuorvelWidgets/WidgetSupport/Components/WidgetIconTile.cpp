#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetIconTile::body() const {
  return Symbol{symbol}
      .font(size * 0.5, FontWeight::semibold)
      .fallback(fallback)
      .foregroundStyle(color)
      .frame(FixedFrame{.width = size, .height = size})
      .background(RoundedRectangle(size * 0.3).fill(background))
      .accessibilityHidden();
}

}  // namespace quorvel
