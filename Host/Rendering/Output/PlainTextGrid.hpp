// Labels with places in points, set into rows and columns of characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"

namespace rendering {

/// A run of characters of a plain-text picture and the line box that it comes from.
struct PlainLabel {
  std::string text;
  Rect box;
  double baseline = 0;
  double size = 0;  ///< of the font; labels of one row have baselines less than half of it apart
};

/// Columns that a terminal needs: two for wide characters, none for marks and invisible ones.
[[nodiscard]] int columnsOf(std::string_view text);

/// The text without directional isolates and line breaks.
[[nodiscard]] std::string withoutIsolates(std::string_view text);

struct PlainGrid {
  double width = 0;  ///< of the picture, in points
  double height = 0;
  double cellWidth = 1;
  double cellHeight = 1;
  int columns = 80;
};

/// The rows, each ended by a line break, without trailing spaces. Labels that would collide move
/// apart; those that stand above or below the picture are left out.
[[nodiscard]] std::string setInGrid(std::vector<PlainLabel> labels, const PlainGrid& grid);

}  // namespace rendering
