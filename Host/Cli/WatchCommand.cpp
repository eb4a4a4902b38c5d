// `watch`: a widget's line for a status bar, whenever it changes. Waits while no host runs and ends
// when nobody reads.
#include <fmt/format.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "Cli/Commands.hpp"
#include "Cli/HostRequest.hpp"
#include "Cli/Output.hpp"
#include "Control/Paths.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"
#include "Surfaces/Bar/BarLine.hpp"

namespace cli {
namespace {

using control::Client;
using foundation::FileDescriptor;
using foundation::JsonValue;
using foundation::JsonWriter;
using surfaces::BarFormat;
using surfaces::BarLine;

constexpr int kLeftButton = 1;
constexpr int kRightButton = 3;
constexpr int kPause = 1000;  // milliseconds

BarLine lineFrom(const JsonValue& json) {
  JsonWriter whole;
  json.write(whole);
  const JsonValue* hidden = json.member("hidden");
  return {.kind = textIn(json, "kind"),
          .text = textIn(json, "text"),
          .state = textIn(json, "state"),
          .tooltip = textIn(json, "tooltip"),
          .status = textIn(json, "status"),
          .reason = textIn(json, "reason"),
          .isHidden = hidden != nullptr && hidden->boolean() != nullptr && *hidden->boolean(),
          .json = whole.take()};
}

/// Without a host nobody can say whether amounts are to be hidden: none is left standing.
BarLine lineWithoutHost(const std::string& target) {
  JsonWriter json;
  json.beginObject().member("kind", target).member("text", "").member("state", "none");
  json.member("status", "missing").member("reason", "no resident host runs").endObject();
  return {.kind = target,
          .state = "none",
          .status = "missing",
          .reason = "no resident host runs",
          .isHidden = true,
          .json = json.take()};
}

/// The button of a click as i3bar's protocol or i3blocks tell it; nothing for any other line.
std::optional<int> buttonIn(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" ,[");
  if (begin == std::string_view::npos) return std::nullopt;
  const auto json = foundation::parseJson(line.substr(begin), 8, 4096);
  if (!json) return std::nullopt;
  const JsonValue* button = json->number() != nullptr ? &*json : json->member("button");
  const double* number = button != nullptr ? button->number() : nullptr;
  if (number == nullptr || *number < 1 || *number > 32) return std::nullopt;
  return static_cast<int>(*number);
}

class BarWatch {
 public:
  BarWatch(std::string socket, std::string target, BarFormat format)
      : socket_(std::move(socket)), target_(std::move(target)), format_(format) {}

  Result<void> run();

 private:
  /// Of a try to reach the host: refused when the host refuses the target.
  Result<void> connect();
  Result<void> wait();
  Result<void> readMessages();
  void readClicks();
  void click(int button);
  Result<void> show(const BarLine& line);
  Result<void> lose();

  std::string socket_;
  std::string target_;
  BarFormat format_;
  std::optional<Client> client_;
  std::optional<std::int64_t> watching_;
  FileDescriptor arrival_{-1};  // tells when a socket appears
  control::LineBuffer clicks_{4096};
  bool hasClicks_ = true;
  bool isPausing_ = false;
  std::string shown_;
};

Result<void> BarWatch::run() {
  arrival_ = FileDescriptor{::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)};
  const std::string folder = socket_.substr(0, socket_.rfind('/'));
  if (const auto problem = control::makePrivateFolder(folder)) return refused(*problem);
  ::inotify_add_watch(arrival_.get(), folder.c_str(), IN_CREATE | IN_MOVED_TO);
  if (auto printed = print(surfaces::opening(format_)); !printed) return printed;
  for (;;) {
    if (!client_ && !isPausing_) {
      if (auto connected = connect(); !connected) return connected;
    }
    if (auto waited = wait(); !waited) return waited;
  }
}

Result<void> BarWatch::connect() {
  auto client = Client::connect(socket_);
  if (!client) {
    if (!client.error().isMissing) return refused(client.error().line);
    return show(lineWithoutHost(target_));
  }
  client_ = *std::move(client);
  JsonWriter json;
  json.beginObject().member("target", target_).endObject();
  const auto sent = client_->send("watch", json.text());
  if (!sent) return lose();
  watching_ = *sent;
  return {};
}

Result<void> BarWatch::wait() {
  std::array<pollfd, 3> polled{pollfd{client_ ? client_->descriptor() : arrival_.get(), POLLIN, 0},
                               // Nothing is awaited of standard output but that its reader goes.
                               pollfd{STDOUT_FILENO, 0, 0},
                               pollfd{hasClicks_ ? STDIN_FILENO : -1, POLLIN, 0}};
  const bool wasPausing = std::exchange(isPausing_, false);
  if (::poll(polled.data(), polled.size(), wasPausing ? kPause : -1) < 0) return {};
  if ((polled[1].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
    return std::unexpected(Failure{ExitCode::done, {}});
  }
  if (polled[2].revents != 0) readClicks();
  if (polled[0].revents == 0) return {};
  if (client_) return readMessages();
  std::array<char, 4096> events;
  while (::read(arrival_.get(), events.data(), events.size()) > 0) {
  }
  return {};
}

Result<void> BarWatch::readMessages() {
  for (;;) {
    auto message = client_->next();
    if (!message) return lose();
    if (!*message) return {};
    const control::Message& said = **message;
    if (said.id && !said.error.empty()) {
      if (said.id == watching_) return refused(said.error);
      complain("quorvel-host watch: " + foundation::printable(said.error) + "\n");
    }
    if (said.method != "summary") continue;
    if (auto shown = show(lineFrom(said.content)); !shown) return shown;
  }
}

Result<void> BarWatch::lose() {
  client_.reset();
  watching_.reset();
  // A host that lets everybody go at once is not asked again and again without a rest.
  isPausing_ = true;
  return show(lineWithoutHost(target_));
}

Result<void> BarWatch::show(const BarLine& line) {
  std::string text = surfaces::format(line, format_);
  if (text == shown_) return {};
  shown_ = std::move(text);
  return print(shown_);
}

void BarWatch::readClicks() {
  std::array<char, 4096> bytes;
  const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  if (count <= 0) {
    hasClicks_ = false;
    return;
  }
  clicks_.append({bytes.data(), static_cast<std::size_t>(count)});
  while (const auto line = clicks_.next()) {
    if (const auto button = buttonIn(*line)) click(*button);
  }
  if (clicks_.isTooLong()) hasClicks_ = false;
}

void BarWatch::click(int button) {
  if (!client_) return;
  JsonWriter json;
  json.beginObject();
  // What cannot be sent is noticed by the next reading.
  if (button == kLeftButton) {
    json.member("target", target_).endObject();
    std::ignore = client_->send("open", json.text());
  } else if (button == kRightButton) {
    json.member("hide", "toggle").endObject();
    std::ignore = client_->send("hide", json.text());
  }
}

}  // namespace

Result<void> watch(const Options& options, const Program& program) {
  const auto socket = controlSocket(program);
  if (!socket) return std::unexpected(socket.error());
  auto ended = BarWatch{*socket, options.host.target, options.host.format}.run();
  if (!ended && ended.error().code == ExitCode::done) return {};
  return ended;
}

}  // namespace cli
