// Texts as a person reads them.
#pragma once

#include <string>
#include <string_view>

namespace testsupport {

/// Directional isolates draw nothing; without them expectations can be read.
inline std::string withoutIsolates(std::string text) {
  for (const std::string_view isolate : {"\u2066", "\u2067", "\u2068", "\u2069"}) {
    for (auto at = text.find(isolate); at != std::string::npos; at = text.find(isolate)) {
      text.erase(at, isolate.size());
    }
  }
  return text;
}

}  // namespace testsupport
