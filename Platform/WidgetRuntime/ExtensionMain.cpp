#include "WidgetRuntime/ExtensionMain.hpp"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <deque>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/NonBlocking.hpp"
#include "WidgetRuntime/Framing.hpp"

namespace widgetruntime {

namespace {

constexpr int kLowestFreeDescriptor = 3;
constexpr std::size_t kMaximumQueue = std::size_t{2} << 20;  // bytes
// What a waiting request takes beside its text. Without it the shortest frames would be free.
constexpr std::size_t kQueuedCost = 512;
constexpr std::size_t kReadSize = std::size_t{32} << 10;

void say(std::string_view text) {
  // Nothing is to be done about an error stream that takes no text.
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

// The answers' own descriptor. Whatever prints to standard output from now on prints to nowhere: it
// would break a frame, and it might name an amount.
int takeStandardOutput() {
  const int answers = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, kLowestFreeDescriptor);
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0 && nowhere != STDOUT_FILENO) {
    ::dup2(nowhere, STDOUT_FILENO);
    ::close(nowhere);
  }
  if (answers >= 0) foundation::stopBlocking(answers);
  return answers;
}

// A request that waits for its turn, or the error that it will be answered with.
struct Queued {
  std::expected<RpcRequest, RpcFailure> request;
  std::size_t cost = 0;  // bytes
};

class EntryLoop {
 public:
  EntryLoop(int answers, ExtensionDefinition definition)
      : answers_(answers), dispatcher_(std::move(definition)) {}

  int run() {
    while (!status_ && !isFinished()) {
      waitForWork();
      if (!status_) writeAnswers();
      if (!status_ && isReadable_) readRequests();
      if (!status_ && isWritten() && !queue_.empty()) answerNext();
    }
    return status_.value_or(0);
  }

 private:
  [[nodiscard]] bool isWritten() const { return written_ == output_.size(); }
  [[nodiscard]] bool isFinished() const { return inputEnded_ && queue_.empty() && isWritten(); }

  // Requests are read while an answer waits to be written, else a host that writes before it reads
  // would hang. Only a full queue makes it wait.
  [[nodiscard]] bool wantsInput() const { return !inputEnded_ && queuedBytes_ < kMaximumQueue; }

  void waitForWork() {
    std::array<pollfd, 2> polled{
        pollfd{wantsInput() ? STDIN_FILENO : -1, POLLIN, 0},
        pollfd{answers_, static_cast<short>(isWritten() ? 0 : POLLOUT), 0}};
    const bool hasWork = isWritten() && !queue_.empty();
    if (::poll(polled.data(), polled.size(), hasWork ? 0 : -1) < 0) polled = {};
    isReadable_ = polled[0].revents != 0;
    if ((polled[1].revents & (POLLERR | POLLNVAL)) != 0) status_ = 0;  // nobody reads any more
  }

  void writeAnswers() {
    if (isWritten()) return;
    const ssize_t count = ::write(answers_, output_.data() + written_, output_.size() - written_);
    if (count > 0) written_ += static_cast<std::size_t>(count);
    if (count < 0 && !foundation::wouldBlock()) status_ = 0;
  }

  void readRequests() {
    std::array<char, kReadSize> bytes;
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count == 0 || (count < 0 && !foundation::wouldBlock())) inputEnded_ = true;
    if (count <= 0) return;
    decoder_.append({bytes.data(), static_cast<std::size_t>(count)});
    while (!status_) {
      const auto received = decoder_.next();
      if (!received) {
        say("broken frame: " + received.error().message + "\n");
        status_ = 1;
        return;
      }
      const std::optional<std::string>& message = *received;
      if (!message) return;
      take(*message);
    }
  }

  void take(std::string_view message) {
    auto request = readRequest(message);
    if (request && !request->id && request->method == method::kCancelRequest) {
      if (const auto id = readCancelledId(request->parameters)) cancel(*id);
      return;
    }
    queue_.push_back({std::move(request), message.size() + kQueuedCost});
    queuedBytes_ += queue_.back().cost;
  }

  // One that is not waiting has been answered already: there is nothing to cancel.
  void cancel(const RpcId& id) {
    for (Queued& queued : queue_) {
      if (!queued.request || queued.request->id != id) continue;
      queued.request = std::unexpected(
          RpcFailure{id, {RpcErrorCode::requestCancelled, "cancelled before its turn"}});
    }
  }

  void answerNext() {
    const Queued queued = std::move(queue_.front());
    queue_.pop_front();
    queuedBytes_ -= queued.cost;
    const std::string answer =
        queued.request ? dispatcher_.handle(*queued.request) : writeError(queued.request.error());
    output_ = answer.empty() ? std::string{} : encodeFrame(answer);
    written_ = 0;
    if (dispatcher_.hasExited()) status_ = dispatcher_.isShutDown() ? 0 : 1;
  }

  int answers_;
  Dispatcher dispatcher_;
  FrameDecoder decoder_{kMaximumMessage};
  std::deque<Queued> queue_;
  std::size_t queuedBytes_ = 0;
  std::string output_;
  std::size_t written_ = 0;
  std::optional<int> status_;
  bool inputEnded_ = false;
  bool isReadable_ = false;
};

bool isStartedByHost(int argc) {
  return argc <= 1 && ::isatty(STDIN_FILENO) == 0;
}

}  // namespace

int NSExtensionMain(int argc, char** argv, ExtensionDefinition definition) {
  if (!isStartedByHost(argc)) {
    const std::string program = argc > 0 ? argv[0] : "extension";
    say("usage: a widget host runs " + program +
        " without arguments and talks to it through its\n"
        "standard input and output (JSON-RPC 2.0, Content-Length framing). Try quorvel-host.\n");
    return 2;
  }
  std::signal(SIGPIPE, SIG_IGN);
  const int answers = takeStandardOutput();
  if (answers < 0) {
    say("standard output is closed\n");
    return 2;
  }
  return EntryLoop(answers, std::move(definition)).run();
}

}  // namespace widgetruntime
