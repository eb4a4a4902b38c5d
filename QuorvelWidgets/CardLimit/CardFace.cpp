#include "QuorvelWidgets/CardLimit/CardFace.hpp"

#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

Color faceTextColor(RenderingMode mode) {
  return mode == RenderingMode::accented ? Color::primary() : Color::white();
}

View cardFace(const WidgetSnapshot::Card& card,
              double cornerRadius,
              Alignment artAlignment,
              std::optional<double> textOpacity,
              double textFoot,
              RenderingMode mode) {
  View tile = CardArtTile{
      .card = card, .cornerRadius = cornerRadius, .alignment = artAlignment, .renderingMode = mode};
  const double veil = mode == RenderingMode::accented ? 0 : faceVeil(card.gradient, textOpacity);
  if (veil == 0) return tile;
  return tile.overlay(
      RoundedRectangle(cornerRadius, CornerStyle::continuous).fill(veilGradient(veil, textFoot)));
}

View cardTitleText(const WidgetSnapshot::Card& card,
                   double size,
                   std::string_view lang,
                   RenderingMode mode) {
  return Text{cardTitle(card)}
      .font(size, FontWeight::bold)
      .lineLimit(1)
      .language(std::string{lang})
      .foregroundStyle(faceTextColor(mode));
}

}  // namespace quorvel
