// The control socket: one JSON-RPC message per line, for the owner of the session alone.
//
// Bounds: 64 KiB per line, 64 clients, one second for half a line, and as many answers as fit into
// the socket and 256 KiB; a client that breaks one is let go.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "Control/LineBuffer.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Foundation/JsonValue.hpp"
#include "Resident/Loop.hpp"
#include "WidgetRuntime/JsonRpc.hpp"

namespace resident {

class ControlServer {
 public:
  static constexpr std::size_t kMaximumClients = 64;
  static constexpr std::size_t kMaximumOutgoing = std::size_t{256} << 10;
  static constexpr std::chrono::milliseconds kLineTime{1000};

  using Client = std::uint64_t;
  /// The result as JSON, or what to say instead.
  using Answer = std::expected<std::string, widgetruntime::RpcError>;
  using Reply = std::function<void(Answer)>;
  /// Replies once, now or later.
  using Handler = std::function<void(Client client,
                                     const std::string& method,
                                     const foundation::JsonValue& parameters,
                                     Reply reply)>;

  /// `listener` listens already. Clients of another user than `owner` are let go.
  ControlServer(Loop& loop,
                foundation::FileDescriptor listener,
                std::uint32_t owner,
                Handler handler);
  ~ControlServer();

  /// A notification, for a client that is still there.
  void notify(Client client, std::string_view method, std::string_view parametersJson);
  /// The client has gone.
  std::function<void(Client)> onGone;

  [[nodiscard]] std::size_t clients() const { return connections_.size(); }

 private:
  struct Connection;

  void accept();
  void handle(Client client, std::uint32_t events);
  void readLines(Client client);
  void handleLine(Client client, const std::string& line);
  void send(Client client, const std::string& line);
  bool flush(Connection& connection);
  void drop(Client client);

  Loop& loop_;
  foundation::FileDescriptor listener_;
  std::uint32_t owner_;
  Handler handler_;
  Client next_ = 1;
  std::map<Client, std::unique_ptr<Connection>> connections_;
  std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
  Watch watch_;
};

}  // namespace resident
