// A conversation with the resident host, for programs that wait: one request at a time, or a stream
// of notifications.
#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Control/LineBuffer.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Foundation/JsonValue.hpp"

namespace control {

struct ClientError {
  bool isMissing = false;  ///< no host listens
  std::string line;
};
template <class T>
using ClientResult = std::expected<T, ClientError>;

/// What the host says of itself, unasked or as an answer.
struct Message {
  std::optional<std::int64_t> id;    ///< of an answer
  std::string method;                ///< of a notification
  foundation::JsonDocument content;  ///< result or parameters
  std::string error;                 ///< instead of a result; one line
};

class Client {
 public:
  [[nodiscard]] static ClientResult<Client> connect(const std::string& socket);

  /// The result; notifications before it are dropped.
  [[nodiscard]] ClientResult<foundation::JsonDocument> call(
      std::string_view method,
      std::string_view parametersJson,
      std::chrono::milliseconds deadline = std::chrono::seconds{15});

  /// Sends a request without waiting; its number.
  [[nodiscard]] ClientResult<std::int64_t> send(std::string_view method,
                                                std::string_view parametersJson);
  /// What has arrived whole; nothing when the rest is still on its way.
  [[nodiscard]] ClientResult<std::optional<Message>> next();
  [[nodiscard]] int descriptor() const { return socket_.get(); }

 private:
  explicit Client(foundation::FileDescriptor socket) : socket_(std::move(socket)) {}
  /// False at the host's end.
  [[nodiscard]] bool readMore();

  foundation::FileDescriptor socket_;
  // Answers are the host's own and may be longer than what it takes.
  LineBuffer lines_{std::size_t{1} << 20};
  std::int64_t lastId_ = 0;
};

}  // namespace control
