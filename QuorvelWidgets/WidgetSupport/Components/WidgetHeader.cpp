#include "QuorvelWidgets/WidgetSupport/Components/WidgetHeader.hpp"

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"

namespace quorvel {

using namespace viewkit;

View WidgetHeader::body() const {
  const View tile = WidgetIconTile{.symbol = symbol,
                                   .color = accent.ink,
                                   .background = accent.soft,
                                   .size = compact ? 18.0 : 22.0};
  const Text words = Text{text}.font(compact ? 11.5 : 13).minimumScaleFactor(0.85).language(lang);
  const View oneLine = words.lineLimit(1).foregroundStyle(colors.caption());
  const View twoLines = words.lineLimit(2).foregroundStyle(colors.caption());
  // On the narrowest screens a title takes a second line or the tile's room rather than lose its
  // end.
  return Fitting{HStack{{.spacing = compact ? 6.0 : 7.0}, tile, Fitting{oneLine, twoLines}},
                 oneLine}
      .layoutPriority(1);
}

}  // namespace quorvel
