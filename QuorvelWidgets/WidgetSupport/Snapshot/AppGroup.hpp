// What the application, its widgets and whoever writes for them agree on besides the document's
// form: the group whose folder they share, its files, and the scheme of links.
#pragma once

#include <string>
#include <string_view>

namespace foundation {
class Bundle;
}

namespace quorvel {

/// In the group's folder.
inline constexpr std::string_view kSnapshotFileName = "widget-snapshot.json";

/// As the extension's Info.plist says, else the application's own.
struct AppGroup {
  explicit AppGroup(const foundation::Bundle& extension);

  std::string identifier;
  std::string urlScheme;  ///< without "://"
};

}  // namespace quorvel
