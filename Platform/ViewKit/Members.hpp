// The members of every element, shape and modifier with their names and bounds, listed once for
// everything that writes, reads or prints trees.
//
// `MembersOf<T>::list(member)` calls `member(name, pointer, bounds)` for each. The first member of
// a record with `kLead` is what the record is about: it is always written, and printed without its
// name.
#pragma once

#include <string_view>

#include "Foundation/JsonMembers.hpp"
#include "ViewKit/View.hpp"

namespace viewkit {

using foundation::Bounds;
using foundation::defaultsOf;

inline constexpr double kLargestNumber = 1e6;

// Of numbers; for a length, of a constant one.
inline constexpr Bounds kAnyNumber{.least = -kLargestNumber, .most = kLargestNumber};
inline constexpr Bounds kNotNegative{.least = 0, .most = kLargestNumber};
inline constexpr Bounds kPositive{.least = 0, .most = kLargestNumber, .aboveLeast = true};
inline constexpr Bounds kUnit{.least = 0, .most = 1};
inline constexpr Bounds kScale{.least = 0, .most = 1, .aboveLeast = true};
inline constexpr Bounds kMaximum{.least = 0, .most = kLargestNumber, .infinity = true};
inline constexpr Bounds kLines{.least = 1, .most = kLargestNumber};

/// A string that names a file below the container.
struct ContainerPath {};

template <class T>
struct MembersOf;

// ---- elements

template <>
struct MembersOf<EmptyElement> {
  static constexpr std::string_view kName = "Empty";
  static void list(auto&&) {}
};
/// A stack's name is its axis.
template <>
struct MembersOf<StackElement> {
  static void list(auto&& member) {
    member("alignment", &StackElement::alignment);
    member("spacing", &StackElement::spacing, kAnyNumber);
  }
};
template <>
struct MembersOf<SpacerElement> {
  static constexpr std::string_view kName = "Spacer";
  static void list(auto&& member) { member("minLength", &SpacerElement::minLength, kNotNegative); }
};
template <>
struct MembersOf<TextElement> {
  static constexpr std::string_view kName = "Text";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member("text", &TextElement::text);
    member("size", &TextElement::size, kNotNegative);
    member("weight", &TextElement::weight);
    member("design", &TextElement::design);
    member("tracking", &TextElement::tracking, kAnyNumber);
    member("lineLimit", &TextElement::lineLimit, kLines);
    member("minimumScale", &TextElement::minimumScaleFactor, kScale);
    member("align", &TextElement::alignment);
    member("balanced", &TextElement::balanced);
    member("language", &TextElement::language);
    member("direction", &TextElement::direction);
    member("numericTransition", &TextElement::numericTransition);
    member("fallback", &TextElement::fallback);
  }
};
template <>
struct MembersOf<SymbolElement> {
  static constexpr std::string_view kName = "Symbol";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member("symbol", &SymbolElement::name);
    member("size", &SymbolElement::size, kNotNegative);
    member("weight", &SymbolElement::weight);
    member("fallback", &SymbolElement::fallback);
  }
};
template <>
struct MembersOf<ImageElement> {
  static constexpr std::string_view kName = "Image";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member("path", &ImageElement::path, ContainerPath{});
    member("mode", &ImageElement::mode);
    member("alignment", &ImageElement::alignment);
  }
};
/// A shape's name is its geometry's, whose members stand before these.
template <>
struct MembersOf<ShapeElement> {
  static void list(auto&& member) {
    member("mode", &ShapeElement::mode);
    member("paint", &ShapeElement::paint);
    member("lineWidth", &ShapeElement::lineWidth, kNotNegative);
    member("cap", &ShapeElement::cap);
    member("join", &ShapeElement::join);
    member("trimFrom", &ShapeElement::trimFrom, kUnit);
    member("trimTo", &ShapeElement::trimTo, kUnit);
  }
};
template <>
struct MembersOf<CanvasElement> {
  static constexpr std::string_view kName = "Canvas";
  static void list(auto&&) {}
};
template <>
struct MembersOf<GaugeElement> {
  static constexpr std::string_view kName = "Gauge";
  static void list(auto&& member) {
    member("fraction", &GaugeElement::fraction, kUnit);
    member("lineWidth", &GaugeElement::lineWidth, kNotNegative);
  }
};
template <>
struct MembersOf<FittingElement> {
  static constexpr std::string_view kName = "Fitting";
  static void list(auto&&) {}
};

// ---- shapes

template <>
struct MembersOf<RectangleShape> {
  static constexpr std::string_view kName = "Rectangle";
  static void list(auto&&) {}
};
template <>
struct MembersOf<RoundedRectangleShape> {
  static constexpr std::string_view kName = "RoundedRectangle";
  static void list(auto&& member) {
    member("radius", &RoundedRectangleShape::radius, kNotNegative);
    member("style", &RoundedRectangleShape::style);
  }
};
template <>
struct MembersOf<CapsuleShape> {
  static constexpr std::string_view kName = "Capsule";
  static void list(auto&&) {}
};
template <>
struct MembersOf<CircleShape> {
  static constexpr std::string_view kName = "Circle";
  static void list(auto&&) {}
};
template <>
struct MembersOf<ArcShape> {
  static constexpr std::string_view kName = "Arc";
  static void list(auto&& member) {
    member("center", &ArcShape::center);
    member("radius", &ArcShape::radius, kNotNegative);
    member("from", &ArcShape::startDegrees, kAnyNumber);
    member("to", &ArcShape::endDegrees, kAnyNumber);
  }
};
template <>
struct MembersOf<PathShape> {
  static constexpr std::string_view kName = "Path";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member("steps", &PathShape::steps); }
};

