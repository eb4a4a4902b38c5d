#include "Surfaces/Web/WebServer.hpp"

#include <microhttpd.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <systemd/sd-event.h>

#include <algorithm>
#include <set>
#include <utility>

#include "Surfaces/Web/BoardJson.hpp"
#include "Surfaces/Web/EventSource.hpp"
#include "Surfaces/Web/HeadDeadlines.hpp"
#include "Surfaces/Web/LoopbackSockets.hpp"
#include "Surfaces/Web/WebGate.hpp"
#include "Surfaces/Web/WebHead.hpp"
#include "Surfaces/Web/WebResponse.hpp"

namespace surfaces {
namespace {

constexpr std::size_t kMaximumPending = std::size_t{256} << 10;  ///< bytes that a stream may hold
constexpr std::size_t kConnectionMemory = std::size_t{32} << 10;
constexpr std::size_t kStreamBlock = 4096;   ///< bytes that are asked of a stream at a time
constexpr std::size_t kHostName = 12;        ///< characters; whoever guesses ports cannot guess it
constexpr std::uint64_t kAccuracy = 1000;    ///< microseconds by which a timer may be late
constexpr std::size_t kMaximumWaiting = 16;  ///< connections that owe a head
constexpr unsigned kSilence = 20;  ///< seconds that a connection may stay silent while it is served

int descriptorOf(MHD_Connection* connection) {
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  return info ? info->connect_fd : -1;
}

}  // namespace

/// One request, from its first line to its answer.
struct Exchange {
  WebServer::State* server = nullptr;
  std::string target;
  WebRequest request;
  MHD_Connection* connection = nullptr;
  std::optional<WebReply> reply;
  bool hasHead = false;
  bool isAsked = false;
  bool isSuspended = false;
};

/// An open stream of events.
struct Stream {
  WebServer::State* server = nullptr;
  MHD_Connection* connection = nullptr;
  EventSource hangUp;
  std::string pending = ":\n\n";  // so that the head leaves at once
  bool isSuspended = false;
  bool isOver = false;
};

struct WebServer::State {
  sd_event* loop = nullptr;
  WebHandler& handler;
  const PublicFiles& files;
  Limits limits;
  LoopbackSockets sockets;
  std::string name;
  GateRules rules;
  MHD_Daemon* daemon = nullptr;
  EventSource readable;
  EventSource timer;
  std::set<std::shared_ptr<Exchange>> exchanges;
  std::set<Stream*> streams;
  HeadDeadlines deadlines{loop, kMaximumWaiting};
  bool isEnding = false;

  std::string start();
  void run();
  void runIn(std::uint64_t milliseconds);
  void resume(MHD_Connection* connection, bool& isSuspended);
  MHD_Result access(MHD_Connection* connection,
                    const char* method,
                    const char* bytes,
                    std::size_t* size,
                    Exchange& exchange);
  MHD_Result takeHead(MHD_Connection* connection, const char* method, Exchange& exchange);
  void ask(const std::shared_ptr<Exchange>& exchange);
  MHD_Result openStream(MHD_Connection* connection);
  void forget(Stream* stream);
  void end();

  // What the library calls, with the State (or the Stream) that it was given.
  static void* begin(void* self, const char* target, MHD_Connection*);
  static MHD_Result onAccess(void* self,
                             MHD_Connection* connection,
                             const char*,
                             const char* method,
                             const char*,
                             const char* bytes,
                             std::size_t* size,
                             void** exchange);
  static void onCompleted(void* self, MHD_Connection*, void** exchange, MHD_RequestTerminationCode);
  static void onConnection(void* self,
                           MHD_Connection* connection,
                           void**,
                           MHD_ConnectionNotificationCode code);
  static ssize_t onRead(void* stream, std::uint64_t, char* to, std::size_t most);
  static void onStreamGone(void* stream);
};

std::string WebServer::State::start() {
  auto bound = listenOnLoopback();
  auto random = randomName();
  auto token = randomName();
  if (!bound || !random || !token) return "no port of the loopback address can be listened on";
  sockets = std::move(*bound);
  name = random->substr(0, kHostName) + ".localhost:" + std::to_string(sockets.port);
  rules.host = name;
  rules.token = *token;
  for (const auto& [path, file] : files) rules.publicPaths.push_back(path);
  daemon = MHD_start_daemon(MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME,
                            0,
                            nullptr,
                            nullptr,
                            &State::onAccess,
                            this,
                            MHD_OPTION_LISTEN_SOCKET,
                            sockets.ipv4.get(),
                            MHD_OPTION_CONNECTION_LIMIT,
                            limits.connections,
                            MHD_OPTION_CONNECTION_MEMORY_LIMIT,
                            kConnectionMemory,
                            MHD_OPTION_CONNECTION_TIMEOUT,
                            kSilence,
                            MHD_OPTION_STRICT_FOR_CLIENT,
                            1,
                            MHD_OPTION_URI_LOG_CALLBACK,
                            &State::begin,
                            this,
                            MHD_OPTION_NOTIFY_COMPLETED,
                            &State::onCompleted,
                            this,
                            MHD_OPTION_NOTIFY_CONNECTION,
                            &State::onConnection,
                            this,
                            MHD_OPTION_END);
  if (!daemon) return "the web server does not start";
  (void)sockets.ipv4.release();  // closed by the library from now on
  const auto* info = MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_EPOLL_FD);
  sd_event_source* source = nullptr;
  const auto onEvent = [](sd_event_source*, int, std::uint32_t, void* self) {
    static_cast<State*>(self)->run();
    return 0;
  };
  if (!info || sd_event_add_io(loop, &source, info->listen_fd, EPOLLIN, onEvent, this) < 0)
    return "the web server cannot be watched";
  readable.reset(source);
  const auto onTime = [](sd_event_source*, std::uint64_t, void* self) {
    static_cast<State*>(self)->run();
    return 0;
  };
  if (sd_event_add_time_relative(loop, &source, CLOCK_MONOTONIC, 0, kAccuracy, onTime, this) < 0)
    return "the web server has no timer";
  timer.reset(source);
  sd_event_source_set_enabled(source, SD_EVENT_OFF);
  return {};
}

