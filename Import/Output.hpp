// What the program says: results on the standard output, complaints on the error output.
#pragma once

#include <string>
#include <string_view>

#include "Import/Result.hpp"

namespace importer {

[[nodiscard]] Result<void> print(std::string_view text);
void complain(std::string_view text);

/// Control characters become spaces: names come from files and reach a terminal.
[[nodiscard]] std::string oneLine(std::string text);

}  // namespace importer
