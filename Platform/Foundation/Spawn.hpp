// Starts other programs.
#pragma once

#include <sys/types.h>

#include <expected>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "Foundation/Locale.hpp"

namespace foundation {

struct SpawnOptions {
  // Descriptors that become the program's standard ones; -1: it has ours.
  int input = -1;
  int output = -1;
  int errors = -1;
  bool leadsGroup = false;  ///< of processes, so that all that it starts can be ended with it
  std::optional<ProcessEnvironment> environment;  ///< absent: ours
};

/// Starts a program, found on PATH, with its arguments. No signal is blocked or ignored in it,
/// whatever this process does about them; descriptors are its own business (O_CLOEXEC).
[[nodiscard]] std::expected<pid_t, std::error_code> spawn(const std::vector<std::string>& command,
                                                          const SpawnOptions& options = {});

}  // namespace foundation
