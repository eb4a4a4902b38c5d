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

/// Of one card; of all cards where the id is longer than any that an application could mean.
[[nodiscard]] inline std::string cardLink(std::string_view urlScheme, std::string_view cardId) {
  constexpr std::size_t kMaximumId = 1024;
  if (cardId.size() > kMaximumId) return widgetLink(urlScheme, "cards");
  return widgetLink(urlScheme, "card/" + std::string{cardId});
}

}  // namespace quorvel