/// Lets the library do what there is, then arms the timer for what it waits for.
void WebServer::State::run() {
  // A connection that was resumed is served in one turn and taken away in the next.
  MHD_run(daemon);
  MHD_run(daemon);
  MHD_UNSIGNED_LONG_LONG milliseconds = 0;
  if (MHD_get_timeout(daemon, &milliseconds) == MHD_YES) {
    runIn(milliseconds);
  } else {
    sd_event_source_set_enabled(timer.get(), SD_EVENT_OFF);
  }
}

void WebServer::State::runIn(std::uint64_t milliseconds) {
  sd_event_source_set_time_relative(timer.get(), milliseconds * 1000);
  sd_event_source_set_enabled(timer.get(), SD_EVENT_ONESHOT);
}

void WebServer::State::resume(MHD_Connection* connection, bool& isSuspended) {
  if (!std::exchange(isSuspended, false)) return;
  MHD_resume_connection(connection);
  // The library wakes nobody: what was resumed is served when it runs next.
  runIn(0);
}

void* WebServer::State::begin(void* self, const char* target, MHD_Connection*) {
  auto exchange = std::make_shared<Exchange>();
  exchange->server = static_cast<State*>(self);
  exchange->target = target;
  exchange->server->exchanges.insert(exchange);
  return exchange.get();
}

MHD_Result WebServer::State::onAccess(void* self,
                                      MHD_Connection* connection,
                                      const char*,
                                      const char* method,
                                      const char*,
                                      const char* bytes,
                                      std::size_t* size,
                                      void** exchange) {
  return static_cast<State*>(self)->access(
      connection, method, bytes, size, *static_cast<Exchange*>(*exchange));
}

MHD_Result WebServer::State::takeHead(MHD_Connection* connection,
                                      const char* method,
                                      Exchange& exchange) {
  exchange.hasHead = true;
  exchange.connection = connection;
  deadlines.settle(descriptorOf(connection));
  const RequestHead head = headOf(connection, method, exchange.target);
  if (const auto refusal = refuse(head, rules))
    return queueReply(connection, replyTo(*refusal)) ? MHD_YES : MHD_NO;
  exchange.request.method = head.method == "HEAD" ? "GET" : head.method;
  exchange.request.path = std::string(pathOf(head.target));
  exchange.request.query = queryOf(connection);
  return MHD_YES;
}

MHD_Result WebServer::State::access(MHD_Connection* connection,
                                    const char* method,
                                    const char* bytes,
                                    std::size_t* size,
                                    Exchange& exchange) {
  if (!exchange.hasHead) return takeHead(connection, method, exchange);
  if (*size > 0) {
    // The head said how long the body is, within bounds, and the library holds the client to it.
    exchange.request.body.append(bytes, *size);
    *size = 0;
    return MHD_YES;
  }
  if (!exchange.isAsked) {
    exchange.isAsked = true;
    if (exchange.request.path == "/events") return openStream(connection);
    for (const auto& known : exchanges)
      if (known.get() == &exchange) ask(known);
  }
  if (exchange.reply) return queueReply(connection, *exchange.reply) ? MHD_YES : MHD_NO;
  exchange.isSuspended = true;
  MHD_suspend_connection(connection);
  return MHD_YES;
}

void WebServer::State::ask(const std::shared_ptr<Exchange>& exchange) {
  if (const auto file = files.find(exchange->request.path); file != files.end()) {
    exchange->reply = {200, std::string(file->second.type), std::string(file->second.body), {}};
    return;
  }
  handler.handle(exchange->request, [asked = std::weak_ptr(exchange)](WebReply reply) {
    const auto waiting = asked.lock();
    if (!waiting || waiting->reply) return;
    waiting->reply = std::move(reply);
    waiting->server->resume(waiting->connection, waiting->isSuspended);
  });
}

