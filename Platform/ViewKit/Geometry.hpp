// Alignments, insets and directions that views are described with. All lengths are points.
#pragma once

#include <cstdint>

#include "Foundation/Names.hpp"

namespace viewkit {

enum class HorizontalAlignment : std::uint8_t { leading, center, trailing };
enum class VerticalAlignment : std::uint8_t { top, center, bottom, firstTextBaseline };

struct Alignment {
  HorizontalAlignment horizontal = HorizontalAlignment::center;
  VerticalAlignment vertical = VerticalAlignment::center;

  friend bool operator==(const Alignment&, const Alignment&) = default;

  static const Alignment center, top, bottom, leading, trailing;
  static const Alignment topLeading, topTrailing, bottomLeading, bottomTrailing;
};

inline constexpr Alignment Alignment::center{};
inline constexpr Alignment Alignment::top{HorizontalAlignment::center, VerticalAlignment::top};
inline constexpr Alignment Alignment::bottom{HorizontalAlignment::center,
                                             VerticalAlignment::bottom};
inline constexpr Alignment Alignment::leading{HorizontalAlignment::leading,
                                              VerticalAlignment::center};
inline constexpr Alignment Alignment::trailing{HorizontalAlignment::trailing,
                                               VerticalAlignment::center};
inline constexpr Alignment Alignment::topLeading{HorizontalAlignment::leading,
                                                 VerticalAlignment::top};
inline constexpr Alignment Alignment::topTrailing{HorizontalAlignment::trailing,
                                                  VerticalAlignment::top};
inline constexpr Alignment Alignment::bottomLeading{HorizontalAlignment::leading,
                                                    VerticalAlignment::bottom};
inline constexpr Alignment Alignment::bottomTrailing{HorizontalAlignment::trailing,
                                                     VerticalAlignment::bottom};

/// Space inside each edge; leading is left in left-to-right layouts.
struct Insets {
  double top = 0;
  double leading = 0;
  double bottom = 0;
  double trailing = 0;

  static constexpr Insets all(double points) { return {points, points, points, points}; }
  static constexpr Insets horizontal(double points) { return {0, points, 0, points}; }
  static constexpr Insets vertical(double points) { return {points, 0, points, 0}; }

  friend bool operator==(const Insets&, const Insets&) = default;
};

enum class LayoutDirection : std::uint8_t { leftToRight, rightToLeft };
constexpr auto namesOf(LayoutDirection) {
  return foundation::names("leftToRight", "rightToLeft");
}

/// A place in a unit square: (0, 0) is top leading, (1, 1) bottom trailing.
struct UnitPoint {
  double x = 0;
  double y = 0;

  friend bool operator==(const UnitPoint&, const UnitPoint&) = default;
};

}  // namespace viewkit
