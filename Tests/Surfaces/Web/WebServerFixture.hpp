// The server and clients that speak to its socket, all driven by one thread.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <systemd/sd-event.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
#include "Surfaces/Web/WebServer.hpp"

namespace surfaces {

inline constexpr std::chrono::seconds kLongest{10};

struct FakeHandler : WebHandler {
  std::vector<WebRequest> requests;
  std::vector<Respond> waiting;  ///< not answered yet
  bool answersAtOnce = true;
  std::vector<bool> watches;

  void handle(const WebRequest& request, Respond respond) override {
    requests.push_back(request);
    if (answersAtOnce) return respond({.body = R"({"path":")" + request.path + "\"}"});
    waiting.push_back(std::move(respond));
  }
  void watched(bool isWatched) override { watches.push_back(isWatched); }
};

class WebServerTest : public testing::Test {
 protected:
  WebServerTest() { sd_event_new(&loop_); }
  ~WebServerTest() override {
    server.reset();
    sd_event_unref(loop_);
  }

  void start(WebServer::Limits limits = {}) {
    auto opened = WebServer::open(loop_, handler, files_, limits);
    ASSERT_TRUE(opened) << opened.error();
    server = *std::move(opened);
    const std::string url = server->url();
    const auto slash = url.find("/#");
    host = url.substr(7, slash - 7);
    token = url.substr(slash + 2);
  }

  void turn(std::chrono::milliseconds time = {}) {
    sd_event_run(loop_, static_cast<std::uint64_t>(time.count()) * 1000);
  }

  template <class Condition>
  [[nodiscard]] bool until(Condition condition) {
    for (const auto end = std::chrono::steady_clock::now() + kLongest;
         std::chrono::steady_clock::now() < end;
         turn(std::chrono::milliseconds{2}))
      if (condition()) return true;
    return false;
  }

  struct Client {
    foundation::FileDescriptor socket;
    std::string received;
    bool isOver = false;  ///< the server has closed the connection

    void read() {
      char bytes[65536];
      for (;;) {
        const ssize_t count = ::recv(socket.get(), bytes, sizeof bytes, MSG_DONTWAIT);
        if (count == 0 || (count < 0 && errno != EAGAIN)) isOver = true;
        if (count <= 0) return;
        received.append(bytes, static_cast<std::size_t>(count));
      }
    }
  };

  Client connect() {
    Client client{foundation::FileDescriptor{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)}};
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(server->port()));
    EXPECT_EQ(::connect(client.socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address),
              0);
    return client;
  }

  static void send(Client& client, std::string_view text) {
    while (!text.empty()) {
      const ssize_t count = ::send(client.socket.get(), text.data(), text.size(), MSG_NOSIGNAL);
      if (count <= 0) return;  // closed already
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// A head of the page's own, with more lines.
  [[nodiscard]] std::string head(const std::string& line, const std::string& more = {}) const {
    return line + " HTTP/1.1\r\nHost: " + host + "\r\nAuthorization: Bearer " + token +
           "\r\nSec-Fetch-Site: same-origin\r\n" + more + "\r\n";
  }

  [[nodiscard]] std::string post(const std::string& path, const std::string& body) const {
    return head("POST " + path,
                "Content-Type: application/json\r\nContent-Length: " + std::to_string(body.size()) +
                    "\r\n") +
           body;
  }

  /// Whether a whole answer has come.
  static bool hasAnswer(Client& client) {
    client.read();
    const auto end = client.received.find("\r\n\r\n");
    if (end == std::string::npos) return client.isOver;
    const auto length = client.received.find("Content-Length: ");
    if (length == std::string::npos || length > end) return client.isOver;
    return client.received.size() >= end + 4 + std::stoul(client.received.substr(length + 16));
  }

  /// What the server answers to a text on a connection of its own.
  std::string answer(const std::string& text) {
    Client client = connect();
    send(client, text);
    EXPECT_TRUE(until([&] { return hasAnswer(client); })) << text.substr(0, 200);
    return client.received;
  }

  int status(const std::string& text) {
    const std::string whole = answer(text);
    return whole.starts_with("HTTP/1.1 ") ? std::stoi(whole.substr(9, 3)) : 0;
  }

  Client openStream() {
    Client client = connect();
    send(client, head("GET /events"));
    EXPECT_TRUE(until([&] {
      client.read();
      return client.received.ends_with(":\n\n") ||
             client.received.find("\r\n:\n\n") != std::string::npos;
    }));
    return client;
  }

  static std::size_t descriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }

  FakeHandler handler;
  std::unique_ptr<WebServer> server;
  std::string host;
  std::string token;

 private:
  sd_event* loop_ = nullptr;
  PublicFiles files_{{"/", {"text/html; charset=utf-8", "<!doctype html>"}}};
};

}  // namespace surfaces
