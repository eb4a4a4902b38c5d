// How enumerated values are spelled in the JSON form and in dumps.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "ViewKit/View.hpp"

namespace viewkit {

/// The names of an enumeration's values, in their order.
template <class Enum>
struct NamesOf;

template <>
struct NamesOf<FontWeight> {
  static constexpr std::array<std::string_view, 5> kAll{
      "regular", "medium", "semibold", "bold", "heavy"};
};
template <>
struct NamesOf<FontDesign> {
  static constexpr std::array<std::string_view, 2> kAll{"standard", "rounded"};
};
template <>
struct NamesOf<TextAlignment> {
  static constexpr std::array<std::string_view, 3> kAll{"leading", "center", "trailing"};
};
template <>
struct NamesOf<LayoutDirection> {
  static constexpr std::array<std::string_view, 2> kAll{"leftToRight", "rightToLeft"};
};
template <>
struct NamesOf<ImageElement::ContentMode> {
  static constexpr std::array<std::string_view, 3> kAll{"fit", "fill", "stretch"};
};
template <>
struct NamesOf<CornerStyle> {
  static constexpr std::array<std::string_view, 2> kAll{"circular", "continuous"};
};
template <>
struct NamesOf<ShapeElement::Mode> {
  static constexpr std::array<std::string_view, 3> kAll{"fill", "stroke", "innerStroke"};
};
template <>
struct NamesOf<LineCap> {
  static constexpr std::array<std::string_view, 3> kAll{"butt", "round", "square"};
};
template <>
struct NamesOf<LineJoin> {
  static constexpr std::array<std::string_view, 3> kAll{"miter", "round", "bevel"};
};
template <>
struct NamesOf<ColorRole> {
  static constexpr std::array<std::string_view, 2> kAll{"primary", "secondary"};
};
template <>
struct NamesOf<Accessibility::Children> {
  static constexpr std::array<std::string_view, 3> kAll{"contain", "combine", "ignore"};
};
template <>
struct NamesOf<PrivacyTreatment> {
  static constexpr std::array<std::string_view, 2> kAll{"masked", "covered"};
};
template <>
struct NamesOf<Length::Choice> {
  static constexpr std::array<std::string_view, 2> kAll{"min", "max"};
};
/// Letters as in drawn outlines: move, line, cubic, close.
template <>
struct NamesOf<PathStep::Verb> {
  static constexpr std::array<std::string_view, 4> kAll{"M", "L", "C", "Z"};
};
template <>
struct NamesOf<StackElement::Axis> {
  static constexpr std::array<std::string_view, 3> kAll{"HStack", "VStack", "ZStack"};
};

template <class Enum>
concept NamedEnum = requires {
  NamesOf<Enum>::kAll;
};

template <NamedEnum Enum>
[[nodiscard]] constexpr std::string_view nameOf(Enum value) {
  return NamesOf<Enum>::kAll[static_cast<std::size_t>(value)];
}

template <NamedEnum Enum>
[[nodiscard]] constexpr std::optional<Enum> named(std::string_view name) {
  const auto found = std::ranges::find(NamesOf<Enum>::kAll, name);
  if (found == NamesOf<Enum>::kAll.end()) return std::nullopt;
  return static_cast<Enum>(found - NamesOf<Enum>::kAll.begin());
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
