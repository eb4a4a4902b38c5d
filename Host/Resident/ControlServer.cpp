#include "Resident/ControlServer.hpp"

#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

namespace resident {

using widgetruntime::RpcErrorCode;
using widgetruntime::RpcId;

struct ControlServer::Connection {
  explicit Connection(foundation::FileDescriptor given) : socket(std::move(given)) {}

  foundation::FileDescriptor socket;
  control::LineBuffer lines;
  std::string outgoing;
  Watch watch;
  Watch patience;  // runs while half a line is there
};

ControlServer::ControlServer(Loop& loop,
                             foundation::FileDescriptor listener,
                             std::uint32_t owner,
                             Handler handler)
    : loop_(loop),
      listener_(std::move(listener)),
      owner_(owner),
      handler_(std::move(handler)),
      watch_(loop.onReadable(listener_.get(), [this] { accept(); })) {}

ControlServer::~ControlServer() {
  *isAlive_ = false;
}

void ControlServer::accept() {
  foundation::FileDescriptor socket{
      ::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)};
  if (!socket || connections_.size() >= kMaximumClients) return;
  ucred peer{};
  socklen_t size = sizeof peer;
  if (::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 ||
      peer.uid != owner_) {
    return;
  }
  const Client client = next_++;
  auto connection = std::make_unique<Connection>(std::move(socket));
  connection->watch = loop_.onEvents(
      connection->socket.get(), EPOLLIN | EPOLLRDHUP, [this, client](std::uint32_t events) {
        handle(client, events);
      });
  connections_.emplace(client, std::move(connection));
}

void ControlServer::handle(Client client, std::uint32_t events) {
  const auto found = connections_.find(client);
  if (found == connections_.end()) return;
  if ((events & (EPOLLERR | EPOLLHUP)) != 0) return drop(client);
  if ((events & EPOLLOUT) != 0 && !flush(*found->second)) return drop(client);
  if ((events & (EPOLLIN | EPOLLRDHUP)) != 0) readLines(client);
}

void ControlServer::readLines(Client client) {
  Connection& connection = *connections_.at(client);
  std::array<char, 16384> bytes;
  const ssize_t count = ::read(connection.socket.get(), bytes.data(), bytes.size());
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) return drop(client);
  connection.lines.append({bytes.data(), static_cast<std::size_t>(count)});
  for (;;) {
    // A handler may let the client go.
    const auto found = connections_.find(client);
    if (found == connections_.end()) return;
    const auto line = found->second->lines.next();
    if (!line) break;
    if (!line->empty()) handleLine(client, *line);
  }
  if (connection.lines.isTooLong()) {
    send(client,
         widgetruntime::writeError(
             {nullptr,
              {RpcErrorCode::invalidRequest,
               "a line is longer than " + std::to_string(control::kMaximumLine) + " bytes"}}));
    return drop(client);
  }
  if (connection.lines.pending() == 0) {
    connection.patience.reset();
  } else if (!connection.patience) {
    connection.patience = loop_.after(kLineTime, [this, client] { drop(client); });
  }
}

void ControlServer::handleLine(Client client, const std::string& line) {
  auto request = widgetruntime::readRequest(line);
  if (!request) return send(client, widgetruntime::writeError(request.error()));
  const std::optional<RpcId> id = request->id;
  Reply reply = [this, isAlive = isAlive_, client, id](Answer answer) {
    if (!*isAlive || !id) return;
    send(client,
         answer ? widgetruntime::writeResult(*id, *answer)
                : widgetruntime::writeError({*id, std::move(answer.error())}));
  };
  handler_(client, request->method, request->parameters, std::move(reply));
}

void ControlServer::notify(Client client,
                           std::string_view method,
                           std::string_view parametersJson) {
  send(client, widgetruntime::writeNotification(method, parametersJson));
}

void ControlServer::send(Client client, const std::string& line) {
  const auto found = connections_.find(client);
  if (found == connections_.end()) return;
  found->second->outgoing += line + "\n";
  const bool fits = found->second->outgoing.size() <= kMaximumOutgoing;
  if (!fits || !flush(*found->second)) drop(client);
}

bool ControlServer::flush(Connection& connection) {
  while (!connection.outgoing.empty()) {
    const ssize_t count = ::send(connection.socket.get(),
                                 connection.outgoing.data(),
                                 connection.outgoing.size(),
                                 MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno == EAGAIN) break;
    if (count < 0) return false;
    connection.outgoing.erase(0, static_cast<std::size_t>(count));
  }
  const std::uint32_t waiting = connection.outgoing.empty() ? 0U : EPOLLOUT;
  connection.watch.setEvents(EPOLLIN | EPOLLRDHUP | waiting);
  return true;
}

void ControlServer::drop(Client client) {
  if (connections_.erase(client) > 0 && onGone) onGone(client);
}

}  // namespace resident
