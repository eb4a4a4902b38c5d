// Bytes as a tree from an extension, drawn in every form: whatever the reader accepts is drawn or
// refused in a line, at any size, scale, mode and appearance.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Foundation/JsonValue.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "ViewKit/TreeJson.hpp"

namespace {

constexpr std::size_t kHeader = 8;

void require(bool holds) {
  if (!holds) std::abort();
}

/// The first bytes choose. Nine of ten pictures have less than 200 points per side at scale 1,
/// since small ones find as much and sooner.
rendering::RenderOptions optionsFrom(const std::uint8_t* data) {
  const auto pair = [&](std::size_t at) { return data[at] * 256 + data[at + 1]; };
  rendering::RenderOptions options;
  const bool isLarge = data[0] % 10 == 0;
  const int most = isLarge ? 1000 : 199;
  options.size = {1.0 + pair(1) % (most * 4) / 4.0, 1.0 + pair(3) % (most * 4) / 4.0};
  options.scale = isLarge ? 0.5 + data[5] % 8 / 2.0 : 1;
  options.mode = static_cast<viewkit::RenderingMode>(data[6] % 3);
  options.appearance = data[6] & 4 ? viewkit::Appearance::dark : viewkit::Appearance::light;
  options.direction =
      data[6] & 8 ? viewkit::LayoutDirection::rightToLeft : viewkit::LayoutDirection::leftToRight;
  options.showsBackground = data[6] & 16;
  options.redaction = {.privacy = (data[6] & 32) != 0, .placeholder = (data[6] & 64) != 0};
  if (data[6] & 128) options.tint = 0x3366CC;
  options.cornerRadius = data[7];
  return options;
}

/// Layout may take longer than a target has for what is large.
bool isModest(const viewkit::View& view, std::size_t& nodes) {
  if (++nodes > 200) return false;
  return std::ranges::all_of(view.node().children,
                             [&](const viewkit::View& child) { return isModest(child, nodes); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHeader) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + kHeader, size - kHeader);
  const auto json = foundation::parseJson(text, 256);
  if (!json) return 0;
  const auto view = viewkit::readView(*json);
  std::size_t nodes = 0;
  if (!view || !isModest(*view, nodes)) return 0;
  static rendering::Renderer renderer;
  const rendering::RenderOptions options = optionsFrom(data);
  const auto bitmap = renderer.bitmap(*view, options);
  require(bitmap ? !rendering::encodePng(*bitmap).empty() : !bitmap.error().empty());
  const auto svg = renderer.svg(*view, options);
  require(!svg || svg->ends_with("</svg>\n"));
  (void)renderer.plainText(*view, options);
  (void)renderer.placedDump(*view, options);
  (void)renderer.accessibilityTree(*view, options, "Fuzz");
  return 0;
}
