// What is drawn, in order: resolved colours, absolute places in points. Made from a layout tree,
// played on pixels or as SVG.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"
#include "Rendering/Graphics/Rgba.hpp"
#include "Rendering/Graphics/ShapePath.hpp"
#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Recording/LineGlyphs.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"

namespace rendering {

/// A colour, or a gradient of the list whose opacity is multiplied by the colour's.
struct Ink {
  Rgba color;
  std::int32_t gradient = -1;
  friend bool operator==(const Ink&, const Ink&) = default;
};

struct GradientInk {
  struct Stop {
    float location = 0;
    Rgba color;
  };
  Point start;
  Point end;
  std::vector<Stop> stops;
};

/// A stretch of the list's common path storage.
struct PathSlice {
  std::uint32_t firstVerb = 0;
  std::uint32_t verbs = 0;
  std::uint32_t firstPoint = 0;
  std::uint32_t points = 0;
};

struct FillRect {
  Rect rect;
  Ink ink;
};
struct FillPath {
  PathSlice path;
  Rect bounds;
  Ink ink;
};
struct StrokePath {
  PathSlice path;
  Rect bounds;
  Ink ink;
  double width = 1;
  viewkit::LineCap cap = viewkit::LineCap::butt;
  viewkit::LineJoin join = viewkit::LineJoin::miter;
};
struct DrawGlyphs {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  double size = 0;
  Rect bounds;
  Ink ink;
  bool joined = false;  ///< neighbouring glyphs overlap
};
struct DrawSymbol {
  const SymbolDrawing* drawing = nullptr;  ///< the symbol library's, which outlives every list
  Point center;
  double size = 0;
  bool mirrored = false;
  Rect bounds;
  Ink ink;
};
struct DrawImage {
  /// tinted: nothing but the tint's colour; inked: grey, brought nearer to it.
  enum class Colors : std::uint8_t { own, grey, inked, tinted };
  /// Of the tint in inked pictures: enough for a pale one to stand out from its ground.
  static constexpr double kInk = 0.45;
  std::uint32_t image = 0;
  Rect target;  ///< where the whole picture goes
  Rect bounds;  ///< the part that is seen
  float opacity = 1;
  Colors colors = Colors::own;
  Rgba tint;
};
/// The blurred silhouette of a path.
struct DrawShadow {
  PathSlice path;
  Rect bounds;  ///< of the path
  Rgba color;
  double deviation = 0;  ///< of the blur
  Point offset;
};
/// The `count` commands that follow, over their own blurred silhouette.
struct BeginShadow {
  std::uint32_t count = 0;
  Rect bounds;  ///< of these commands
  Rgba color;
  double deviation = 0;
  Point offset;
};
struct EndShadow {};
struct BeginClip {
  PathSlice path;
  std::uint32_t count = 0;  ///< commands inside
  Rect bounds;
  double corner = -1;  ///< what lies in the bounds and out of their corners by this much is not
                       ///< cut; negative: nothing is sure
};
struct EndClip {};
struct BeginGroup {
  float opacity = 1;
  std::uint32_t count = 0;  ///< commands inside
  Rect bounds;
};
struct EndGroup {};
/// Removes everything that the group has drawn so far in the path.
struct ErasePath {
  PathSlice path;
  Rect bounds;
};

using DrawCommand = std::variant<FillRect,
                                 FillPath,
                                 StrokePath,
                                 DrawGlyphs,
                                 DrawSymbol,
                                 DrawImage,
                                 DrawShadow,
                                 BeginShadow,
                                 EndShadow,
                                 BeginClip,
                                 EndClip,
                                 BeginGroup,
                                 EndGroup,
                                 ErasePath>;

struct DisplayList {
  Size size;
  std::vector<DrawCommand> commands;
  std::vector<PathVerb> verbs;
  std::vector<Point> points;
  std::vector<LineGlyph> glyphs;
  std::vector<GradientInk> gradients;
  std::vector<std::shared_ptr<const DecodedImage>> images;

  void clear();
  [[nodiscard]] PathSlice add(const Path& path);
};

/// The part of the points that a command may touch; nothing for those that end something.
[[nodiscard]] Rect boundsOf(const DrawCommand& command);

/// One command per line, for tests and for people.
[[nodiscard]] std::string describe(const DisplayList& list);

}  // namespace rendering
