// Links that a command hands to the desktop.
#pragma once

#include <string>

#include "Cli/Result.hpp"

namespace cli {

/// Hands the link to `program`, or to what the desktop has registered, and waits until it was
/// taken; refused with one line.
[[nodiscard]] Result<void> openLink(const std::string& link, const std::string& program = {});

}  // namespace cli
