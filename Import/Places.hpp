// Where the importer finds its settings and the container, by the environment and the installation.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "Foundation/Locale.hpp"

namespace importer {

struct Places {
  std::string settings;   ///< ".../quorvel-import/ledger.toml"; empty without a home
  std::string container;  ///< empty without a home
  std::string appGroup;
  std::string urlScheme;
};

/// `programFolder` holds the program; the extension's Info.plist is looked for beside it, then
/// where it is installed.
[[nodiscard]] Places findPlaces(const foundation::ProcessEnvironment& environment,
                                const std::filesystem::path& programFolder);

}  // namespace importer
