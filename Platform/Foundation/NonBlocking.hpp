// Descriptors whose calls return at once instead of waiting.
#pragma once

#include <fcntl.h>

#include <cerrno>

namespace foundation {

inline void stopBlocking(int descriptor) {
  ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

/// Whether the call that has just failed may succeed when it is repeated.
[[nodiscard]] inline bool wouldBlock() {
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

}  // namespace foundation