// ---- colours

template <>
struct MembersOf<Gradient> {
  static void list(auto&& member) {
    member("stops", &Gradient::stops);
    member("start", &Gradient::start);
    member("end", &Gradient::end);
  }
};

// ---- modifiers

template <>
struct MembersOf<FixedFrame> {
  static constexpr std::string_view kName = "frame";
  static void list(auto&& member) {
    member("width", &FixedFrame::width, kNotNegative);
    member("height", &FixedFrame::height, kNotNegative);
    member("alignment", &FixedFrame::alignment);
  }
};
template <>
struct MembersOf<FlexibleFrame> {
  static constexpr std::string_view kName = "flexibleFrame";
  static void list(auto&& member) {
    member("minWidth", &FlexibleFrame::minWidth, kNotNegative);
    member("maxWidth", &FlexibleFrame::maxWidth, kMaximum);
    member("minHeight", &FlexibleFrame::minHeight, kNotNegative);
    member("maxHeight", &FlexibleFrame::maxHeight, kMaximum);
    member("alignment", &FlexibleFrame::alignment);
  }
};
template <>
struct MembersOf<Padding> {
  static constexpr std::string_view kName = "padding";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Padding::insets); }
};
template <>
struct MembersOf<Background> {
  static constexpr std::string_view kName = "background";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member(kName, &Background::content);
    member("alignment", &Background::alignment);
  }
};
template <>
struct MembersOf<Overlay> {
  static constexpr std::string_view kName = "overlay";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member(kName, &Overlay::content);
    member("alignment", &Overlay::alignment);
  }
};
template <>
struct MembersOf<ForegroundStyle> {
  static constexpr std::string_view kName = "foreground";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &ForegroundStyle::paint); }
};
template <>
struct MembersOf<Opacity> {
  static constexpr std::string_view kName = "opacity";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Opacity::opacity, kUnit); }
};
template <>
struct MembersOf<Clip> {
  static constexpr std::string_view kName = "clip";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Clip::shape); }
};
template <>
struct MembersOf<Cutout> {
  static constexpr std::string_view kName = "cutout";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Cutout::shape); }
};
template <>
struct MembersOf<Shadow> {
  static constexpr std::string_view kName = "shadow";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member(kName, &Shadow::color);
    member("radius", &Shadow::radius, kNotNegative);
    member("x", &Shadow::x, kAnyNumber);
    member("y", &Shadow::y, kAnyNumber);
  }
};
template <>
struct MembersOf<Offset> {
  static constexpr std::string_view kName = "offset";
  static void list(auto&& member) {
    member("x", &Offset::x, kAnyNumber);
    member("y", &Offset::y, kAnyNumber);
  }
};
template <>
struct MembersOf<Position> {
  static constexpr std::string_view kName = "position";
  static void list(auto&& member) {
    member("x", &Position::x, kAnyNumber);
    member("y", &Position::y, kAnyNumber);
  }
};
template <>
struct MembersOf<ZIndex> {
  static constexpr std::string_view kName = "zIndex";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &ZIndex::index, kAnyNumber); }
};
template <>
struct MembersOf<AspectRatio> {
  static constexpr std::string_view kName = "aspectRatio";
  static constexpr bool kLead = true;
  static void list(auto&& member) {
    member(kName, &AspectRatio::ratio, kPositive);
    member("mode", &AspectRatio::mode);
  }
};
template <>
struct MembersOf<LayoutPriority> {
  static constexpr std::string_view kName = "layoutPriority";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &LayoutPriority::priority, kAnyNumber); }
};
template <>
struct MembersOf<FixedSize> {
  static constexpr std::string_view kName = "fixedSize";
  static void list(auto&& member) {
    member("horizontal", &FixedSize::horizontal);
    member("vertical", &FixedSize::vertical);
  }
};
template <>
struct MembersOf<Accessibility> {
  static constexpr std::string_view kName = "accessibility";
  static void list(auto&& member) {
    member("label", &Accessibility::label);
    member("value", &Accessibility::value);
    member("hidden", &Accessibility::hidden);
    member("children", &Accessibility::children);
  }
};
template <>
struct MembersOf<PrivacySensitive> {
  static constexpr std::string_view kName = "privacy";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &PrivacySensitive::treatment); }
};
template <>
struct MembersOf<Accentable> {
  static constexpr std::string_view kName = "accentable";
  static void list(auto&&) {}
};
template <>
struct MembersOf<Link> {
  static constexpr std::string_view kName = "link";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Link::url); }
};
template <>
struct MembersOf<WidgetURL> {
  static constexpr std::string_view kName = "widgetURL";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &WidgetURL::url); }
};
template <>
struct MembersOf<ContainerBackground> {
  static constexpr std::string_view kName = "containerBackground";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &ContainerBackground::content); }
};
template <>
struct MembersOf<SharedScale> {
  static constexpr std::string_view kName = "sharedScale";
  static void list(auto&&) {}
};
template <>
struct MembersOf<Direction> {
  static constexpr std::string_view kName = "layoutDirection";
  static constexpr bool kLead = true;
  static void list(auto&& member) { member(kName, &Direction::direction); }
};

template <class T>
inline constexpr bool hasLead = requires {
  MembersOf<T>::kLead;
};

}  // namespace viewkit
