// Hands a link to the desktop, or to a program of the person's choice.
#pragma once

#include <string>

#include "Cli/Result.hpp"

namespace cli {

/// "quorvel-widget://". Refused for what is no URL scheme: control characters, spaces and the like.
[[nodiscard]] Result<std::string> applicationLink(const std::string& scheme);

/// With xdg-open when `program` is empty; `program` may carry arguments, separated by spaces,
/// before the link. Refused, with the link and what to do, when nothing is registered for its
/// scheme or the opener fails.
[[nodiscard]] Result<void> openLink(const std::string& link, const std::string& program);

}  // namespace cli
