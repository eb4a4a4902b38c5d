// The elements that views are made of, as plain records. Containers hold their children in the
// node.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "ViewKit/Color.hpp"
#include "ViewKit/Geometry.hpp"
#include "ViewKit/Length.hpp"

namespace viewkit {

enum class FontWeight : std::uint8_t { regular, medium, semibold, bold, heavy };
enum class FontDesign : std::uint8_t { standard, rounded };
enum class TextAlignment : std::uint8_t { leading, center, trailing };

/// Children in a row, a column or one over the other. Absent spacing is the system's (8 between
/// views, none beside a spacer); a depth stack has none.
struct StackElement {
  enum class Axis : std::uint8_t { horizontal, vertical, depth };
  Axis axis = Axis::vertical;
  Alignment alignment;
  std::optional<double> spacing;

  friend bool operator==(const StackElement&, const StackElement&) = default;
};

struct SpacerElement {
  std::optional<double> minLength;  ///< absent: 8

  friend bool operator==(const SpacerElement&, const SpacerElement&) = default;
};

struct TextElement {
  std::string text;  ///< UTF-8; may carry directional isolates
  double size = 17;
  FontWeight weight = FontWeight::regular;
  FontDesign design = FontDesign::standard;
  double tracking = 0;            ///< points added after every cluster
  std::optional<int> lineLimit;   ///< absent: as many lines as fit
  double minimumScaleFactor = 1;  ///< 0 < f <= 1
  TextAlignment alignment = TextAlignment::leading;
  bool balanced = false;  ///< lines of like length instead of greedy ones
  std::string language;   ///< BCP 47; chooses glyph forms and line breaks, not the text
  std::optional<LayoutDirection> direction;  ///< absent: the layout's
  bool numericTransition = false;  ///< digits roll when the value changes (content transition)
  std::string fallback;            ///< drawn where no font of the host draws anything of the text

  friend bool operator==(const TextElement&, const TextElement&) = default;
};

/// A symbol by its platform name, drawn in the foreground style at a font size.
struct SymbolElement {
  std::string name;
  double size = 17;
  FontWeight weight = FontWeight::regular;
  std::string fallback;  ///< symbol drawn when the name is unknown; empty: the host's choice

  friend bool operator==(const SymbolElement&, const SymbolElement&) = default;
};

/// An image file below the container. Takes the whole proposal; the node's only child, if any,
/// stands in for a file that is missing or cannot be decoded.
struct ImageElement {
  enum class ContentMode : std::uint8_t { fit, fill, stretch };
  std::string path;  ///< relative to the container, no leading slash, no ".."
  ContentMode mode = ContentMode::fit;
  Alignment alignment;

  friend bool operator==(const ImageElement&, const ImageElement&) = default;
};

enum class CornerStyle : std::uint8_t { circular, continuous };

struct RectangleShape {
  friend bool operator==(const RectangleShape&, const RectangleShape&) = default;
};
struct RoundedRectangleShape {
  Length radius;  ///< limited to half the shorter side
  CornerStyle style = CornerStyle::circular;
  friend bool operator==(const RoundedRectangleShape&, const RoundedRectangleShape&) = default;
};
struct CapsuleShape {
  friend bool operator==(const CapsuleShape&, const CapsuleShape&) = default;
};
struct CircleShape {
  friend bool operator==(const CircleShape&, const CircleShape&) = default;
};
/// Degrees, clockwise on screen from three o'clock (the leading-to-trailing direction).
struct ArcShape {
  LengthPoint center;
  Length radius;
  double startDegrees = 0;
  double endDegrees = 360;
  friend bool operator==(const ArcShape&, const ArcShape&) = default;
};
struct PathStep {
  enum class Verb : std::uint8_t { move, line, cubic, close };
  Verb verb = Verb::move;
  LengthPoint to{};        ///< end point of move, line and cubic
  LengthPoint control1{};  ///< cubic only
  LengthPoint control2{};
  friend bool operator==(const PathStep&, const PathStep&) = default;
};
struct PathShape {
  std::vector<PathStep> steps;
  friend bool operator==(const PathShape&, const PathShape&) = default;
};

using ShapeGeometry = std::
    variant<RectangleShape, RoundedRectangleShape, CapsuleShape, CircleShape, ArcShape, PathShape>;

enum class LineCap : std::uint8_t { butt, round, square };
enum class LineJoin : std::uint8_t { miter, round, bevel };

/// A shape takes the whole proposal (10 on an axis without one) and is filled or stroked.
struct ShapeElement {
  enum class Mode : std::uint8_t {
    fill,
    stroke,
    innerStroke
  };  ///< innerStroke: a border inside the edge
  ShapeGeometry geometry;
  Mode mode = Mode::fill;
  Paint paint;
  double lineWidth = 1;
  LineCap cap = LineCap::butt;
  LineJoin join = LineJoin::miter;
  double trimFrom = 0;  ///< the drawn part of the outline's length, 0...1
  double trimTo = 1;

  friend bool operator==(const ShapeElement&, const ShapeElement&) = default;
};

/// Takes the whole proposal; each child is offered the canvas's size, top leading, and its relative
/// lengths (frame, offset, position) refer to the canvas.
struct CanvasElement {
  friend bool operator==(const CanvasElement&, const CanvasElement&) = default;
};

/// The platform's circular accessory gauge: an open ring over 270 degrees with the node's only
/// child in its middle.
struct GaugeElement {
  double fraction = 0;  ///< 0...1; 0 draws no arc
  double lineWidth = 6.5;

  friend bool operator==(const GaugeElement&, const GaugeElement&) = default;
};

/// One of the node's children, from the fullest to the barest: the first that stays within the
/// proposal with every text whole, else the last. A text is whole that neither ends in an ellipsis
/// nor has a word broken between two lines; one shrunk down to its own minimum scale is.
struct FittingElement {
  friend bool operator==(const FittingElement&, const FittingElement&) = default;
};

/// Nothing: takes no room and no spacing. Containers drop it.
struct EmptyElement {
  friend bool operator==(const EmptyElement&, const EmptyElement&) = default;
};

using Element = std::variant<EmptyElement,
                             StackElement,
                             SpacerElement,
                             TextElement,
                             SymbolElement,
                             ImageElement,
                             ShapeElement,
                             CanvasElement,
                             GaugeElement,
                             FittingElement>;

}  // namespace viewkit
