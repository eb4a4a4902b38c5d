// What variables of a process's environment say.
#pragma once

#include <string>

#include "Foundation/Locale.hpp"

namespace foundation {

/// Empty when it is not set.
[[nodiscard]] std::string valueOf(const ProcessEnvironment& environment, const std::string& name);

/// A folder as the XDG base directories name them: the variable where it is an absolute path, else
/// below the home folder, likewise; empty without either.
///
///     baseDirectory(environment, "XDG_DATA_HOME", ".local/share")
[[nodiscard]] std::string baseDirectory(const ProcessEnvironment& environment,
                                        const std::string& variable,
                                        const std::string& belowHome);

}  // namespace foundation
