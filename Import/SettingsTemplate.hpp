// The settings that `init` writes: everything as a comment, with the journal's own accounts.
#pragma once

#include <string>
#include <string_view>

#include "Import/Accounts.hpp"

namespace importer {

[[nodiscard]] std::string settingsTemplate(const AccountTypes& accounts);

/// A text as TOML writes it, quotes included.
[[nodiscard]] std::string tomlText(std::string_view text);

}  // namespace importer
