#include "QuorvelWidgets/CardLimit/CardFace.hpp"

#include <algorithm>

#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

Color faceTextColor(RenderingMode mode) {
  return mode == RenderingMode::accented ? Color::primary() : Color::white();
}

namespace {

double veilOver(const WidgetSnapshot::Card& card,
                std::optional<double> textOpacity,
                RenderingMode mode) {
  return mode == RenderingMode::accented ? 0 : faceVeil(card.gradient, textOpacity);
}

}  // namespace

View cardFace(const WidgetSnapshot::Card& card,
              double cornerRadius,
              Alignment artAlignment,
              std::optional<double> textOpacity,
              double textFoot,
              RenderingMode mode) {
  View tile = CardArtTile{
      .card = card, .cornerRadius = cornerRadius, .alignment = artAlignment, .renderingMode = mode};
  const double veil = veilOver(card, textOpacity, mode);
  if (veil == 0 || hidesTheFace(veil)) return tile;
  const auto shape = RoundedRectangle(cornerRadius, CornerStyle::continuous);
  return tile.overlay(shape.fill(veilGradient(veil, textFoot)));
}

View paleEdge(const WidgetSnapshot::Card& card,
              double cornerRadius,
              std::optional<double> textOpacity,
              RenderingMode mode) {
  if (!hidesTheFace(veilOver(card, textOpacity, mode))) return {};
  return RoundedRectangle(cornerRadius, CornerStyle::continuous)
      .innerStroke(Color::black().withOpacity(0.12), 1);
}

View onFace(const View& text,
            const WidgetSnapshot::Card& card,
            double textOpacity,
            Insets around,
            RenderingMode mode) {
  if (mode == RenderingMode::accented) return text;
  const double veil = faceVeil(card.gradient, textOpacity);
  if (!hidesTheFace(veil)) return text;
  const Insets outwards{-around.top, -around.leading, -around.bottom, -around.trailing};
  return text.background(RoundedRectangle(kHeight * 0.5, CornerStyle::continuous)
                             .fill(Color::black().withOpacity(std::max(veil, kPillOpacity)))
                             .padding(outwards));
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
