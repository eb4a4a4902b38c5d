#include "Resident/Listening.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <systemd/sd-daemon.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Foundation/NonBlocking.hpp"

namespace resident {
namespace {

using foundation::FileDescriptor;

std::unexpected<std::string> failed(const std::string& what) {
  return std::unexpected(fmt::format("{}: {}", what, std::strerror(errno)));
}

sockaddr_un addressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

bool isAnswering(const std::string& path) {
  const FileDescriptor client{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
  const sockaddr_un address = addressOf(path);
  return ::connect(client.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
             0 ||
         errno == EAGAIN;
}

std::expected<FileDescriptor, std::string> listenOn(const std::string& path) {
  if (path.size() + 4 >= sizeof(sockaddr_un::sun_path)) {
    return std::unexpected(fmt::format("{}: longer than a socket's name may be", path));
  }
  // The lock is ours, so what answers here is systemd's, kept for a unit that was not started.
  if (isAnswering(path)) {
    return std::unexpected(fmt::format(
        "{} is systemd's; start the host with `systemctl --user start quorvel-hostd`", path));
  }
  // Whoever waits for the name to appear finds somebody who listens.
  const std::string made = path + ".new";
  ::unlink(made.c_str());
  FileDescriptor listener{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
  const sockaddr_un address = addressOf(made);
  if (!listener ||
      ::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      ::chmod(made.c_str(), 0600) != 0 || ::listen(listener.get(), 64) != 0 ||
      std::rename(made.c_str(), path.c_str()) != 0) {
    return failed("cannot listen on " + path);
  }
  return listener;
}

/// The first descriptor that systemd hands in; -1 without one.
int handedIn() {
  const int count = sd_listen_fds(1);
  if (count < 1) return -1;
  const int first = SD_LISTEN_FDS_START;
  return sd_is_socket_unix(first, SOCK_STREAM, 1, nullptr, 0) > 0 ? first : -1;
}

}  // namespace

std::expected<Listening, std::string> listenAt(const control::Paths& paths) {
  if (paths.runtime.empty()) {
    return std::unexpected(
        std::string{"XDG_RUNTIME_DIR is not set, so there is no place to listen"});
  }
  if (const auto problem = control::makePrivateFolder(paths.runtime)) {
    return std::unexpected(*problem);
  }
  Listening result{.listener = FileDescriptor{-1}, .lock = FileDescriptor{-1}};
  const std::string lock = paths.lock();
  result.lock = FileDescriptor{::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)};
  if (!result.lock) return failed("cannot open " + lock);
  if (::flock(result.lock.get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) {
      return std::unexpected(
          std::string{"a resident host runs already (see `quorvel-host status`)"});
    }
    return failed("cannot lock " + lock);
  }
  if (const int descriptor = handedIn(); descriptor >= 0) {
    foundation::stopBlocking(descriptor);
    result.listener = FileDescriptor{descriptor};
    result.isOurs = false;
    return result;
  }
  auto listener = listenOn(paths.socket());
  if (!listener) return std::unexpected(listener.error());
  result.listener = *std::move(listener);
  return result;
}

void sayReady() {
  sd_notify(0, "READY=1");
}

}  // namespace resident
