// Where things stand on a contact sheet, in points. Numbers only; nothing is drawn here.
#pragma once

#include <cstddef>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"

namespace cli {

/// Places of some boxes, and how much room they take together.
struct Packing {
  rendering::Size size{0, 0};
  std::vector<rendering::Point> places;
};

/// A row as high as its tallest picture. The others keep their order in columns: each stands below
/// the one before it where the row is high enough for both, and the lowest reaches the row's foot.
[[nodiscard]] Packing packRow(const std::vector<rendering::Size>& pictures, double gap);

/// Rows one below the other, going on at the top of a further column, all as wide as the widest.
/// There are as many columns as bring `panels` such pictures side by side nearest to a square.
[[nodiscard]] Packing flowRows(const std::vector<rendering::Size>& rows,
                               double rowGap,
                               double columnGap,
                               std::size_t panels);

}  // namespace cli
