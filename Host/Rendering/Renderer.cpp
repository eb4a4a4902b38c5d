// Ties layout, recording and drawing together.
#include "Rendering/Renderer.hpp"

#include "Rendering/AccessibilityTree.hpp"
#include "Rendering/DrawList.hpp"
#include "Rendering/FontMeasurer.hpp"
#include "Rendering/Painter.hpp"
#include "Rendering/PlacedDump.hpp"
#include "Rendering/PlainText.hpp"
#include "Rendering/Recorder.hpp"
#include "Rendering/SvgWriter.hpp"

namespace rendering {

struct Renderer::State {
  FontLibrary fonts;
  FontMeasurer measurer{fonts};
  SymbolLibrary symbols{fonts};
  ImageStore images;
  Painter painter{fonts};
  DrawList list;

  [[nodiscard]] PlacedTree place(const viewkit::View& view, const RenderOptions& options) {
    return layOut(view,
                  {.size = options.size,
                   .direction = options.direction,
                   .placeholderRedaction = options.redaction.placeholder},
                  measurer);
  }

  /// The background is the host's: what the content cuts out of itself leaves it whole.
  void record(const PlacedTree& tree, const RenderOptions& options) {
    symbols.trim();
    list.clear();
    list.size = tree.size;
    const RecorderTools tools{measurer, symbols, images};
    if (options.showsBackground) {
      const viewkit::View background = containerBackground(tree.view);
      if (!background.isEmpty()) {
        RenderOptions plain = options;
        plain.mode = viewkit::RenderingMode::fullColor;
        plain.redaction = {};
        rendering::record(place(background, plain), plain, tools, list);
      }
    }
    const std::size_t first = list.commands.size();
    rendering::record(tree, options, tools, list);
    for (std::size_t i = first; i < list.commands.size() && first > 0; ++i) {
      if (!std::holds_alternative<ErasePath>(list.commands[i])) continue;
      const Rect all{0, 0, tree.size.width, tree.size.height};
      list.commands.insert(list.commands.begin() + static_cast<std::ptrdiff_t>(first),
                           BeginGroup{1, all});
      list.commands.emplace_back(EndGroup{});
      break;
    }
  }
};

Renderer::Renderer() : state_(std::make_unique<State>()) {}
Renderer::~Renderer() = default;

TextMeasurer& Renderer::measurer() {
  return state_->measurer;
}

PlacedTree Renderer::place(const viewkit::View& view, const RenderOptions& options) {
  return state_->place(view, options);
}

void Renderer::draw(const PlacedTree& tree, const RenderOptions& options, Bitmap& out) {
  state_->record(tree, options);
  const double radius = options.showsBackground ? options.cornerRadius : 0;
  state_->painter.paint(state_->list, options.scale, radius, out);
}

Bitmap Renderer::bitmap(const viewkit::View& view, const RenderOptions& options) {
  Bitmap out;
  draw(place(view, options), options, out);
  return out;
}

std::string Renderer::svg(const viewkit::View& view,
                          const RenderOptions& options,
                          const SvgNaming& naming) {
  const PlacedTree tree = place(view, options);
  state_->record(tree, options);
  const double radius = options.showsBackground ? options.cornerRadius : 0;
  return writeSvg(state_->list, radius, state_->fonts, naming);
}

std::string Renderer::plainText(const viewkit::View& view,
                                const RenderOptions& options,
                                int columns) {
  return rendering::plainText(place(view, options),
                              {.columns = columns, .redaction = options.redaction});
}

std::string Renderer::placedDump(const viewkit::View& view, const RenderOptions& options) {
  return dumpPlaced(place(view, options));
}

std::string Renderer::accessibilityTree(const viewkit::View& view,
                                        const RenderOptions& options,
                                        const std::string& name) {
  return rendering::accessibilityTree(place(view, options),
                                      {.redaction = options.redaction, .name = name});
}

}  // namespace rendering
