// Starts a program with three pipes and everything taken from it that an extension does not need.
//
// This is fork and exec, not posix_spawn: what makes the child safe to run (no new privileges, its
// limits, its death with the parent) must happen between the two, whatever the program is, and
// posix_spawn has no place for it. Between them only async-signal-safe calls are made, so that the
// host may have threads.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

#include "Session/Descriptor.hpp"
#include "Session/SessionError.hpp"

namespace session {

struct LaunchOptions {
  std::string program;
  std::vector<std::string> arguments;
  std::vector<std::string> environment;
  std::size_t maximumData = 0;  ///< bytes
};

/// The host's ends do not block.
struct LaunchedProcess {
  pid_t id = 0;  ///< also of its process group
  Descriptor processFile;
  Descriptor input;
  Descriptor output;
  Descriptor errors;
};

/// Returns when the program runs, or says why it does not.
[[nodiscard]] Result<LaunchedProcess> launch(const LaunchOptions& options);

}  // namespace session
