#include "QuorvelWidgets/WidgetSupport/WidgetHeader.hpp"

#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetIconTile.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetHeader::body() const {
  return HStack{
      {.spacing = compact ? 6 : 7},
      WidgetIconTile{.symbol = symbol,
                     .color = accent.ink,
                     .background = accent.soft,
                     .size = compact ? 18.0 : 22.0},
      Text{text}
          .font(compact ? 11.5 : 13)
          .lineLimit(1)
          .minimumScaleFactor(0.85)
          .language(lang)
          .foregroundStyle(palette::textSecondary),
  };
}

}  // namespace quorvel
