#include "Session/ChildProcess.hpp"

#include <fmt/format.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <optional>
#include <string_view>
#include <utility>

#include "Foundation/NonBlocking.hpp"
#include "Session/Answer.hpp"
#include "Session/Diagnostics.hpp"
#include "Session/Launch.hpp"
#include "WidgetRuntime/Framing.hpp"
#include "WidgetRuntime/JsonRpc.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace session {

using Clock = std::chrono::steady_clock;
using foundation::JsonDocument;
using foundation::wouldBlock;
using Kind = SessionError::Kind;

namespace {

constexpr std::size_t kReadSize = std::size_t{64} << 10;
constexpr std::size_t kMaximumErrorOutput = std::size_t{4} << 20;  // bytes during one request
constexpr std::chrono::milliseconds kTimeToDie{500};

// Writing to a child that is gone must not end the host, and what the host does about SIGPIPE
// elsewhere is its own affair.
class PipeSignalBlocked {
 public:
  PipeSignalBlocked() {
    ::sigemptyset(&pipeSignal_);
    ::sigaddset(&pipeSignal_, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &pipeSignal_, &before_);
  }
  ~PipeSignalBlocked() {
    if (::sigismember(&before_, SIGPIPE) == 0) {
      const timespec now{};
      while (::sigtimedwait(&pipeSignal_, nullptr, &now) < 0 && errno == EINTR) {
      }
      ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
  }
  PipeSignalBlocked(const PipeSignalBlocked&) = delete;
  PipeSignalBlocked& operator=(const PipeSignalBlocked&) = delete;

 private:
  sigset_t pipeSignal_{};
  sigset_t before_{};
};

int remainingMilliseconds(Clock::time_point until) {
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
  return static_cast<int>(std::clamp<std::int64_t>(rest.count(), 0, 60'000));
}

std::string describeEnd(int status) {
  if (WIFEXITED(status)) return fmt::format("exited with status {}", WEXITSTATUS(status));
  if (WIFSIGNALED(status)) return fmt::format("was killed by signal {}", WTERMSIG(status));
  return "ended";
}

}  // namespace

std::vector<std::string> childEnvironment(const foundation::ProcessEnvironment& environment) {
  // Where the container is when initialize does not say; nothing else is the extension's business.
  std::vector<std::string> result;
  for (const char* name : {"HOME", "XDG_DATA_HOME"}) {
    const auto found = environment.find(name);
    if (found != environment.end()) result.push_back(found->first + "=" + found->second);
  }
  return result;
}

struct ChildProcess::State {
  explicit State(ChildProcessOptions given) : options(std::move(given)) {}

  // One request's way to the child and its answer's way back.
  struct Exchange {
    std::int64_t id = 0;
    std::string outgoing;  // the request, later perhaps a cancellation
    std::size_t requestSize = 0;
    std::size_t written = 0;
    std::size_t errorBytes = 0;

    // Between frames: the child can be asked again.
    [[nodiscard]] bool isBetweenFrames() const {
      return written == requestSize || written == outgoing.size();
    }
  };

  [[nodiscard]] bool isRunning();
  [[nodiscard]] Result<JsonDocument> call(std::string_view method,
                                          std::string_view parametersJson,
                                          std::chrono::milliseconds deadline);
  /// Nothing when the time is over.
  std::optional<Result<JsonDocument>> run(Exchange& exchange, Clock::time_point until);
  std::optional<SessionError> writeRequest(Exchange& exchange);
  std::optional<SessionError> readErrors(Exchange& exchange);
  std::optional<Result<JsonDocument>> readAnswer(const Exchange& exchange);
  [[nodiscard]] SessionError ended(std::string_view event);
  /// The status of the leader, when there was a child.
  std::optional<int> kill();

  ChildProcessOptions options;
  LaunchedProcess process;
  widgetruntime::FrameDecoder decoder{widgetruntime::kMaximumMessage};
  Diagnostics diagnostics;
  std::int64_t lastId = 0;
};

std::optional<int> ChildProcess::State::kill() {
  if (process.id == 0) return std::nullopt;
  return end(process);
}

SessionError ChildProcess::State::ended(std::string_view event) {
  // A process closes its pipes a moment before it is gone; its own end says more than our kill.
  const bool isGone = isReadableWithin(process.supervisorFile, kTimeToDie);
  std::array<char, 4096> bytes;
  ssize_t count = 0;
  for (int i = 0; i < 16 && (count = ::read(process.errors.get(), bytes.data(), bytes.size())) > 0;
       ++i) {
    diagnostics.append({bytes.data(), static_cast<std::size_t>(count)});
  }
  const auto status = kill();
  std::string message = isGone && status ? describeEnd(*status) : std::string(event);
  if (const std::string words = diagnostics.lastLine(); !words.empty()) {
    message += fmt::format("; its last words: {}", words);
  }
  return {Kind::died, std::move(message)};
}

std::optional<SessionError> ChildProcess::State::writeRequest(Exchange& exchange) {
  const std::string_view rest = std::string_view{exchange.outgoing}.substr(exchange.written);
  const PipeSignalBlocked blocked;
  const ssize_t count = ::write(process.input.get(), rest.data(), rest.size());
  if (count > 0) exchange.written += static_cast<std::size_t>(count);
  if (count < 0 && !wouldBlock()) return ended("closed its input");
  return std::nullopt;
}

std::optional<SessionError> ChildProcess::State::readErrors(Exchange& exchange) {
  std::array<char, kReadSize> bytes;
  const ssize_t count = ::read(process.errors.get(), bytes.data(), bytes.size());
  if (count == 0) process.errors.reset();
  if (count <= 0) return std::nullopt;
  diagnostics.append({bytes.data(), static_cast<std::size_t>(count)});
  exchange.errorBytes += static_cast<std::size_t>(count);
  if (exchange.errorBytes <= kMaximumErrorOutput) return std::nullopt;
  return SessionError{Kind::flood,
                      fmt::format("more than {} bytes of error output", kMaximumErrorOutput)};
}

std::optional<Result<JsonDocument>> ChildProcess::State::readAnswer(const Exchange& exchange) {
  const auto malformed = [](std::string message) {
    return std::unexpected(SessionError{Kind::malformed, std::move(message)});
  };
  std::array<char, kReadSize> bytes;
  const ssize_t count = ::read(process.output.get(), bytes.data(), bytes.size());
  if (count < 0 && wouldBlock()) return std::nullopt;
  if (count <= 0) return std::unexpected(ended("closed its output"));
  decoder.append({bytes.data(), static_cast<std::size_t>(count)});

  const auto received = decoder.next();
  if (!received) return malformed("broken frame: " + received.error().message);
  const std::optional<std::string>& message = *received;
  if (!message) return std::nullopt;
  if (exchange.written < exchange.requestSize) return malformed("answered before it was asked");
  if (decoder.pending() > 0) return malformed("more than one answer");
  return readResult(*message, exchange.id);
}

std::optional<Result<JsonDocument>> ChildProcess::State::run(Exchange& exchange,
                                                             Clock::time_point until) {
  do {
    const bool hasOutgoing = exchange.written < exchange.outgoing.size();
    const short wanted = hasOutgoing ? POLLOUT : 0;
    std::array<pollfd, 4> polled{pollfd{process.input.get(), wanted, 0},
                                 pollfd{process.output.get(), POLLIN, 0},
                                 pollfd{process.errors.get(), POLLIN, 0},
                                 pollfd{process.supervisorFile.get(), POLLIN, 0}};
    if (::poll(polled.data(), polled.size(), remainingMilliseconds(until)) <= 0) continue;
    const auto& [input, output, errors, end] = polled;
    if (errors.revents != 0) {
      if (auto error = readErrors(exchange)) return std::unexpected(std::move(*error));
    }
    // All output comes first: a child may have answered before it went, and something that it has
    // started may keep its pipes open when it has gone.
    if (output.revents != 0) {
      if (auto result = readAnswer(exchange)) return result;
    } else if (end.revents != 0) {
      return std::unexpected(ended("ended"));
    } else if ((input.revents & POLLERR) != 0) {
      return std::unexpected(ended("closed its input"));
    }
    if (input.revents == POLLOUT) {
      if (auto error = writeRequest(exchange)) return std::unexpected(std::move(*error));
    }
  } while (Clock::now() < until);
  return std::nullopt;
}

bool ChildProcess::State::isRunning() {
  if (process.id == 0) return false;
  // Output that nobody asked for makes the next answer unreadable, an end of it impossible.
  const bool isQuiet = !isReadableWithin(process.output, {}) && decoder.pending() == 0;
  if (isQuiet && !isReadableWithin(process.supervisorFile, {})) return true;
  kill();
  return false;
}

Result<JsonDocument> ChildProcess::State::call(std::string_view method,
                                               std::string_view parametersJson,
                                               std::chrono::milliseconds deadline) {
  const auto until = Clock::now() + deadline;
  if (process.id == 0) return std::unexpected(SessionError{Kind::notStarted, "not running"});
  Exchange exchange{++lastId, widgetruntime::writeRequest(lastId, method, parametersJson)};
  if (exchange.outgoing.size() > widgetruntime::kMaximumMessage) {
    return std::unexpected(SessionError{
        Kind::refused, fmt::format("a request of {} bytes is not sent", exchange.outgoing.size())});
  }
  exchange.outgoing = widgetruntime::encodeFrame(exchange.outgoing);
  exchange.requestSize = exchange.outgoing.size();

  auto result = run(exchange, until);
  if (!result) {
    // Whatever comes in the grace only shows that the child can go on.
    const std::string parameters = fmt::format(R"({{"id":{}}})", exchange.id);
    exchange.outgoing += widgetruntime::encodeFrame(
        widgetruntime::writeNotification(widgetruntime::method::kCancelRequest, parameters));
    const auto late = run(exchange, until + options.grace);
    result = std::unexpected(
        SessionError{Kind::deadline, fmt::format("no answer in {} ms", deadline.count())});
    const bool hasAnswered = late && (*late || late->error().kind == Kind::refused);
    if (hasAnswered && exchange.isBetweenFrames()) return std::move(*result);
  }
  if (!*result && result->error().kind != Kind::refused) kill();
  return std::move(*result);
}

ChildProcess::ChildProcess(ChildProcessOptions options)
    : state_(std::make_unique<State>(std::move(options))) {}

ChildProcess::~ChildProcess() {
  stop();
}

Result<void> ChildProcess::start() {
  stop();
  state_->decoder = widgetruntime::FrameDecoder{widgetruntime::kMaximumMessage};
  state_->diagnostics.clear();
  auto process = launch({state_->options.program,
                         state_->options.arguments,
                         state_->options.environment,
                         state_->options.maximumData});
  if (!process) return std::unexpected(std::move(process.error()));
  state_->process = std::move(*process);
  return {};
}

bool ChildProcess::isRunning() {
  return state_->isRunning();
}

Result<JsonDocument> ChildProcess::call(std::string_view method,
                                        std::string_view parametersJson,
                                        std::chrono::milliseconds deadline) {
  auto result = state_->call(method, parametersJson, deadline);
  if (!result) {
    const std::string_view program = state_->options.program;
    result.error().message = fmt::format(
        "{}: {}: {}", program.substr(program.rfind('/') + 1), method, result.error().message);
  }
  return result;
}

std::string ChildProcess::diagnostics() const {
  return state_->diagnostics.text();
}

void ChildProcess::stop() {
  state_->kill();
}

pid_t ChildProcess::processId() const {
  return state_->process.id;
}

}  // namespace session
