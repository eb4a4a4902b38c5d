// The socket that the host listens on, from systemd or made here, and that there is one host only.
#pragma once

#include <expected>
#include <string>

#include "Control/Paths.hpp"
#include "Foundation/FileDescriptor.hpp"

namespace resident {

struct Listening {
  foundation::FileDescriptor listener;
  foundation::FileDescriptor lock;  ///< held as long as the host runs
  bool isOurs = true;               ///< false: handed in by systemd, which keeps the socket
};

/// What is in the way, in one line.
[[nodiscard]] std::expected<Listening, std::string> listenAt(const control::Paths& paths);

/// Tells systemd, if it waits to hear it.
void sayReady();

}  // namespace resident
