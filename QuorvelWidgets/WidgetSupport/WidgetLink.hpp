// The links by which widgets open the application.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// "quorvel-widget://open/budget"; raw text, the host encodes it when it opens it.
[[nodiscard]] inline std::string widgetLink(std::string_view urlScheme,
                                            std::string_view destination) {
  return std::string{urlScheme} + "://open/" + std::string{destination};
}

}  // namespace quorvel
