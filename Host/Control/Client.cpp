#include "Control/Client.hpp"

#include <fmt/format.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "WidgetRuntime/JsonRpc.hpp"

namespace control {
namespace {

using foundation::FileDescriptor;
using foundation::JsonDocument;

std::unexpected<ClientError> failed(std::string line) {
  return std::unexpected(ClientError{false, std::move(line)});
}

std::expected<Message, std::string> read(const std::string& line) {
  Message message;
  if (auto answer = widgetruntime::readAnswer(line)) {
    if (const auto* id = std::get_if<std::int64_t>(&answer->id)) message.id = *id;
    if (answer->result) {
      message.content = *std::move(answer->result);
    } else {
      message.error = answer->result.error().message;
      if (message.error.empty()) message.error = "the resident host refuses and does not say why";
    }
    return message;
  }
  auto request = widgetruntime::readRequest(line);
  if (!request) return std::unexpected("it is no resident host that answers");
  message.method = std::move(request->method);
  message.content = std::move(request->parameters);
  return message;
}

}  // namespace

ClientResult<Client> Client::connect(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    return failed(fmt::format("{}: longer than a socket's name may be", path));
  }
  path.copy(address.sun_path, path.size());
  FileDescriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  if (!socket) return failed(std::strerror(errno));
  if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    const bool isMissing = errno == ENOENT || errno == ECONNREFUSED;
    return std::unexpected(ClientError{
        isMissing,
        fmt::format("cannot reach the resident host at {}: {}", path, std::strerror(errno))});
  }
  return Client{std::move(socket)};
}

ClientResult<std::int64_t> Client::send(std::string_view method, std::string_view parametersJson) {
  const std::int64_t id = ++lastId_;
  std::string line = widgetruntime::writeRequest(id, method, parametersJson) + "\n";
  if (line.size() > kMaximumLine) return failed("the request is longer than the host takes");
  std::string_view rest = line;
  while (!rest.empty()) {
    const ssize_t count = ::send(socket_.get(), rest.data(), rest.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return failed("the resident host has gone");
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
  return id;
}

bool Client::readMore() {
  std::array<char, 16384> bytes;
  ssize_t count = 0;
  do {
    count = ::recv(socket_.get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
  } while (count < 0 && errno == EINTR);
  if (count > 0) lines_.append({bytes.data(), static_cast<std::size_t>(count)});
  return count > 0 || (count < 0 && errno == EAGAIN);
}

ClientResult<std::optional<Message>> Client::next() {
  auto line = lines_.next();
  if (!line) {
    if (!readMore()) return failed("the resident host has gone");
    line = lines_.next();
  }
  if (lines_.isTooLong()) return failed("the resident host says too much at once");
  if (!line) return std::nullopt;
  auto message = read(*line);
  if (!message) return failed(std::move(message.error()));
  return *std::move(message);
}

ClientResult<JsonDocument> Client::call(std::string_view method,
                                        std::string_view parametersJson,
                                        std::chrono::milliseconds deadline) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + deadline;
  const auto id = send(method, parametersJson);
  if (!id) return std::unexpected(id.error());
  for (;;) {
    auto message = next();
    if (!message) return std::unexpected(std::move(message.error()));
    if (auto& said = *message) {
      if (said->id != *id) continue;
      if (!said->error.empty()) return failed(said->error);
      return std::move(said->content);
    }
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    if (rest.count() <= 0) return failed(fmt::format("no answer in {} ms", deadline.count()));
    pollfd polled{socket_.get(), POLLIN, 0};
    ::poll(&polled, 1, static_cast<int>(rest.count()));
  }
}

}  // namespace control
