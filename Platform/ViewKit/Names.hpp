// How enumerated values are spelled in the JSON form and in dumps.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "Foundation/Names.hpp"
#include "ViewKit/View.hpp"

namespace viewkit {

using foundation::named;
using foundation::NamedEnum;
using foundation::nameOf;

constexpr auto namesOf(FontWeight) {
  return foundation::names("regular", "medium", "semibold", "bold", "heavy");
}
constexpr auto namesOf(FontDesign) {
  return foundation::names("standard", "rounded");
}
constexpr auto namesOf(TextAlignment) {
  return foundation::names("leading", "center", "trailing");
}
constexpr auto namesOf(ImageElement::ContentMode) {
  return foundation::names("fit", "fill", "stretch");
}
constexpr auto namesOf(CornerStyle) {
  return foundation::names("circular", "continuous");
}
constexpr auto namesOf(ShapeElement::Mode) {
  return foundation::names("fill", "stroke", "innerStroke");
}
constexpr auto namesOf(LineCap) {
  return foundation::names("butt", "round", "square");
}
constexpr auto namesOf(LineJoin) {
  return foundation::names("miter", "round", "bevel");
}
constexpr auto namesOf(ColorRole) {
  return foundation::names("primary", "secondary");
}
constexpr auto namesOf(Accessibility::Children) {
  return foundation::names("contain", "combine", "ignore");
}
constexpr auto namesOf(PrivacyTreatment) {
  return foundation::names("masked", "covered");
}
constexpr auto namesOf(Length::Choice) {
  return foundation::names("min", "max");
}
/// Letters as in drawn outlines: move, line, cubic, close.
constexpr auto namesOf(PathStep::Verb) {
  return foundation::names("M", "L", "C", "Z");
}
constexpr auto namesOf(StackElement::Axis) {
  return foundation::names("HStack", "VStack", "ZStack");
}

/// Alignments have one name each: the vertical part, then the horizontal one; "center" where both
/// are.
inline constexpr std::array<std::array<std::string_view, 3>, 4> kAlignmentNames{{
    {"topLeading", "top", "topTrailing"},
    {"leading", "center", "trailing"},
    {"bottomLeading", "bottom", "bottomTrailing"},
    {"firstTextBaselineLeading", "firstTextBaseline", "firstTextBaselineTrailing"},
}};

[[nodiscard]] constexpr std::string_view nameOf(Alignment alignment) {
  return kAlignmentNames[static_cast<std::size_t>(alignment.vertical)]
                        [static_cast<std::size_t>(alignment.horizontal)];
}

[[nodiscard]] constexpr std::optional<Alignment> namedAlignment(std::string_view name) {
  for (std::size_t row = 0; row < kAlignmentNames.size(); ++row) {
    const auto found = std::ranges::find(kAlignmentNames[row], name);
    if (found == kAlignmentNames[row].end()) continue;
    return Alignment{static_cast<HorizontalAlignment>(found - kAlignmentNames[row].begin()),
                     static_cast<VerticalAlignment>(row)};
  }
  return std::nullopt;
}

}  // namespace viewkit
