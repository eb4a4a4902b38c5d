// The sockets of a server that this machine alone can reach.
#pragma once

#include <optional>

#include "Foundation/FileDescriptor.hpp"

namespace surfaces {

struct LoopbackSockets {
  foundation::FileDescriptor ipv4;  ///< listens
  /// Bound and never listened on: browsers try both addresses of "localhost", and nobody else may
  /// answer on this one.
  foundation::FileDescriptor ipv6;
  int port = 0;
};

/// On a port that is free at both addresses; nothing when none is found.
[[nodiscard]] std::optional<LoopbackSockets> listenOnLoopback();

}  // namespace surfaces
