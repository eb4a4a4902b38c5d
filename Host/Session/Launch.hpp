// Starts a program with three pipes and everything taken from it that an extension does not need,
// and ends it with all that it has started, whatever it has done to hide.
//
// This is fork and exec, not posix_spawn: what makes the child safe to run (no new privileges, its
// limits, its death with the parent) must happen between the two, whatever the program is, and
// posix_spawn has no place for it. Between them only async-signal-safe calls are made, so that the
// host may have threads.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
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
  foundation::FileDescriptor processFile;
  foundation::FileDescriptor input;
  foundation::FileDescriptor output;
  foundation::FileDescriptor errors;

  pid_t supervisor = 0;
  /// Readable when the program and all that it has started have ended.
  foundation::FileDescriptor supervisorFile;
};

/// Returns when the program runs, or says why it does not.
[[nodiscard]] Result<LaunchedProcess> launch(const LaunchOptions& options);

/// Waits for the program's own end; its status as waitpid gives it, nothing when it still runs.
[[nodiscard]] std::optional<int> waitForEnd(LaunchedProcess& process,
                                            std::chrono::milliseconds timeout);

/// Kills the program and all that it has started, and reaps it. Takes a few milliseconds, under two
/// seconds in any case: a process that the system itself does not let go is left behind. The status
/// is absent then.
std::optional<int> end(LaunchedProcess& process);

/// Waits for input, or the end of it, whatever signals come meanwhile.
bool isReadableWithin(const foundation::FileDescriptor& file, std::chrono::milliseconds timeout);

}  // namespace session
