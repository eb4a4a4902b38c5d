// From a symbol's name and weight to its outline.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Rendering/Graphics/ShapePath.hpp"
#include "Rendering/Text/Font.hpp"
#include "ViewKit/Elements.hpp"

namespace rendering {

enum class SymbolContainer : std::uint8_t { none, circle, solidCircle, square, solidSquare };

/// What a name stands for.
struct SymbolRecipe {
  int icon = -1;   ///< -1: `letters` stand in its place
  int badge = -1;  ///< an icon, or -1
  SymbolContainer container = SymbolContainer::none;
  std::string letters;  ///< in capitals
  friend bool operator==(const SymbolRecipe&, const SymbolRecipe&) = default;
};

/// A row of the table.
[[nodiscard]] std::optional<SymbolRecipe> findSymbol(std::string_view name);

/// Every name gives a symbol: its own row; without its last modifiers; the longest known beginning;
/// letters in a container; then `fallback` by the same rules; at last a tag.
[[nodiscard]] SymbolRecipe resolveSymbol(std::string_view name, std::string_view fallback = {});

/// Names that turn round where text runs from right to left.
[[nodiscard]] bool mirrorsInRightToLeft(std::string_view name);

/// Coordinates in em of the symbol's font size around the middle of its box, y downwards.
struct SymbolLayer {
  Path path;
  FillRule fillRule = FillRule::nonZero;
  bool erases = false;  ///< cuts out of the layers before it
  bool fills = true;
  double stroke = 0;  ///< em, round joins; drawn besides the filling
};

struct SymbolDrawing {
  std::uint32_t id = 0;
  std::string name;
  std::vector<SymbolLayer> layers;
  Rect bounds;  ///< of all layers, strokes included
};

class SymbolLibrary {
 public:
  explicit SymbolLibrary(FontLibrary& fonts) : fonts_(fonts) {}

  /// Stays valid until `trim`.
  [[nodiscard]] const SymbolDrawing& drawing(std::string_view name,
                                             std::string_view fallback,
                                             viewkit::FontWeight weight);
  /// Forgets everything once a hostile number of names has been seen; ids are never used twice.
  void trim();

 private:
  FontLibrary& fonts_;
  std::string key_;
  std::uint32_t nextId_ = 0;
  std::unordered_map<std::string, std::unique_ptr<SymbolDrawing>> drawings_;
};

/// The paths of one icon in units of its 16-unit box, whose middle is the origin.
[[nodiscard]] std::vector<SymbolLayer> iconLayers(int icon);

}  // namespace rendering
