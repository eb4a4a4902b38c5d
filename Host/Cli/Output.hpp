// Files that a command writes.
#pragma once

#include <string>
#include <string_view>

#include "Cli/Result.hpp"

namespace cli {

/// "-" is standard output; any other name is a file that is made or replaced. The old file stays
/// until the new one is whole.
[[nodiscard]] Result<void> write(const std::string& file, std::string_view bytes);

/// Refused for "-" when standard output is a terminal, which cannot show pictures.
[[nodiscard]] Result<void> checkPictureTarget(const std::string& file);

}  // namespace cli
