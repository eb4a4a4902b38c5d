// The process between a host and an extension, which ends all that the extension has started.
//
// A child may leave its process group, and a grandchild whose parent has ended belongs to nobody
// that a group or a number could name. The supervisor is a subreaper: whatever loses its parent
// below it becomes its own child, so it can be found and killed. It costs a fork without an exec.
#pragma once

#include <sys/types.h>

namespace session {

/// Prepares the calling process, a fresh fork of `host`; false when the host has gone already.
/// From here on SIGTERM and the host's death are orders to end everything.
[[nodiscard]] bool becomeSupervisor(pid_t host);

/// Waits for the end of `leader` or the order to end it, kills every descendant and ends as the
/// leader has ended: with its status, or by its signal. Calls async-signal-safe functions only, for
/// the host may have threads.
[[noreturn]] void supervise(pid_t leader);

}  // namespace session
