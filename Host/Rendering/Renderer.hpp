// From a view to a picture or to one of its text forms: what a host calls.
#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Rendering/Bitmap.hpp"
#include "Rendering/DrawingLimits.hpp"
#include "Rendering/EmojiFont.hpp"
#include "Rendering/Layout.hpp"
#include "Rendering/SvgNaming.hpp"
#include "ViewKit/Appearance.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

struct RenderOptions {
  Size size;         ///< points
  double scale = 2;  ///< pixels a point
  viewkit::Appearance appearance = viewkit::Appearance::light;
  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  std::optional<viewkit::Rgb>
      tint;  ///< of the accentable group in accented mode; default: the appearance's label colour
  bool showsBackground = true;  ///< draw the container background and clip to the widget's corners
  double cornerRadius = 22;     ///< points, continuous; 0 for accessories
  viewkit::RedactionReasons redaction;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  std::filesystem::path container;  ///< where image paths start; empty: no images
};

/// Fonts, glyph images, symbols and decoded pictures, kept between renderings. Not for several
/// threads at once. Whatever the tree, a picture takes bounded time and memory or is refused in one
/// line.
class Renderer {
 public:
  Renderer();
  explicit Renderer(EmojiFont emoji);
  ~Renderer();

  [[nodiscard]] TextMeasurer& measurer();

  [[nodiscard]] Drawn<PlacedTree> place(const viewkit::View& view, const RenderOptions& options);
  [[nodiscard]] Drawn<void> draw(const PlacedTree& tree, const RenderOptions& options, Bitmap& out);

  [[nodiscard]] Drawn<Bitmap> bitmap(const viewkit::View& view, const RenderOptions& options);
  [[nodiscard]] Drawn<std::string> svg(const viewkit::View& view,
                                       const RenderOptions& options,
                                       const SvgNaming& naming = {});
  /// Rows and columns as laid out, `columns` characters wide.
  [[nodiscard]] Drawn<std::string> plainText(const viewkit::View& view,
                                             const RenderOptions& options,
                                             int columns = 80);
  /// One placed node a line, with its frame.
  [[nodiscard]] Drawn<std::string> placedDump(const viewkit::View& view,
                                              const RenderOptions& options);
  /// One accessible element a line, in reading order. `name` is the widget's: all that a
  /// placeholder says.
  [[nodiscard]] Drawn<std::string> accessibilityTree(const viewkit::View& view,
                                                     const RenderOptions& options,
                                                     const std::string& name = {});

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// What a renderer needs on this machine: font files, found or missing, and the Debian package of
/// each.
struct FontFile {
  std::string path;
  std::string package;
  bool optional = false;
  bool found = false;
};
[[nodiscard]] std::vector<FontFile> fontFiles();

}  // namespace rendering
