#include "QuorvelWidgets/WidgetSupport/Components/WidgetPill.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetPill::body() const {
  return HStack{
      {.spacing = 3},
      Symbol{symbol}.font(size - 2, FontWeight::bold).accessibilityHidden(),
      Text{text}.font(size - 2, FontWeight::semibold).lineLimit(1).language(lang),
  }
      .padding(Insets::horizontal(size * 0.62))
      .frame(FixedFrame{.height = size + 8.5})
      .foregroundStyle(color)
      .background(Capsule().fill(color.withOpacity(0.16)));
}

}  // namespace quorvel
