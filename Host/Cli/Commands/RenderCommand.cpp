// `render`: one widget, as a picture or as one of its text forms.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/Printable.hpp"
#include "Foundation/Utf8.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Session/HostEnvironment.hpp"
#include "ViewKit/Dump.hpp"

namespace cli {
namespace {

/// What a terminal would obey, as XML writes it.
std::string asReferences(std::string svg) {
  if (foundation::printableLines(svg) == svg) return svg;
  std::string result;
  for (std::size_t at = 0; at < svg.size();) {
    const foundation::Utf8Step step = foundation::utf8Step(std::string_view{svg}.substr(at));
    const auto bytes = std::string_view{svg}.substr(at, step.length);
    const bool isPlain = foundation::printableLines(bytes) == bytes;
    result += isPlain ? std::string(bytes)
                      : fmt::format("&#x{:X};", static_cast<std::uint32_t>(step.scalar));
    at += step.length;
  }
  return result;
}

rendering::Drawn<std::string> textForm(const viewkit::View& view,
                                       const rendering::RenderOptions& how,
                                       const Options& options,
                                       const std::string& widgetName) {
  rendering::Renderer renderer;
  switch (options.format) {
    case Format::svg:
      return renderer.svg(view, how, {.title = widgetName, .idPrefix = options.output.idPrefix});
    case Format::text:
      return renderer.plainText(view, how);
    case Format::placed:
      return renderer.placedDump(view, how);
    case Format::accessibility:
      return renderer.accessibilityTree(view, how, widgetName);
    case Format::png:
    case Format::tree:
      break;
  }
  return viewkit::dump(view);
}

rendering::Drawn<std::string> drawn(const viewkit::View& view,
                                    const rendering::RenderOptions& how,
                                    const Options& options,
                                    const std::string& widgetName) {
  if (options.format != Format::png) {
    auto text = textForm(view, how, options, widgetName);
    if (!text) return text;
    return options.format == Format::svg ? asReferences(*std::move(text))
                                         : foundation::printableLines(*text);
  }
  rendering::Renderer renderer;
  const auto bitmap = renderer.bitmap(view, how);
  if (!bitmap) return std::unexpected(bitmap.error());
  return rendering::encodePng(*bitmap, options.output.png);
}

}  // namespace

Result<void> render(const Options& options, const Program& program) {
  if (options.format == Format::png) {
    if (auto target = checkPictureTarget(options.output.file); !target) return target;
  }
  if (!options.output.idPrefix.empty() && options.format != Format::svg)
    return misused("--id-prefix: only with --format svg");
  const auto device = deviceFrom(options.device, program.environment);
  auto guest = Guest::open(options.source, program, device.preferredLanguages);
  if (!guest) return std::unexpected(guest.error());
  const auto widget = guest->widget(options.kind);
  if (!widget) return std::unexpected(widget.error());
  if (auto known = checkConfiguration(**widget, options.picture.configuration); !known)
    return known;
  const auto family =
      options.picture.family.value_or(session::defaultFamily((*widget)->description.families));
  const auto view = fetchView(
      *guest, entriesParameters((*widget)->description.kind, family, options.picture, device));
  if (!view) return std::unexpected(view.error());
  const auto how = renderOptions(family, options.picture, device, guest->images());
  const auto bytes = drawn(*view, how, options, (*widget)->description.displayName);
  if (!bytes) return refused(bytes.error());
  return write(options.output.file, *bytes);
}

}  // namespace cli
