#include "QuorvelWidgets/Due/DueTile.hpp"

#include <algorithm>

#include "Foundation/Characters.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::RenderingMode;

namespace {

// What a host tints keeps no white, only opacity.
Color inkOf(const DueTile& tile) {
  return tile.renderingMode == RenderingMode::fullColor ? Color::white() : Color::primary();
}

/// A symbol's tile has the corners of every icon tile.
CornerStyle cornersOf(const DueTile& tile) {
  return tile.due.symbol ? CornerStyle::circular : CornerStyle::continuous;
}

/// The first character that every host can draw; empty if there is none.
std::string plainInitial(std::string_view name) {
  const auto clusters = foundation::graphemeClusters(name);
  const auto found = std::ranges::find_if(clusters, [](std::string_view cluster) {
    return !foundation::isEmoji(cluster) && !foundation::trimmingSpaces(cluster).empty();
  });
  return found == clusters.end() ? std::string() : foundation::uppercasedFirstCharacter(*found);
}

/// A host without a font for pictures begins with the first letter.
Text initial(std::string_view name) {
  const std::string first = foundation::uppercasedFirstCharacter(name);
  const std::string plain = plainInitial(name);
  return plain == first ? Text{first} : Text{first}.fallback(plain);
}

View mark(const DueTile& tile) {
  const Color ink = inkOf(tile);
  if (tile.due.symbol) {
    return WidgetIconTile{.symbol = *tile.due.symbol,
                          .color = ink,
                          .background = ink.withOpacity(0.18),
                          .size = tile.size,
                          .fallback = "receipt"};
  }
  const View letter = initial(tile.due.name)
                          .font(tile.size * 0.46, FontWeight::heavy)
                          .lineLimit(1)
                          .minimumScaleFactor(0.5)
                          .foregroundStyle(ink)
                          .frame(FixedFrame{.width = tile.size * 0.6})
                          .frame(FixedFrame{.width = tile.size, .height = tile.size});
  return letter.background(
      RoundedRectangle(tile.size * 0.3, cornersOf(tile)).fill(ink.withOpacity(0.18)));
}

View drawnTile(const DueTile& tile) {
  View plain = mark(tile);
  if (tile.onFace || tile.renderingMode != RenderingMode::fullColor) return plain;
  // The veil that a white text needs leaves a mark on its paler ground 3:1.
  const auto colors = readableFace(tile.due.face.value_or(std::vector<std::string>{}));
  const View face =
      faceGround(colors, 1).clip(RoundedRectangleShape{tile.size * 0.3, cornersOf(tile)});
  return plain.background(face);
}

}  // namespace

View DueTile::body() const {
  const View drawn = drawnTile(*this);
  const bool hasBrand = due.brandId && renderingMode != RenderingMode::accented;
  if (!hasBrand) return drawn.accessibilityHidden();
  const ImageElement brand{.path = brandImagePath(*due.brandId),
                           .mode = ImageElement::ContentMode::stretch};
  return Image{brand, drawn}
      .frame(FixedFrame{.width = size, .height = size})
      .clip(RoundedRectangleShape{size * 0.3, CornerStyle::continuous})
      .accessibilityHidden();
}

}  // namespace quorvel
