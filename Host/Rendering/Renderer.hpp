// From a view to a picture or to one of its text forms: what a host calls.
#pragma once

#include <memory>
#include <string>

#include "Rendering/Graphics/Bitmap.hpp"
#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Graphics/RenderOptions.hpp"
#include "Rendering/Layout/Layout.hpp"
#include "Rendering/Output/SvgNaming.hpp"
#include "Rendering/Text/EmojiFont.hpp"
#include "Rendering/Text/FontFile.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

/// Fonts, glyph images, symbols and decoded pictures, kept between renderings. Not for several
/// threads at once. Whatever the tree, a picture takes bounded time and memory or is refused in one
/// line.
class Renderer {
 public:
  Renderer();
  explicit Renderer(EmojiFont emoji);
  ~Renderer();

  [[nodiscard]] TextMeasurer& measurer();

  [[nodiscard]] Drawn<LayoutTree> place(const viewkit::View& view, const RenderOptions& options);
  [[nodiscard]] Drawn<void> draw(const LayoutTree& tree, const RenderOptions& options, Bitmap& out);

  [[nodiscard]] Drawn<Bitmap> bitmap(const viewkit::View& view, const RenderOptions& options);
  [[nodiscard]] Drawn<std::string> svg(const viewkit::View& view,
                                       const RenderOptions& options,
                                       const SvgNaming& naming = {});
  /// Rows and columns as laid out, `columns` characters wide.
  [[nodiscard]] Drawn<std::string> plainText(const viewkit::View& view,
                                             const RenderOptions& options,
                                             int columns = 80);
  /// One placed node per line, with its frame.
  [[nodiscard]] Drawn<std::string> placedDump(const viewkit::View& view,
                                              const RenderOptions& options);
  /// One accessible element per line, in reading order. `name` is the widget's: all that a
  /// placeholder says.
  [[nodiscard]] Drawn<std::string> accessibilityTree(const viewkit::View& view,
                                                     const RenderOptions& options,
                                                     const std::string& name = {});

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace rendering
