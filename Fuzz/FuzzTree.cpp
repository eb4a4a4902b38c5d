// Bytes as a tree from an extension: whatever is accepted must survive the way out and back, and
// its dump.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Foundation/JsonValue.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/TreeJson.hpp"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

std::string writtenForm(const viewkit::View& view) {
  foundation::JsonWriter writer;
  viewkit::writeView(writer, view);
  return writer.take();
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
  const std::string written = writtenForm(*view);
  const auto again = foundation::parseJson(written, 256);
  require(again.has_value());
  const auto back = viewkit::readView(*again);
  require(back.has_value() && writtenForm(*back) == written);
  // A longer text is cut when it is written.
  if (size > viewkit::kMaximumWrittenText) return 0;
  require(*back == *view && viewkit::dump(*back) == viewkit::dump(*view));
  return 0;
}
