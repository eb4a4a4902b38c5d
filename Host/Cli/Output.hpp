// Where a command's results go: standard output, a file, or a line on the error stream.
#pragma once

#include <string>
#include <string_view>

#include "Cli/Result.hpp"

namespace cli {

/// To standard output, with everything escaped that a terminal would obey; refused when it is full
/// or closed.
[[nodiscard]] Result<void> print(std::string_view text);

/// To the error stream, escaped alike; whether that works is nobody's business.
void complain(std::string_view text);

/// "-" is standard output; any other name is a file that is made or replaced. The old file stays
/// until the new one is whole.
[[nodiscard]] Result<void> write(const std::string& file, std::string_view bytes);

/// Refused for "-" when standard output is a terminal, which cannot show pictures.
[[nodiscard]] Result<void> checkPictureTarget(const std::string& file);

}  // namespace cli
