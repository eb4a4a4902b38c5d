// A document the whole way: read, made into the views of a widget, sent as JSON, laid out, drawn.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "../Tests/Support/WidgetStates.hpp"
#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Rendering/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "ViewKit/TreeJson.hpp"

namespace {

constexpr std::size_t kHeader = 8;

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHeader) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + kHeader, size - kHeader);
  auto decoded = quorvel::decodeWidgetSnapshot(text);
  if (!decoded) return 0;
  fixtures::WidgetState state{"fuzz", fixtures::morningOf("2025-03-14"), *std::move(decoded), {}};
  state.environment.widgetRenderingMode = static_cast<viewkit::RenderingMode>(data[1] % 3);
  state.environment.showsWidgetContainerBackground = data[1] & 4;
  const auto layouts = std::size(fixtures::kLayouts);
  const viewkit::View made = fixtures::viewOf(fixtures::kLayouts[data[0] % layouts], state);

  // What a widget sends, a host can read.
  foundation::JsonWriter writer;
  viewkit::writeView(writer, made);
  const auto json = foundation::parseJson(writer.text(), 256);
  require(json.has_value());
  const auto view = viewkit::readView(*json);
  require(view.has_value());

  static rendering::Renderer renderer;
  rendering::RenderOptions options;
  const bool isLarge = data[2] % 10 == 0;
  const double unit = isLarge ? 4 : 0.75;
  options.size = {1 + data[3] * unit, 1 + data[4] * unit};
  options.scale = isLarge ? 0.5 + data[5] % 8 / 2.0 : 1;
  options.appearance = data[6] & 1 ? viewkit::Appearance::dark : viewkit::Appearance::light;
  options.mode = state.environment.widgetRenderingMode;
  options.redaction = {.privacy = (data[6] & 2) != 0, .placeholder = (data[6] & 4) != 0};
  const auto bitmap = renderer.bitmap(*view, options);
  require(bitmap.has_value());
  require(!rendering::encodePng(*bitmap).empty());
  require(renderer.svg(*view, options).has_value());
  (void)renderer.plainText(*view, options);
  (void)renderer.accessibilityTree(*view, options, "Fuzz");
  return 0;
}
