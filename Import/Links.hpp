// The links of the widgets, which a ledger's owner answers with commands: no application is behind
// them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Import/Places.hpp"
#include "Import/Result.hpp"
#include "Import/Settings.hpp"

namespace importer {

/// The extension's name for the preference that asks for the add-expense screen.
inline constexpr std::string_view kPendingAddExpenseKey = "widget.pendingAddExpense";

/// What a link asks for: one of kDestinations, or empty for the application as such. "card/ID" is
/// "cards". Refused for another scheme or destination.
[[nodiscard]] Result<std::string> destinationOf(std::string_view url, std::string_view urlScheme);

/// Reads and clears the request for the add-expense screen in the container's preferences.
[[nodiscard]] Result<bool> takePendingAddExpense(const std::string& container,
                                                 const std::string& appGroup);

/// The shell command for a destination; nothing where the settings have none.
[[nodiscard]] std::optional<std::string> commandFor(std::string_view destination,
                                                    const Settings& settings);

/// Runs a shell command in the foreground, its first argument as $1. Refused when it fails.
[[nodiscard]] Result<void> runCommand(const std::string& command, const std::string& argument);

}  // namespace importer
