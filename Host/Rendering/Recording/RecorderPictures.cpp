#include "Rendering/Recording/RecorderPictures.hpp"

#include <algorithm>

#include "Rendering/Graphics/Rectangles.hpp"

namespace rendering {

namespace {

Rect imageTarget(const PlacedNode& node,
                 const viewkit::ImageElement& element,
                 const DecodedImage& image) {
  using Mode = viewkit::ImageElement::ContentMode;
  const Rect& frame = node.frame;
  if (element.mode == Mode::stretch) return frame;
  const double byWidth = frame.width / image.sourceWidth;
  const double byHeight = frame.height / image.sourceHeight;
  const double scale =
      element.mode == Mode::fill ? std::max(byWidth, byHeight) : std::min(byWidth, byHeight);
  const double width = image.sourceWidth * scale;
  const double height = image.sourceHeight * scale;
  using H = viewkit::HorizontalAlignment;
  using V = viewkit::VerticalAlignment;
  double x = element.alignment.horizontal == H::leading    ? 0
             : element.alignment.horizontal == H::trailing ? 1
                                                           : 0.5;
  if (mirrored(node)) x = 1 - x;
  const double y = element.alignment.vertical == V::top      ? 0
                   : element.alignment.vertical == V::bottom ? 1
                                                             : 0.5;
  return {
      frame.x + (frame.width - width) * x, frame.y + (frame.height - height) * y, width, height};
}

}  // namespace

void recordSymbol(RecorderContext& context,
                  const PlacedNode& node,
                  const viewkit::SymbolElement& symbol) {
  const Point center{node.frame.x + node.frame.width / 2, node.frame.y + node.frame.height / 2};
  if (context.options.redaction.placeholder) {
    const double side = symbol.size;
    return context.cover(
        {center.x - side / 2, center.y - side / 2, side, side}, 0.25 * side, context.barColor());
  }
  const SymbolDrawing& drawing =
      context.tools.symbols.drawing(symbol.name, symbol.fallback, symbol.weight);
  DrawSymbol command{&drawing, center, symbol.size};
  command.mirrored = mirrored(node) && mirrorsInRightToLeft(symbol.name);
  const double x = command.mirrored ? -drawing.bounds.right() : drawing.bounds.x;
  command.bounds = {center.x + x * symbol.size,
                    center.y + drawing.bounds.y * symbol.size,
                    drawing.bounds.width * symbol.size,
                    drawing.bounds.height * symbol.size};
  command.ink = context.ink({}, node);
  if (command.ink.color.alpha > 0) context.list.commands.emplace_back(command);
}

bool recordImage(RecorderContext& context,
                 const PlacedNode& node,
                 const viewkit::ImageElement& element) {
  const Rect& frame = node.frame;
  if (!(frame.width > 0) || !(frame.height > 0)) return true;
  if (context.options.redaction.placeholder) {
    context.cover(frame, 0.25 * std::min(frame.width, frame.height), context.barColor());
    return true;
  }
  const Size wanted{frame.width * context.options.scale, frame.height * context.options.scale};
  const auto image =
      context.options.container.empty()
          ? nullptr
          : context.tools.images.load(context.options.container, element.path, wanted);
  if (!image) return false;
  DrawImage command;
  command.image = static_cast<std::uint32_t>(context.list.images.size());
  command.target = imageTarget(node, element, *image);
  command.bounds = intersect(command.target, frame);
  if (context.options.mode == viewkit::RenderingMode::vibrant)
    command.colors = DrawImage::Colors::grey;
  if (context.options.mode == viewkit::RenderingMode::accented) {
    command.colors = DrawImage::Colors::tinted;
    command.tint = context.resolve(viewkit::Color::primary());
  }
  context.list.images.push_back(image);
  context.list.commands.emplace_back(command);
  return true;
}

}  // namespace rendering
