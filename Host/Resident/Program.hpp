// The resident host put together from its parts.
#pragma once

#include <filesystem>

#include "Foundation/Locale.hpp"
#include "Resident/HostOptions.hpp"

namespace resident {

/// Until SIGTERM or SIGINT; the exit status. What is wrong is said on the error stream, one line
/// each.
[[nodiscard]] int run(const HostOptions& options,
                      const foundation::ProcessEnvironment& environment,
                      const std::filesystem::path& programFolder);

}  // namespace resident
