#include "Surfaces/Web/LoopbackSockets.hpp"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>

namespace surfaces {

using foundation::FileDescriptor;

namespace {

std::optional<LoopbackSockets> bindBoth() {
  LoopbackSockets sockets;
  sockets.ipv4 = FileDescriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  sockaddr_in v4{};
  v4.sin_family = AF_INET;
  v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof v4;
  auto* address = reinterpret_cast<sockaddr*>(&v4);
  if (::bind(sockets.ipv4.get(), address, size) < 0 ||
      ::getsockname(sockets.ipv4.get(), address, &size) < 0)
    return std::nullopt;
  sockets.port = ntohs(v4.sin_port);
  sockets.ipv6 = FileDescriptor(::socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!sockets.ipv6) return sockets;  // this machine has no IPv6
  sockaddr_in6 v6{};
  v6.sin6_family = AF_INET6;
  v6.sin6_addr = in6addr_loopback;
  v6.sin6_port = v4.sin_port;
  if (::bind(sockets.ipv6.get(), reinterpret_cast<sockaddr*>(&v6), sizeof v6) == 0 ||
      errno == EADDRNOTAVAIL)
    return sockets;
  return std::nullopt;
}

}  // namespace

std::optional<LoopbackSockets> listenOnLoopback() {
  for (int attempt = 0; attempt < 16; ++attempt) {
    auto sockets = bindBoth();
    if (sockets && ::listen(sockets->ipv4.get(), 64) == 0) return sockets;
  }
  return std::nullopt;
}

}  // namespace surfaces
