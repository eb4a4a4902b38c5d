// Bytes as a tree from an extension: whatever is accepted must survive the way out and back, and
// its dump.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Foundation/JsonValue.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/TreeJson.hpp"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto json = foundation::parseJson({reinterpret_cast<const char*>(data), size}, 256);
  if (!json) return 0;
  const auto view = viewkit::readView(*json);
  if (!view) {
    require(view.error().starts_with('/'));
    return 0;
  }
  foundation::JsonWriter writer;
  viewkit::writeView(writer, *view);
  const auto again = foundation::parseJson(writer.text(), 256);
  require(again.has_value());
  const auto back = viewkit::readView(*again);
  require(back.has_value() && *back == *view);
  require(viewkit::dump(*back) == viewkit::dump(*view));
  return 0;
}