void WebServer::State::onCompleted(void* self,
                                   MHD_Connection* connection,
                                   void** exchange,
                                   MHD_RequestTerminationCode) {
  auto& state = *static_cast<State*>(self);
  std::erase_if(state.exchanges, [&](const auto& known) { return known.get() == *exchange; });
  *exchange = nullptr;
  if (!state.isEnding) state.deadlines.expect(descriptorOf(connection), state.limits.idle);
}

void WebServer::State::onConnection(void* self,
                                    MHD_Connection* connection,
                                    void**,
                                    MHD_ConnectionNotificationCode code) {
  auto& state = *static_cast<State*>(self);
  const int descriptor = descriptorOf(connection);
  if (code == MHD_CONNECTION_NOTIFY_CLOSED) return state.deadlines.settle(descriptor);
  state.deadlines.expect(descriptor, state.limits.head);
}

MHD_Result WebServer::State::openStream(MHD_Connection* connection) {
  auto* stream = new Stream{.server = this, .connection = connection};
  MHD_Response* response = MHD_create_response_from_callback(
      MHD_SIZE_UNKNOWN, kStreamBlock, &State::onRead, stream, &State::onStreamGone);
  if (!response) {
    delete stream;
    return MHD_NO;
  }
  streams.insert(stream);
  if (streams.size() == 1) handler.watched(true);
  // The library does not look at a suspended connection, so that a closed page would never be seen.
  const auto onHangUp = [](sd_event_source*, int, std::uint32_t, void* gone) {
    auto& over = *static_cast<Stream*>(gone);
    over.isOver = true;
    over.hangUp.reset();
    State& server = *over.server;
    server.resume(over.connection, over.isSuspended);
    server.run();  // ends the response, and `over` with it
    return 0;
  };
  sd_event_source* source = nullptr;
  sd_event_add_io(loop, &source, descriptorOf(connection), EPOLLRDHUP, onHangUp, stream);
  stream->hangUp.reset(source);
  addHeaders(response, "text/event-stream", {});
  const MHD_Result queued = MHD_queue_response(connection, MHD_HTTP_OK, response);
  MHD_destroy_response(response);
  return queued;
}

ssize_t WebServer::State::onRead(void* self, std::uint64_t, char* to, std::size_t most) {
  auto& stream = *static_cast<Stream*>(self);
  if (stream.isOver) return MHD_CONTENT_READER_END_WITH_ERROR;
  if (stream.pending.empty()) {
    stream.isSuspended = true;
    MHD_suspend_connection(stream.connection);
    return 0;
  }
  const std::size_t count = std::min(most, stream.pending.size());
  std::copy_n(stream.pending.data(), count, to);
  stream.pending.erase(0, count);
  return static_cast<ssize_t>(count);
}

void WebServer::State::onStreamGone(void* self) {
  auto* stream = static_cast<Stream*>(self);
  stream->server->forget(stream);
}

void WebServer::State::forget(Stream* stream) {
  streams.erase(stream);
  delete stream;
  if (streams.empty() && !isEnding) handler.watched(false);
}

/// The library does not stop while a connection is suspended.
void WebServer::State::end() {
  isEnding = true;
  if (!daemon) return;
  for (Stream* stream : streams) {
    stream->isOver = true;
    resume(stream->connection, stream->isSuspended);
  }
  for (const auto& exchange : exchanges) {
    exchange->reply = WebReply{503, "application/json", errorJson("The host is ending."), {}};
    resume(exchange->connection, exchange->isSuspended);
  }
  MHD_run(daemon);
  readable.reset();
  timer.reset();
  MHD_stop_daemon(std::exchange(daemon, nullptr));
}

WebServer::WebServer(std::unique_ptr<State> state) : state_(std::move(state)) {}

WebServer::~WebServer() {
  state_->end();
}

std::expected<std::unique_ptr<WebServer>, std::string> WebServer::open(sd_event* loop,
                                                                       WebHandler& handler,
                                                                       const PublicFiles& files,
                                                                       Limits limits) {
  auto state = std::make_unique<State>(loop, handler, files, limits);
  if (auto problem = state->start(); !problem.empty()) return std::unexpected(std::move(problem));
  return std::unique_ptr<WebServer>(new WebServer(std::move(state)));
}

std::string WebServer::url() const {
  return "http://" + state_->name + "/#" + state_->rules.token;
}

int WebServer::port() const {
  return state_->sockets.port;
}

std::size_t WebServer::streams() const {
  return state_->streams.size();
}

void WebServer::send(std::string_view name, std::string_view data) {
  const std::string event = "event: " + std::string(name) + "\ndata: " + std::string(data) + "\n\n";
  for (Stream* stream : state_->streams) {
    if (stream->isOver) continue;
    stream->pending += event;
    // Whoever does not read loses the stream; a page opens another and asks for everything anew.
    if (stream->pending.size() > kMaximumPending) stream->isOver = true;
    state_->resume(stream->connection, stream->isSuspended);
  }
}

}  // namespace surfaces
