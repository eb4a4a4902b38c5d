#include "Surfaces/Web/WebServer.hpp"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <systemd/sd-event.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <set>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
#include "Surfaces/Web/BoardJson.hpp"
#include "Surfaces/Web/WebGate.hpp"

namespace surfaces {
namespace {

using foundation::FileDescriptor;

constexpr std::size_t kMaximumPending = std::size_t{256} << 10;  ///< bytes that a stream may hold
constexpr std::size_t kConnectionMemory = std::size_t{32} << 10;
constexpr unsigned kSilence = 20;  ///< seconds that a connection may stay silent while it is served

/// Scripts, styles and pictures of this server alone; no frame, no form, nothing inline.
constexpr std::string_view kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

struct EndSource {
  void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
};
using Source = std::unique_ptr<sd_event_source, EndSource>;

struct Sockets {
  FileDescriptor ipv4;  ///< listens
  /// Bound and never listened on: browsers try both addresses of "localhost", and nobody else shall
  /// answer on this one.
  FileDescriptor ipv6;
  int port = 0;
};

std::optional<Sockets> bindBoth() {
  Sockets sockets;
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

std::optional<Sockets> listenOnLoopback() {
  for (int attempt = 0; attempt < 16; ++attempt) {
    auto sockets = bindBoth();
    if (sockets && ::listen(sockets->ipv4.get(), 64) == 0) return sockets;
  }
  return std::nullopt;
}

MHD_Result collectHead(void* to, MHD_ValueKind, const char* name, const char* value) {
  auto& head = *static_cast<RequestHead*>(to);
  const std::string text = value ? value : "";
  const auto is = [&](const char* field) { return ::strcasecmp(name, field) == 0; };
  if (is("Host")) head.hosts.push_back(text);
  if (is("Origin")) head.origins.push_back(text);
  if (is("Sec-Fetch-Site")) head.fetchSites.push_back(text);
  if (is("Authorization")) head.authorizations.push_back(text);
  if (is("Content-Type")) head.contentTypes.push_back(text);
  if (is("Content-Length")) head.contentLengths.push_back(text);
  if (is("Transfer-Encoding")) head.isChunked = true;
  return MHD_YES;
}

MHD_Result collectQuery(void* to, MHD_ValueKind, const char* name, const char* value) {
  (*static_cast<std::map<std::string, std::string>*>(to))[name] = value ? value : "";
  return MHD_YES;
}

WebReply replyTo(const Refusal& refusal) {
  return {refusal.status, "application/json", errorJson(refusal.line), {}};
}

void addHeaders(MHD_Response* response, const std::string& type, const std::string& fileName) {
  const std::array<std::pair<const char*, std::string>, 8> headers{{
      {"Content-Type", type},
      {"Content-Security-Policy", std::string(kPolicy)},
      {"Cross-Origin-Resource-Policy", "same-origin"},
      {"Cross-Origin-Opener-Policy", "same-origin"},
      {"X-Content-Type-Options", "nosniff"},
      {"Cache-Control", "no-store"},
      {"Referrer-Policy", "no-referrer"},
      {"Content-Disposition",
       fileName.empty() ? "inline" : "attachment; filename=\"" + fileName + "\""},
  }};
  for (const auto& [name, value] : headers) MHD_add_response_header(response, name, value.c_str());
}

MHD_Result queue(MHD_Connection* connection, const WebReply& reply) {
  // The library copies the body and does not change it.
  auto* body = const_cast<char*>(reply.body.data());
  MHD_Response* response =
      MHD_create_response_from_buffer(reply.body.size(), body, MHD_RESPMEM_MUST_COPY);
  if (!response) return MHD_NO;
  addHeaders(response, reply.type, reply.fileName);
  const MHD_Result queued =
      MHD_queue_response(connection, static_cast<unsigned>(reply.status), response);
  MHD_destroy_response(response);
  return queued;
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

/// A connection's time to bring its next head.
struct Client {
  Source deadline;
  int descriptor = -1;
};

/// An open stream of events.
struct Stream {
  WebServer::State* server = nullptr;
  MHD_Connection* connection = nullptr;
  Source hangUp;
  std::string pending = ":\n\n";  // so that the head leaves at once
  bool isSuspended = false;
  bool isOver = false;
};

struct WebServer::State {
  sd_event* loop = nullptr;
  WebHandler& handler;
  const PublicFiles& files;
  Limits limits;
  Sockets sockets;
  std::string name;
  GateRules rules;
  MHD_Daemon* daemon = nullptr;
  Source readable;
  Source timer;
  std::set<std::shared_ptr<Exchange>> exchanges;
  std::set<Stream*> streams;
  bool isEnding = false;

  std::string start();
  void run();
  void runIn(std::uint64_t milliseconds);
  void resume(MHD_Connection* connection, bool& isSuspended);
  void expectHead(Client& client, std::chrono::milliseconds time);
  MHD_Result access(MHD_Connection* connection,
                    const char* method,
                    const char* bytes,
                    std::size_t* size,
                    Exchange& exchange);
  MHD_Result takeHead(MHD_Connection* connection, const char* method, Exchange& exchange);
  void ask(const std::shared_ptr<Exchange>& exchange);
  MHD_Result openStream(MHD_Connection* connection);
  void wake(Stream& stream);
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
                           void** client,
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
  name = random->substr(0, 12) + ".localhost:" + std::to_string(sockets.port);
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
  if (sd_event_add_time_relative(loop, &source, CLOCK_MONOTONIC, 0, 1000, onTime, this) < 0)
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

void WebServer::State::expectHead(Client& client, std::chrono::milliseconds time) {
  sd_event_source* source = nullptr;
  const auto onTime = [](sd_event_source*, std::uint64_t, void* late) {
    auto* found = static_cast<Client*>(late);
    ::shutdown(found->descriptor, SHUT_RDWR);
    return 0;
  };
  const auto microseconds = static_cast<std::uint64_t>(time.count()) * 1000;
  sd_event_add_time_relative(loop, &source, CLOCK_MONOTONIC, microseconds, 0, onTime, &client);
  client.deadline.reset(source);
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
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
  if (info && info->socket_context) static_cast<Client*>(info->socket_context)->deadline.reset();
  RequestHead head{.method = method, .target = exchange.target};
  MHD_get_connection_values(connection, MHD_HEADER_KIND, &collectHead, &head);
  if (const auto refusal = refuse(head, rules)) return queue(connection, replyTo(*refusal));
  exchange.request.method = head.method == "HEAD" ? "GET" : head.method;
  exchange.request.path = std::string(pathOf(head.target));
  MHD_get_connection_values(
      connection, MHD_GET_ARGUMENT_KIND, &collectQuery, &exchange.request.query);
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
  if (exchange.reply) return queue(connection, *exchange.reply);
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
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
  if (!state.isEnding && info && info->socket_context)
    state.expectHead(*static_cast<Client*>(info->socket_context), state.limits.idle);
}

void WebServer::State::onConnection(void* self,
                                    MHD_Connection* connection,
                                    void** client,
                                    MHD_ConnectionNotificationCode code) {
  auto& state = *static_cast<State*>(self);
  if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
    delete static_cast<Client*>(*client);
    *client = nullptr;
    return;
  }
  auto made = std::make_unique<Client>();
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  made->descriptor = info ? info->connect_fd : -1;
  state.expectHead(*made, state.limits.head);
  *client = made.release();
}

MHD_Result WebServer::State::openStream(MHD_Connection* connection) {
  auto* stream = new Stream{.server = this, .connection = connection};
  MHD_Response* response = MHD_create_response_from_callback(
      MHD_SIZE_UNKNOWN, 4096, &State::onRead, stream, &State::onStreamGone);
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
    server.wake(over);
    server.run();  // ends the response, and `over` with it
    return 0;
  };
  sd_event_source* source = nullptr;
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
  if (info) sd_event_add_io(loop, &source, info->connect_fd, EPOLLRDHUP, onHangUp, stream);
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
  std::memcpy(to, stream.pending.data(), count);
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

void WebServer::State::wake(Stream& stream) {
  resume(stream.connection, stream.isSuspended);
}

/// The library does not stop while a connection is suspended.
void WebServer::State::end() {
  isEnding = true;
  if (!daemon) return;
  for (Stream* stream : streams) {
    stream->isOver = true;
    wake(*stream);
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
    state_->wake(*stream);
  }
}

}  // namespace surfaces
