// Waits for what is to happen, and no longer. A test that slept would wait too long on a fast
// machine and not long enough on a slow one.
#pragma once

#include <poll.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "Foundation/FileDescriptor.hpp"

namespace testsupport {

/// Whether the process, anybody's child, ends within the time. One that waits for its parent to
/// take notice has ended.
inline bool endsWithin(pid_t process, std::chrono::milliseconds time) {
  const foundation::FileDescriptor end{
      static_cast<int>(::syscall(434 /* pidfd_open */, process, 0))};
  if (end.get() < 0) return true;
  pollfd polled{end.get(), POLLIN, 0};
  return ::poll(&polled, 1, static_cast<int>(time.count())) > 0;
}

/// Asks again until it is so, for ten seconds at most: for what no descriptor tells.
template <class Condition>
bool eventually(const Condition& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{10};
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

}  // namespace testsupport
