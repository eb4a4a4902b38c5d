// Where the extension and its data are on this machine.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Locale.hpp"

namespace session {

/// What the application leaves in its group's folder. The same name stands in the extension, whose
/// sources no host sees.
inline constexpr std::string_view kDocumentName = "widget-snapshot.json";

/// Empty where nothing is found.
struct Places {
  std::filesystem::path extension;
  std::filesystem::path infoPlist;
};

/// A path that a person has named wins; else beside the host's program, or where both are
/// installed.
[[nodiscard]] Places findPlaces(const std::string& extension,
                                const std::string& infoPlist,
                                const std::filesystem::path& programFolder);

/// A program of the package that nobody types, beside the host's or where both are installed; empty
/// when it is not there.
[[nodiscard]] std::filesystem::path findProgram(std::string_view name,
                                                const std::filesystem::path& programFolder);

/// The folder that holds the application groups; nothing without a home.
[[nodiscard]] std::optional<std::string> containerRoot(
    const foundation::ProcessEnvironment& environment);

[[nodiscard]] std::string absolutePath(const std::string& path);

}  // namespace session
