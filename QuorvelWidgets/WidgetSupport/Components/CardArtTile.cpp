#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"

#include <ranges>

#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"

namespace quorvel {

using namespace viewkit;

std::vector<Color> faceColors(const std::vector<std::string>& gradient) {
  if (gradient.empty()) {
    return {Color::same(0x3F3F46), Color::same(0x27272A), Color::same(0x09090B)};
  }
  // More stops than a face has room to show would only make the tree longer.
  constexpr std::size_t kMostColors = 32;
  std::vector<Color> colors;
  for (const std::string& color : gradient | std::views::take(kMostColors)) {
    colors.push_back(Color::same(parseHexColor(color)));
  }
  return colors;
}

namespace {

View face(const CardArtTile& tile) {
  // An accented host keeps nothing but opacity to tell the face from its texts.
  if (tile.renderingMode == RenderingMode::accented) {
    return Rectangle().fill(Color::primary().withOpacity(0.14));
  }
  View gradient = LinearGradient(Gradient::even(faceColors(tile.card.gradient), {0, 0}, {1, 1}));
  if (!tile.card.hasImage) return gradient;
  const ImageElement art{.path = cardImagePath(tile.card.id),
                         .mode = ImageElement::ContentMode::fill,
                         .alignment = tile.alignment};
  return gradient.overlay(Image{art, View{}}, tile.alignment);
}

}  // namespace

View CardArtTile::body() const {
  return face(*this).clip(RoundedRectangleShape{cornerRadius, CornerStyle::continuous});
}

}  // namespace quorvel
