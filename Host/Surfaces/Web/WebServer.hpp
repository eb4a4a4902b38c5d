// An HTTP server on the loopback address for one page and its questions, within a loop of sd-event.
//
//     auto server = WebServer::open(loop, handler, files, {});  // listens at once
//     print((*server)->url());                                  // with the token in its fragment
//     (*server)->send("state", json);                           // to every open stream of events
//
// Its bounds: 32 connections, 5 s from the connection to the end of the first head, 30 s from an
// answer to the end of the next one, 1 MiB of body, 256 KiB that a stream's reader has not fetched.
#pragma once

#include <chrono>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

struct sd_event;

namespace surfaces {

struct WebRequest {
  std::string method;                        ///< GET or POST; a HEAD comes as GET
  std::string path;                          ///< "/widget/w1"
  std::map<std::string, std::string> query;  ///< decoded; the last of a name counts
  std::string body;                          ///< JSON of a POST

  [[nodiscard]] std::string value(const std::string& name) const {
    const auto found = query.find(name);
    return found == query.end() ? std::string() : found->second;
  }
};

struct WebReply {
  int status = 200;
  std::string type = "application/json";
  std::string body;
  std::string fileName;  ///< offered for a download; empty: shown
};

/// Answers once, at once or later, from the loop's thread. May outlive the connection and the
/// server: the reply then goes nowhere.
using Respond = std::function<void(WebReply reply)>;

class WebHandler {
 public:
  virtual ~WebHandler() = default;
  /// A request that the gate let pass, other than those of public files and of events.
  virtual void handle(const WebRequest& request, Respond respond) = 0;
  /// The first stream of events was opened, or the last one closed.
  virtual void watched(bool isWatched) = 0;
};

/// A file that anybody may fetch.
struct PublicFile {
  std::string_view type;
  std::string_view body;
};
using PublicFiles = std::map<std::string, PublicFile, std::less<>>;  ///< by path

class WebServer {
 public:
  struct Limits {
    unsigned connections = 32;
    std::chrono::milliseconds head{5000};   ///< from the connection to the end of the first head
    std::chrono::milliseconds idle{30000};  ///< from an answer to the end of the next head
  };

  /// The error is one line.
  [[nodiscard]] static std::expected<std::unique_ptr<WebServer>, std::string> open(
      sd_event* loop, WebHandler& handler, const PublicFiles& files, Limits limits);
  ~WebServer();
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  /// "http://NAME.localhost:PORT/#TOKEN": for the person's own browser and nobody else.
  [[nodiscard]] std::string url() const;
  [[nodiscard]] int port() const;
  [[nodiscard]] std::size_t streams() const;

  /// An event for every open stream; `data` is JSON on one line.
  void send(std::string_view name, std::string_view data);

  struct State;

 private:
  explicit WebServer(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace surfaces
