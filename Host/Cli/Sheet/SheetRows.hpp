// The rows of a contact sheet: kinds x families along the axes that were asked for.
#pragma once

#include <vector>

#include "Cli/Options/Options.hpp"
#include "Cli/Program.hpp"
#include "Cli/Sheet/Sheet.hpp"

namespace cli {

/// Warns in one line, once, when no document stands behind the pictures although one was asked for.
[[nodiscard]] Result<std::vector<SheetRow>> sheetRows(const Options& options,
                                                      const Program& program);

/// The components that widgets share, as high as they need to be.
[[nodiscard]] std::vector<SheetRow> componentRows(const Options& options, const Program& program);

}  // namespace cli
