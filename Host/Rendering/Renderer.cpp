// Ties layout, recording and drawing together.
#include "Rendering/Renderer.hpp"

#include <algorithm>

#include "Rendering/Layout/PlacedDump.hpp"
#include "Rendering/Output/AccessibilityTree.hpp"
#include "Rendering/Output/PlainText.hpp"
#include "Rendering/Output/SvgWriter.hpp"
#include "Rendering/Painting/Painter.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Recording/Recorder.hpp"
#include "Rendering/Text/FontMeasurer.hpp"
#include "ViewKit/OutermostModifier.hpp"

namespace rendering {

struct Renderer::State {
  explicit State(EmojiFont emoji) : fonts(emoji) {}

  FontLibrary fonts;
  FontMeasurer measurer{fonts};
  SymbolLibrary symbols{fonts};
  ImageCache images;
  ColorGlyphs colorGlyphs{fonts};
  Painter painter{fonts};
  DisplayList list;

  [[nodiscard]] Drawn<LayoutTree> place(const viewkit::View& view, const RenderOptions& options) {
    return layOut(view,
                  {.size = options.size,
                   .direction = options.direction,
                   .placeholderRedaction = options.redaction.placeholder},
                  measurer);
  }

  [[nodiscard]] Drawn<void> recordBackground(const LayoutTree& tree, const RenderOptions& options) {
    if (!options.showsBackground) return {};
    const viewkit::View background = containerBackground(tree.view);
    if (background.isEmpty()) return {};
    RenderOptions plain = options;
    plain.mode = viewkit::RenderingMode::fullColor;
    plain.redaction = {};
    const auto placed = place(background, plain);
    if (!placed) return std::unexpected(placed.error());
    return rendering::record(*placed, plain, {measurer, symbols, images, colorGlyphs}, list);
  }

  /// The background is the host's: what the content cuts out of itself leaves it whole.
  [[nodiscard]] Drawn<void> record(const LayoutTree& tree, const RenderOptions& options) {
    symbols.trim();
    list.clear();
    list.size = tree.size;
    if (auto done = recordBackground(tree, options); !done) return done;
    const std::size_t first = list.commands.size();
    if (auto done =
            rendering::record(tree, options, {measurer, symbols, images, colorGlyphs}, list);
        !done) {
      return done;
    }
    const auto isErasing = [](const DrawCommand& command) {
      return std::holds_alternative<ErasePath>(command);
    };
    const auto content = list.commands.begin() + static_cast<std::ptrdiff_t>(first);
    if (first > 0 && std::any_of(content, list.commands.end(), isErasing)) {
      const auto count = static_cast<std::uint32_t>(list.commands.size() - first);
      list.commands.insert(content,
                           BeginGroup{1, count, {0, 0, tree.size.width, tree.size.height}});
      list.commands.emplace_back(EndGroup{});
    }
    return {};
  }
};

Renderer::Renderer() : Renderer(EmojiFont::installed) {}
Renderer::Renderer(EmojiFont emoji) : state_(std::make_unique<State>(emoji)) {}
Renderer::~Renderer() = default;

TextMeasurer& Renderer::measurer() {
  return state_->measurer;
}

Drawn<LayoutTree> Renderer::place(const viewkit::View& view, const RenderOptions& options) {
  return state_->place(view, options);
}

Drawn<void> Renderer::draw(const LayoutTree& tree, const RenderOptions& options, Bitmap& out) {
  if (auto done = state_->record(tree, options); !done) return done;
  const double radius = options.showsBackground ? options.cornerRadius : 0;
  return state_->painter.paint(state_->list, options.scale, radius, out);
}

Drawn<Bitmap> Renderer::bitmap(const viewkit::View& view, const RenderOptions& options) {
  const auto tree = place(view, options);
  if (!tree) return std::unexpected(tree.error());
  Bitmap out;
  if (auto done = draw(*tree, options, out); !done) return std::unexpected(done.error());
  return out;
}

Drawn<std::string> Renderer::svg(const viewkit::View& view,
                                 const RenderOptions& options,
                                 const SvgNaming& naming) {
  const auto tree = place(view, options);
  if (!tree) return std::unexpected(tree.error());
  if (auto done = state_->record(*tree, options); !done) return std::unexpected(done.error());
  const double radius = options.showsBackground ? options.cornerRadius : 0;
  return writeSvg(state_->list, radius, state_->fonts, naming);
}

Drawn<std::string> Renderer::plainText(const viewkit::View& view,
                                       const RenderOptions& options,
                                       int columns) {
  const auto tree = place(view, options);
  if (!tree) return std::unexpected(tree.error());
  return rendering::plainText(*tree, {.columns = columns, .redaction = options.redaction});
}

Drawn<std::string> Renderer::placedDump(const viewkit::View& view, const RenderOptions& options) {
  const auto tree = place(view, options);
  if (!tree) return std::unexpected(tree.error());
  return dumpPlaced(*tree);
}

Drawn<std::string> Renderer::accessibilityTree(const viewkit::View& view,
                                               const RenderOptions& options,
                                               const std::string& name) {
  const auto tree = place(view, options);
  if (!tree) return std::unexpected(tree.error());
  return rendering::accessibilityTree(*tree, {.redaction = options.redaction, .name = name});
}

}  // namespace rendering
